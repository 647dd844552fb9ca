// A server whose routine goes on until somebody writes into a pipe, and which tells by another pipe that it is unloaded. The
// environment names the descriptors.
#include <cstdlib>
#include <unistd.h>

namespace {

int descriptor(const char* variable) {
    const char* const value = std::getenv(variable);
    return value ? std::atoi(value) : -1;
}

struct Unloading {
    ~Unloading() { static_cast<void>(!write(descriptor("MOX_TEST_UNLOADED"), "u", 1)); }
};
const Unloading unloading;

} // namespace

extern "C" __attribute__((visibility("default"))) int DllRegisterServer() {
    char byte = 0;
    return static_cast<int>(read(descriptor("MOX_TEST_GO_ON"), &byte, 1));
}
