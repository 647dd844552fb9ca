// A server that leaves a mark in the environment, and answers with a failure that nobody is to look at.
#include <cstdlib>

extern "C" __attribute__((visibility("default"))) int DllRegisterServer() {
    setenv("MOX_TEST_MARK", "registered", 1);
    return -1;
}

extern "C" __attribute__((visibility("default"))) int DllUnregisterServer() {
    setenv("MOX_TEST_MARK", "unregistered", 1);
    return 7;
}
