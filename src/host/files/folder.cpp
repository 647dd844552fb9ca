#include "host/files/folder.h"

#include "host/files/names.h"
#include "host/files/shortnames.h"

#include <dirent.h>
#include <sys/stat.h>

#include <memory>

namespace mox::host {

namespace {

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { closedir(folder); }
};

/// Calls `visit` with each name in a folder but "." and "..". False if the folder cannot be read.
template <class Visit> bool visitNames(const std::string& path, Visit&& visit) {
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(path.c_str()));
    if (!folder) {
        return false;
    }
    while (const dirent* entry = readdir(folder.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            visit(name);
        }
    }
    return true;
}

std::string findLongName(const std::string& folder, std::string_view name) {
    if (existsOnDisk(joined(folder, name))) {
        return std::string(name);
    }
    std::string found;
    visitNames(folder, [&](std::string_view other) {
        if (equalWithoutCase(other, name) && (found.empty() || other < found)) {
            found = other;
        }
    });
    return found;
}

} // namespace

std::string joined(std::string_view folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path = folder;
    if (!folder.ends_with('/')) {
        path += '/';
    }
    return path += name;
}

std::string parentOf(std::string_view path) {
    const std::size_t end = path.rfind('/');
    return std::string(path.substr(0, end == 0 ? 1 : end));
}

std::string nameOf(std::string_view path) {
    return std::string(path.substr(path.rfind('/') + 1));
}

bool existsOnDisk(const std::string& path) noexcept {
    struct stat facts {};
    return lstat(path.c_str(), &facts) == 0;
}

bool isFolderOnDisk(const std::string& path) noexcept {
    struct stat facts {};
    return stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

std::optional<std::vector<std::string>> namesIn(const std::string& folder) {
    std::vector<std::string> names;
    if (!visitNames(folder, [&](std::string_view name) { names.emplace_back(name); })) {
        return std::nullopt;
    }
    return names;
}

std::string findName(const std::string& folder, std::string_view name, const CodePage& codePage) {
    const std::string_view plain = withoutTrailingDots(name);
    std::string found = findLongName(folder, name);
    if (found.empty() && plain.size() < name.size() && !plain.empty()) {
        found = findLongName(folder, plain);
    }
    if (found.empty() && looksMade(plain)) {
        if (auto names = namesIn(folder)) {
            found = ShortNames(std::move(*names), codePage).find(plain);
        }
    }
    return found;
}

std::string shortNameIn(const std::string& folder, const std::string& name, const CodePage& codePage) {
    if (!isShort(name, codePage)) {
        if (auto names = namesIn(folder)) {
            const ShortNames shortNames(std::move(*names), codePage);
            if (const std::string& shortName = shortNames.of(name); !shortName.empty()) {
                return shortName;
            }
        }
    }
    return codePage.fromUtf8(name);
}

std::string writtenName(const std::string& folder, const std::string& name, const CodePage& codePage) {
    return canBeWritten(name, codePage) ? codePage.fromUtf8(name) : shortNameIn(folder, name, codePage);
}

} // namespace mox::host
