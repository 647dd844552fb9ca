// mox-regsvr: tells a server file to enter itself into the registry, or to remove itself from it.
#include <mox/automation.h>

#include <cstdio>
#include <cstring>
#include <dlfcn.h>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

// What the command answers with.
constexpr int done = 0;
constexpr int wrongUse = 2;
constexpr int notLoaded = 3;
constexpr int noServer = 4;
constexpr int refused = 5;

struct Closing {
    void operator()(void* file) const { dlclose(file); }
};

std::string reason(HRESULT status) {
    switch (status) {
    case SELFREG_E_CLASS:
        return "a class cannot be entered or removed";
    case SELFREG_E_TYPELIB:
        return "the type library cannot be entered or removed";
    default: {
        char text[16];
        std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(status));
        return text;
    }
    }
}

int run(const char* file, bool isRemoval) {
    const auto complain = [file](const std::string& what) { std::fprintf(stderr, "mox-regsvr: %s: %s\n", file, what.c_str()); };
    std::error_code error;
    // The loader would look for a name without a slash in the folders of the system.
    const std::filesystem::path path = std::filesystem::absolute(file, error);
    const std::unique_ptr<void, Closing> loaded(dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (!loaded) {
        complain(std::string("cannot be loaded: ") + dlerror());
        return notLoaded;
    }
    const char* const name = isRemoval ? "DllUnregisterServer" : "DllRegisterServer";
    const auto routine = reinterpret_cast<HRESULT (*)()>(dlsym(loaded.get(), name));
    if (!routine) {
        complain(std::string("is no server: it has no routine ") + name);
        return noServer;
    }
    if (const HRESULT status = routine(); FAILED(status)) {
        complain(std::string(isRemoval ? "not removed: " : "not registered: ") + reason(status));
        return refused;
    }
    std::printf("%s: %s\n", file, isRemoval ? "removed" : "registered");
    return done;
}

} // namespace

int main(int argc, char** argv) {
    const bool isRemoval = argc > 1 && std::strcmp(argv[1], "-u") == 0;
    const int place = isRemoval ? 2 : 1;
    if (argc != place + 1 || argv[place][0] == '-') {
        std::fprintf(stderr, "usage: mox-regsvr [-u] FILE\n");
        return wrongUse;
    }
    return run(argv[place], isRemoval);
}
