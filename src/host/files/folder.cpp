#include "host/files/folder.h"

#include "host/files/names.h"
#include "host/files/shortnames.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mox::host {

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

bool isReadableFolder(const std::string& path) noexcept {
    // The dot is there only in folders.
    return faccessat(AT_FDCWD, joined(path, ".").c_str(), R_OK | X_OK, AT_EACCESS) == 0;
}

std::optional<std::vector<std::string>> namesIn(const std::string& folder) {
    const std::shared_ptr<const FolderListing> listing = FolderListing::read(folder);
    return listing ? std::optional(listing->names()) : std::nullopt;
}

std::string findOtherName(const FolderListing& listing, std::string_view name, const CodePage& codePage) {
    const std::string_view plain = withoutTrailingDots(name);
    std::string_view found = listing.find(name);
    if (found.empty() && plain.size() < name.size() && !plain.empty()) {
        found = listing.find(plain);
    }
    if (found.empty() && looksMade(plain)) {
        return ShortNames(listing.names(), codePage).find(plain);
    }
    return std::string(found);
}

std::string shortNameIn(const std::string& folder, const std::string& name, const CodePage& codePage) {
    if (!isShort(name, codePage)) {
        if (const auto listing = FolderListing::read(folder)) {
            const ShortNames shortNames(listing->names(), codePage);
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
