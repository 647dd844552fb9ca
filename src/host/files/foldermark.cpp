#include "host/files/foldermark.h"

#include "host/files/folder.h"
#include "host/files/storedfacts.h"

#include "platform/kernel32.h"

#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <string_view>

namespace mox::host {

namespace {

constexpr std::string_view markName = "user.mox.attributes";

} // namespace

void markFolder(const std::string& folder) {
    // Where it fails the disk has no attributes, or the folder is another user's.
    setxattr(folder.c_str(), markName.data(), "1", 1, XATTR_CREATE);
}

void markFolderOf(const std::string& file, std::uint32_t attributes) {
    if ((attributes & (platform::FILE_ATTRIBUTE_HIDDEN | platform::FILE_ATTRIBUTE_SYSTEM)) != 0) {
        markFolder(parentOf(file));
    }
}

bool isMarked(const std::string& folder) {
    std::array<char, 1024> names;
    const ssize_t length = listxattr(folder.c_str(), names.data(), names.size());
    if (length < 0 && errno == ERANGE) {
        return true; // a folder with so many attributes may well have ours
    }
    std::string_view rest(names.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
    while (!rest.empty()) {
        const std::string_view name = rest.substr(0, rest.find('\0'));
        if (name == markName || name == StoredFacts::attributeName) {
            return true;
        }
        rest.remove_prefix(name.size() + 1);
    }
    return false;
}

} // namespace mox::host
