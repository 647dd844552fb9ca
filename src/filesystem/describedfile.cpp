#include "filesystem/describedfile.h"

#include "core/ansi.h"
#include "filesystem/foldersearch.h"

#include "platform/kernel32.h"
#include "platform/shell32.h"

namespace mox::server {

namespace {

using namespace platform;

constexpr Double ticksPerMillisecond = 10'000;
constexpr Double millisecondsPerDay = 86'400'000;
/// Days from 1601-01-01, where the times of files begin, to 1899-12-30, where dates do.
constexpr Double daysToDates = 109'205;

Date localDate(std::uint64_t time) {
    std::uint64_t local = 0;
    if (!kernel32().FileTimeToLocalFileTime(time, local)) {
        return {};
    }
    return Date{static_cast<Double>(local) / ticksPerMillisecond / millisecondsPerDay - daysToDates};
}

} // namespace

void readDateTime(const String& path, MOX_FILEDATETIME& times) {
    const FolderSearch search(toAnsi(path));
    if (search) {
        times.Created = localDate(search.entry().ftCreationTime);
        times.LastAccess = localDate(search.entry().ftLastAccessTime);
        times.Modified = localDate(search.entry().ftLastWriteTime);
    }
}

MOX_FS_FILEATTRIBUTES readAttributes(const String& path) {
    const std::uint32_t attributes = kernel32().GetFileAttributesA(toAnsi(path));
    return static_cast<MOX_FS_FILEATTRIBUTES>(attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes);
}

Boolean writeAttributes(const String& path, MOX_FS_FILEATTRIBUTES attributes) {
    constexpr std::uint32_t settable = FA_ARCHIVE | FA_HIDDEN | FA_NORMAL | FA_READONLY | FA_SYSTEM | FA_TEMPORARY;
    return kernel32().SetFileAttributesA(toAnsi(path), static_cast<std::uint32_t>(attributes) & settable);
}

String displayName(const String& path) {
    SHFILEINFOA info;
    const bool known = shell32().SHGetFileInfoA(toAnsi(path), 0, info, SHGFI_DISPLAYNAME) != 0;
    return known ? fromAnsiToNul(info.szDisplayName) : String();
}

String typeName(const String& path) {
    SHFILEINFOA info;
    const bool known = shell32().SHGetFileInfoA(toAnsi(path), 0, info, SHGFI_TYPENAME) != 0;
    return known ? fromAnsiToNul(info.szTypeName) : String();
}

} // namespace mox::server
