#include "core/modMoxHub.h"

#include "automation/objects/convert.h"
#include "automation/objects/errormodes.h"
#include "automation/objects/objectnumbers.h"
#include "core/ansi.h"
#include "core/statement.h"
#include "core/trim.h"

#include "platform/kernel32.h"
#include "platform/runtime.h"
#include "platform/shell32.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace mox::server::modMoxHub {

namespace {

using namespace platform;

/// True if a search finds something.
bool isFound(std::u16string_view pattern) {
    WIN32_FIND_DATAA found;
    const Handle search = kernel32().FindFirstFileA(toAnsi(pattern), found);
    if (search == invalidHandle) {
        return false;
    }
    kernel32().FindClose(search);
    return true;
}

bool isLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

/// A folder as the start of a path: one character means a drive.
std::u16string withBackslash(std::u16string_view folder) {
    std::u16string result(folder);
    if (result.size() == 1) {
        result += u":\\";
    } else if (!result.ends_with(u'\\')) {
        result += u'\\';
    }
    return result;
}

/// The drive with its backslash, or the server with the backslash behind it; empty for any other path.
std::u16string_view rootOf(std::u16string_view path) {
    if (path.size() >= 3 && path.substr(1, 2) == u":\\") {
        return path.substr(0, 3);
    }
    const std::size_t end = path.find(u'\\', 2);
    return path.starts_with(u"\\\\") && end != path.npos ? path.substr(0, end + 1) : std::u16string_view();
}

/// What stands between the backslashes of a path, if anything does.
std::vector<std::u16string_view> partsOf(std::u16string_view path) {
    std::vector<std::u16string_view> parts;
    while (!path.empty()) {
        const std::size_t end = std::min(path.find(u'\\'), path.size());
        if (end > 0) {
            parts.push_back(path.substr(0, end));
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

std::u16string hexadecimal(Long number) {
    std::u16string text;
    do {
        text.insert(0, 1, u"0123456789ABCDEF"[number % 16]);
        number /= 16;
    } while (number != 0);
    return text;
}

/// The format "0000": a text that reads as a number, also with an exponent behind D or E, becomes that number with at least four
/// digits.
std::u16string formatted(std::u16string_view text) {
    constexpr std::u16string_view digits = u"0123456789";
    constexpr std::size_t leastDigits = 4;
    const std::size_t mantissaEnd = std::min(text.find_first_not_of(digits), text.size());
    const std::u16string_view exponent = text.substr(std::min(mantissaEnd + 1, text.size()));
    const bool hasLetter = mantissaEnd < text.size();
    const bool isExponent = hasLetter && (text[mantissaEnd] == u'D' || text[mantissaEnd] == u'E') && !exponent.empty() &&
                            exponent.find_first_not_of(digits) == exponent.npos;
    if (mantissaEnd == 0 || (hasLetter && !isExponent)) {
        return std::u16string(text);
    }
    std::size_t zeros = 0;
    for (const char16_t digit : exponent) {
        zeros = zeros * 10 + (digit - u'0');
    }
    std::u16string number(text.substr(0, mantissaEnd));
    number.append(zeros, u'0');
    number.erase(0, number.find_first_not_of(u'0'));
    return std::u16string(leastDigits - std::min(leastDigits, number.size()), u'0') + number;
}

/// The part of a temporary name that changes; now and then it is too long to be one.
std::u16string randomText() {
    constexpr Single numbers = 65536;
    runtime().Randomize();
    return formatted(hexadecimal(toLong(runtime().Rnd() * numbers)));
}

/// The path of a file that does not exist.
String freeName(const std::u16string& start, const std::u16string& end) {
    constexpr std::size_t longestText = 4;
    // Nearly all names are taken when so many passes find none.
    constexpr int mostPasses = 100'000;
    constexpr Long errFileAlreadyExists = 58;
    for (int pass = 0; pass < mostPasses; ++pass) {
        const std::u16string text = randomText();
        String name(std::u16string(start).append(text).append(end));
        if (text.size() <= longestText && !FileExists(name)) {
            return name;
        }
    }
    throw RuntimeError(errFileAlreadyExists);
}

void createTemporaryFile(const std::string& file) {
    statement(runtime().TouchBinary(file));
    const std::uint32_t attributes = kernel32().GetFileAttributesA(file);
    kernel32().SetFileAttributesA(file, (attributes == INVALID_FILE_ATTRIBUTES ? 0 : attributes) | FILE_ATTRIBUTE_TEMPORARY);
}

} // namespace

String GetShortPath(const String& sPath) {
    const std::string path = toAnsi(sPath);
    std::string buffer(kernel32().GetShortPathNameA(path, {}), '\0');
    const std::uint32_t length = kernel32().GetShortPathNameA(path, buffer);
    return fromAnsiToNul(buffer.substr(0, length));
}

Boolean FileExists(const String& sPath) {
    Boolean result;
    trapAndLeave([&] { result = !sPath.empty() && isFound(sPath); });
    return result;
}

Boolean FolderExists(const String& sPath) {
    Boolean result;
    trapAndLeave([&] {
        std::u16string path(trimmed(sPath));
        if (path.empty()) {
            return;
        }
        path = withBackslash(path.size() <= 2 ? path.substr(0, 1) : path);
        result = isFound(path + u"*.*");
        if (!result && path.size() == 3 && isLetter(path[0])) {
            const std::string root = toAnsi(path.substr(0, 1) + u":\\");
            const std::uint32_t type = kernel32().GetDriveTypeA(root);
            if (type >= DRIVE_REMOVABLE && type <= DRIVE_RAMDISK) {
                // An empty drive exists if it is formatted.
                std::uint32_t unused = 0;
                result = kernel32().GetDiskFreeSpaceA(toAnsi(path), unused, unused, unused, unused);
            }
        }
    });
    return result;
}

Boolean CreateFolderTree(const String& sPath) {
    Boolean result;
    trapAndLeave([&] {
        if (!FolderExists(sPath)) {
            const std::u16string_view root = rootOf(sPath);
            if (root.empty()) {
                return;
            }
            std::u16string path(root.substr(0, root.size() - 1));
            for (const std::u16string_view part : partsOf(sPath.view().substr(root.size()))) {
                path.append(u"\\").append(part);
                if (!FolderExists(path + u"\\")) {
                    statement(runtime().MkDir(toAnsi(path)));
                }
            }
        }
        result = FolderExists(sPath);
    });
    return result;
}

String GetTempFolder() {
    std::string buffer(kernel32().GetTempPathA({}), '\0');
    const std::uint32_t length = kernel32().GetTempPathA(buffer);
    if (length == 0 || buffer.empty()) {
        return u"c:\\";
    }
    return withBackslash(fromAnsiToNul(buffer.substr(0, length)));
}

String CreateTempName(const String& sPrefix, const String& sSuffix, const String& sPath, Boolean bCreateFile) {
    String result;
    trapAndLeave([&] {
        const std::u16string folder = FolderExists(sPath) ? withBackslash(sPath) : std::u16string(GetTempFolder());
        String name = freeName(folder + std::u16string(sPrefix), (sSuffix.empty() ? u"" : u".") + std::u16string(sSuffix));
        if (bCreateFile) {
            createTemporaryFile(toAnsi(name));
        }
        result = std::move(name);
    });
    return result;
}

String GetExeOfFile(const String& sFile, Boolean bShortName) {
    String result;
    trapAndLeave([&] {
        std::string buffer(256, ' ');
        shell32().FindExecutableA(toAnsi(sFile), "", buffer);
        const std::size_t end = buffer.find('\0');
        if (end == 0 || end == buffer.npos) {
            return;
        }
        const String program = fromAnsiToNul(buffer);
        if (FileExists(program)) {
            result = bShortName ? GetShortPath(program) : program;
        }
    });
    return result;
}

String GetExeOfExtension(const String& sExtension) {
    String result;
    trapAndLeave([&] {
        if (sExtension.empty()) {
            return;
        }
        const String file = CreateTempName(u"~", sExtension, String(), True);
        result = GetExeOfFile(file, False);
        carryOn([&] { statement(runtime().Kill(toAnsi(file))); });
    });
    return result;
}

Boolean GetDiskSpace(const String& sPath, Double& TotalBytes, Double& UsedBytes, Double& FreeBytes, Double& AvailableBytes) {
    Boolean result;
    trapAndLeave([&] {
        const std::string path = toAnsi(sPath.size() == 1 ? sPath.view()[0] + std::u16string(u":") : std::u16string(sPath));
        std::uint64_t available = 0;
        std::uint64_t total = 0;
        std::uint64_t free = 0;
        if (shell32().SHGetDiskFreeSpaceA(path, available, total, free)) {
            TotalBytes = static_cast<Double>(total);
            FreeBytes = static_cast<Double>(free);
            AvailableBytes = static_cast<Double>(available);
            UsedBytes = TotalBytes - AvailableBytes;
            result = True;
            return;
        }
        std::uint32_t sectorsPerCluster = 0;
        std::uint32_t bytesPerSector = 0;
        std::uint32_t freeClusters = 0;
        std::uint32_t clusters = 0;
        if (kernel32().GetDiskFreeSpaceA(path, sectorsPerCluster, bytesPerSector, freeClusters, clusters)) {
            const Double bytesPerCluster = static_cast<Double>(sectorsPerCluster) * bytesPerSector;
            TotalBytes = clusters * bytesPerCluster;
            UsedBytes = (static_cast<Double>(clusters) - freeClusters) * bytesPerCluster;
            FreeBytes = freeClusters * bytesPerCluster;
            result = True;
        }
    });
    return result;
}

Ref<IDispatch> ObjectFromPtr(Long lPointer) noexcept {
    Ref<IDispatch> result;
    if (lPointer != 0) {
        carryOn([&] { result = ObjectNumbers::objectOf(lPointer); });
    }
    return result;
}

Long PtrFromObject(const Ref<IDispatch>& cObject) {
    return cObject ? ObjectNumbers::numberOf(*cObject) : 0;
}

} // namespace mox::server::modMoxHub
