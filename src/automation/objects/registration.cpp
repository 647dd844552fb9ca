#include "automation/objects/registration.h"

#include "automation/objects/classesroot.h"
#include "automation/types/guid.h"

#include "platform/kernel32.h"
#include "platform/runtime.h"

#include <mox/values.h>

#include <algorithm>
#include <iterator>
#include <vector>

#include <dlfcn.h>

namespace mox::automation {

namespace {

using namespace platform;

/// The file on disk that an address lies in; empty for an address in none.
std::filesystem::path fileOf(const void* address) {
    Dl_info info{};
    return dladdr(address, &info) != 0 && info.dli_fname ? info.dli_fname : "";
}

/// Where a server file lies, as programs name it.
struct ServerPlace {
    /// Without a backslash at its end.
    std::string folder;
    std::string file;
};

std::optional<ServerPlace> placeOf(const ServerModule& module) {
    const void* const address = &module;
    std::string folder = runtime().AppPath(address);
    if (folder.ends_with('\\')) {
        folder.pop_back();
    }
    const std::string name = ansiFrom(utf16FromUtf8(fileOf(address).filename().string()));
    ServerPlace place{folder, folder + "\\" + name};
    // A name that the code page does not hold would lead to another file, or to none.
    const bool isThere = !folder.empty() && !name.empty() && kernel32().GetFileAttributesA(place.file) != INVALID_FILE_ATTRIBUTES;
    return isThere ? std::optional(std::move(place)) : std::nullopt;
}

/// Names and help texts of a library are plain ASCII.
std::string plain(std::u16string_view text) {
    std::string bytes;
    std::ranges::transform(text, std::back_inserter(bytes), [](char16_t c) { return c < 0x80 ? static_cast<char>(c) : '?'; });
    return bytes;
}

std::string versionOf(const typelib::LibraryDescription& library) {
    return std::to_string(library.major) + "." + std::to_string(library.minor);
}

/// Every class is known by its identifier; only those that clients create have a file and a name to be found by.
void addClass(std::vector<ClassesEntry>& entries, const typelib::ClassDescription& type, const ServerPlace& place) {
    const std::string id = ansiFrom(type.id);
    const std::string key = "CLSID\\" + id;
    const std::string help = plain(type.help);
    entries.push_back({key, {{"", help}}});
    entries.push_back({key + "\\TypeLib", {{"", ansiFrom(type.library.id)}}});
    if (type.creatable) {
        const std::string progId = plain(std::u16string(type.library.name) + u"." + type.name);
        entries.push_back({key + "\\InprocServer32", {{"", place.file}, {"ThreadingModel", "Apartment"}}});
        entries.push_back({key + "\\ProgID", {{"", progId}}});
        entries.push_back({key + "\\VERSION", {{"", versionOf(type.library)}}});
        entries.push_back({progId, {{"", help}}});
        entries.push_back({progId + "\\CLSID", {{"", id}}});
    }
}

std::vector<ClassesEntry> classEntries(const ServerModule& module, const ServerPlace& place) {
    std::vector<ClassesEntry> entries;
    for (const ClassEntry& entry : module.classes()) {
        addClass(entries, entry.description, place);
    }
    return entries;
}

std::vector<ClassesEntry> libraryEntries(const ServerModule& module, const ServerPlace& place) {
    const typelib::LibraryDescription& library = module.library();
    const std::string key = "TypeLib\\" + ansiFrom(library.id);
    const std::string version = key + "\\" + versionOf(library);
    return {
        {key, {}},
        {version, {{"", plain(library.help)}}},
        {version + "\\0", {}},
        {version + "\\0\\win32", {{"", place.file}}},
        {version + "\\FLAGS", {{"", "0"}}},
        {version + "\\HELPDIR", {{"", place.folder}}},
    };
}

/// Those below a key before the key itself. Goes on after a failure.
bool removeAll(const std::vector<ClassesEntry>& entries) {
    bool isDone = true;
    std::for_each(entries.rbegin(), entries.rend(), [&](const ClassesEntry& entry) { isDone = removeEntry(entry) && isDone; });
    return isDone;
}

/// True if all is entered; if not, all of it is taken back.
bool enterAll(const std::vector<ClassesEntry>& entries) {
    if (std::ranges::all_of(entries, enterEntry)) {
        return true;
    }
    removeAll(entries);
    return false;
}

HRESULT enter(const ServerModule& module) {
    const std::optional<ServerPlace> place = placeOf(module);
    if (!place) {
        return SELFREG_E_CLASS;
    }
    const std::vector<ClassesEntry> classes = classEntries(module, *place);
    if (!enterAll(classes)) {
        return SELFREG_E_CLASS;
    }
    if (!enterAll(libraryEntries(module, *place))) {
        removeAll(classes);
        return SELFREG_E_TYPELIB;
    }
    return S_OK;
}

HRESULT remove(const ServerModule& module) {
    const bool isLibraryGone = removeAll(libraryEntries(module, {}));
    const bool areClassesGone = removeAll(classEntries(module, {}));
    if (!areClassesGone) {
        return SELFREG_E_CLASS;
    }
    return isLibraryGone ? S_OK : SELFREG_E_TYPELIB;
}

template <class Body> HRESULT withoutExceptions(Body&& body) noexcept {
    try {
        return body();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

} // namespace

HRESULT registerModule(const ServerModule& module) noexcept {
    return withoutExceptions([&] { return enter(module); });
}

HRESULT unregisterModule(const ServerModule& module) noexcept {
    return withoutExceptions([&] { return remove(module); });
}

RegisteredServer::RegisteredServer(REFCLSID id) {
    const std::optional<std::string> file = readEntry("CLSID\\" + ansiFrom(id) + "\\InprocServer32");
    if (!file) {
        return;
    }
    library_ = kernel32().LoadLibraryA(*file);
    if (library_ == 0) {
        const bool isThere = kernel32().GetFileAttributesA(*file) != INVALID_FILE_ATTRIBUTES;
        status_ = isThere ? CO_E_ERRORINDLL : CO_E_DLLNOTFOUND;
        return;
    }
    const Procedure routine = kernel32().GetProcAddress(library_, "DllGetClassObject");
    path_ = routine ? fileOf(reinterpret_cast<const void*>(routine)) : std::filesystem::path();
    status_ = path_.empty() ? CO_E_ERRORINDLL : S_OK;
}

RegisteredServer::~RegisteredServer() {
    if (library_ != 0) {
        kernel32().FreeLibrary(library_);
    }
}

std::optional<CLSID> registeredClass(std::u16string_view progId) {
    const std::string key = ansiFrom(progId);
    // A path into other branches is no name.
    if (key.empty() || key.find_first_of(std::string_view("\\\0", 2)) != std::string::npos) {
        return std::nullopt;
    }
    const std::optional<std::string> id = readEntry(key + "\\CLSID");
    return id ? guidFromText(utf16FromAnsi(*id)) : std::nullopt;
}

std::optional<std::u16string> registeredProgId(REFCLSID id) {
    const std::optional<std::string> progId = readEntry("CLSID\\" + ansiFrom(id) + "\\ProgID");
    return progId && !progId->empty() ? std::optional(utf16FromAnsi(*progId)) : std::nullopt;
}

} // namespace mox::automation
