// A shared library that is no host module.

extern "C" int something_else() {
    return 1;
}
