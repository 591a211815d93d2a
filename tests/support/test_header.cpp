// Owns the precompiled header that the test programs share; does nothing.

int main() {}
