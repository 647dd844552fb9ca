#include "host/processes/library.h"

#include "host/processes/ending.h"
#include "host/runtime/codefile.h"

#include <string>
#include <vector>

#include <dlfcn.h>

namespace mox::host {

namespace {

/// Any address of this library, to ask where it was loaded from.
const char here = 0;

std::shared_ptr<Library> open(const std::string& file, int mode = RTLD_NOW | RTLD_LOCAL) {
    void* const opened = dlopen(file.c_str(), mode);
    return opened ? std::make_shared<Library>(opened) : nullptr;
}

/// The names that a library may have here whose name is written for the other system.
std::vector<std::string> namesOf(std::string_view name) {
    constexpr std::string_view ending = ".dll";
    const std::string_view stem = name.substr(0, name.size() - (hasEnding(name, ending) ? ending.size() : 0));
    return {std::string(name), std::string(stem) + ".so"};
}

std::shared_ptr<Library> loadFile(const Files& files, std::string_view path) {
    for (const std::string& name : namesOf(path)) {
        const auto file = files.resolveFile(name);
        std::error_code error;
        if (file && std::filesystem::is_regular_file(*file, error)) {
            return open(file->string());
        }
    }
    return nullptr;
}

std::shared_ptr<Library> loadName(const Files& files, const CodePage& codePage, std::string_view name) {
    const std::vector<std::string> names = namesOf(name);
    const std::filesystem::path own = fileOfCode(&here).parent_path();
    std::error_code error;
    for (const std::string& candidate : names) {
        const std::filesystem::path file = own / codePage.toUtf8(candidate);
        if (std::filesystem::is_regular_file(file, error)) {
            return open(file.string());
        }
    }
    if (auto library = loadFile(files, "C:\\Windows\\System32\\" + std::string(name))) {
        return library;
    }
    for (const std::string& candidate : names) {
        for (const char* prefix : {"", "lib"}) {
            if (auto library = open(prefix + codePage.toUtf8(candidate))) {
                return library;
            }
        }
    }
    return nullptr;
}

} // namespace

std::shared_ptr<Library> Library::load(const Files& files, const CodePage& codePage, std::string_view file) {
    const std::string_view name = file.substr(0, file.find('\0'));
    if (name.empty()) {
        return nullptr; // which to `dlopen` would be the program itself
    }
    return name.find_first_of("\\/:") == name.npos ? loadName(files, codePage, name) : loadFile(files, name);
}

std::shared_ptr<Library> Library::holding(platform::Procedure routine) {
    const std::filesystem::path file = fileOfCode(reinterpret_cast<const void*>(routine));
    return file.empty() ? nullptr : open(file.string(), RTLD_NOW | RTLD_NOLOAD);
}

Library::~Library() {
    dlclose(opened_);
}

platform::Procedure Library::find(std::string_view name) const {
    const std::string text(name);
    void* const address = dlsym(opened_, text.c_str());
    // Libraries that it needs are searched as well, but what they export is not its own.
    Dl_info info{};
    void* const handle = address && dladdr(address, &info) != 0 ? dlopen(info.dli_fname, RTLD_NOW | RTLD_NOLOAD) : nullptr;
    if (handle) {
        dlclose(handle);
    }
    return handle == opened_ ? reinterpret_cast<platform::Procedure>(address) : nullptr;
}

} // namespace mox::host
