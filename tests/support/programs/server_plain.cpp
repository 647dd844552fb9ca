// A library that is no server: it has none of the routines.
extern "C" __attribute__((visibility("default"))) int plainNumber() {
    return 42;
}
