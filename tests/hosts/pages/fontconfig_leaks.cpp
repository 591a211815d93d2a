// What fontconfig keeps until the process ends is no leak of ours.
extern "C" const char* __lsan_default_suppressions();   // NOLINT: the sanitizer's own name
extern "C" const char* __lsan_default_suppressions() {  // NOLINT
    return "leak:libfontconfig\n";
}
