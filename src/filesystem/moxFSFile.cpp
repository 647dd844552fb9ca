#include "filesystem/moxFSFile.h"

#include "automation/objects/errormodes.h"
#include "core/ansi.h"
#include "core/modMoxHub.h"
#include "core/statement.h"
#include "filesystem/binaryfile.h"
#include "filesystem/describedfile.h"
#include "filesystem/pageblock.h"
#include "filesystem/pathtext.h"
#include "filesystem/uniquename.h"

#include "platform/kernel32.h"
#include "platform/ntdll.h"
#include "platform/runtime.h"
#include "platform/version.h"

#include <algorithm>

namespace mox::server {

namespace {

using namespace platform;

/// Where the folder part of a path ends: its last slash, or its last backslash if it has no slash at all.
std::size_t lastSeparator(std::u16string_view path) {
    const std::size_t slash = path.rfind(u'/');
    return slash != path.npos ? slash : path.rfind(u'\\');
}

/// The name without a counter that it carries: a number in brackets, or one behind the separator, and the blanks in front.
std::u16string_view withoutCounter(std::u16string_view name, std::u16string_view separator) {
    const bool hasBracket = name.ends_with(u')');
    const std::size_t start = hasBracket ? name.rfind(u'(') : separator.empty() ? name.npos : name.rfind(separator);
    if (start == name.npos || start == 0) {
        return name;
    }
    std::u16string_view number = name.substr(start + 1);
    number.remove_suffix(hasBracket ? 1 : 0);
    if (!isNumber(number)) {
        return name;
    }
    const std::u16string_view rest = name.substr(0, start);
    return rest.substr(0, rest.find_last_not_of(u' ') + 1);
}

/// The fixed part of a version block, from its file version on.
MOX_FILEVERSIONINFO versionIn(std::string_view fixed) {
    constexpr std::size_t fileVersion = 8;
    constexpr std::size_t sizeOfVersion = 8;
    constexpr std::uint16_t step = 100;
    MOX_FILEVERSIONINFO info;
    info.Available = True;
    if (fixed.size() >= fileVersion + sizeOfVersion) {
        const auto word = [&](std::size_t index) {
            const std::size_t place = fileVersion + 2 * index;
            return static_cast<std::uint16_t>(static_cast<std::uint8_t>(fixed[place]) |
                                              static_cast<std::uint8_t>(fixed[place + 1]) << 8);
        };
        info.Minor = static_cast<Integer>(word(0));
        info.Major = static_cast<Integer>(word(1));
        info.Revision = static_cast<Integer>(word(2) + step * word(3));
    }
    return info;
}

} // namespace

String moxFSFile::CreateUniqueFileName(const String& sBasePathFileName, const String& sNumSep, Boolean bBracketAllowed) {
    std::u16string text = cleanedName(sBasePathFileName);
    if (text.empty()) {
        text = u"_";
    }
    if (!modMoxHub::FileExists(text)) {
        return text;
    }
    const std::u16string_view file = behindLastBackslash(text);
    const std::u16string_view folder = std::u16string_view(text).substr(0, text.size() - file.size());
    const std::u16string_view name = file.substr(0, file.rfind(u'.'));
    const std::u16string_view extension = file.substr(name.size());
    return freeName({std::u16string(folder).append(withoutCounter(name, sNumSep)), std::u16string(extension)}, sNumSep,
                    bBracketAllowed, modMoxHub::FileExists);
}

Boolean moxFSFile::DrawIcon(const String& sFileName, Long hDC, Long X, Long Y, MOX_FS_ICONSIZE Size, MOX_FS_ICONSTATE State) {
    return modMoxHub::DrawShellIcon(hDC, X, Y, sFileName, Size, State);
}

String moxFSFile::GetExeFromFileExtension(const String& sFileExt, Boolean bShortExeName) {
    String result;
    trapAndLeave([&] {
        const bool hasPoint = sFileExt.view().find(u'.') != std::u16string_view::npos;
        const std::u16string_view extension = hasPoint ? behindLastPoint(sFileExt) : sFileExt.view();
        if (extension.empty()) {
            return;
        }
        // The shell tells the program of files that exist only.
        const String file = modMoxHub::CreateTempName(u"~", extension, String(), True);
        if (Exists(file)) {
            result = GetExeFromFileName(file, bShortExeName);
            carryOn([&] { statement(runtime().Kill(toAnsi(file))); });
        }
    });
    return result;
}

String moxFSFile::GetExeFromFileName(const String& sFileName, Boolean bShortExeName) {
    return Exists(sFileName) ? modMoxHub::GetExeOfFile(sFileName, bShortExeName) : GetExeFromFileExtension(sFileName, False);
}

MOX_FILEDATETIME moxFSFile::GetDateTime(const String& sFileName) {
    MOX_FILEDATETIME times;
    trapAndLeave([&] { readDateTime(sFileName, times); });
    return times;
}

Long moxFSFile::GetChecksum(const String& sFileName, Long lMaxMBTaken) {
    constexpr std::int64_t megabyte = 1'048'576;
    constexpr Long mostMegabytes = 1024;
    constexpr std::int64_t blockSize = 256 * 1024; // stays in the cache of the processor
    constexpr std::uint32_t registerOf0 = 0xFFFFFFFF;
    Long result = 0;
    trapAndLeave([&] {
        if (!Exists(sFileName)) {
            return;
        }
        const BinaryFile file(sFileName, FileAccess::read);
        const std::int64_t taken = std::min(file.length(), std::min(lMaxMBTaken, mostMegabytes) * megabyte);
        if (taken <= 0) {
            return;
        }
        const PageBlock block(static_cast<std::size_t>(std::min(taken, blockSize)));
        std::uint32_t crc = registerOf0;
        for (std::int64_t position = 0; position < taken; position += blockSize) {
            const std::span<char> bytes = block.first(static_cast<std::size_t>(std::min(taken - position, blockSize)));
            file.read(position, bytes);
            if (!ntdll().RtlComputeCrc32(crc, bytes)) {
                return;
            }
        }
        result = static_cast<Long>(crc);
    });
    return result;
}

String moxFSFile::GetDisplayName(const String& sFileName) {
    String result;
    trapAndLeave([&] { result = displayName(sFileName); });
    return result;
}

Long moxFSFile::GetSize(const String& sFileName) {
    Long result = 0;
    trapAndLeave([&] {
        const Handle file =
            kernel32().CreateFileA(toAnsi(sFileName), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
        if (file == invalidHandle) {
            return;
        }
        std::uint32_t high = 0;
        result = static_cast<Long>(kernel32().GetFileSize(file, high));
        kernel32().CloseHandle(file);
    });
    return result;
}

MOX_FILEVERSIONINFO moxFSFile::GetVersion(const String& sFileName) {
    MOX_FILEVERSIONINFO result;
    trapAndLeave([&] {
        const std::string file = toAnsi(sFileName);
        const std::uint32_t size = Exists(sFileName) ? version().GetFileVersionInfoSizeA(file) : 0;
        if (size == 0) {
            return;
        }
        std::string block(size, '\0');
        std::string_view fixed;
        const bool isRead = version().GetFileVersionInfoA(file, block) && version().VerQueryValueA(block, "\\", fixed);
        result = versionIn(isRead ? fixed : std::string_view());
    });
    return result;
}

Boolean moxFSFile::SetAttributes(const String& sFileName, MOX_FS_FILEATTRIBUTES eAttributes) {
    Boolean result;
    trapAndLeave([&] { result = Exists(sFileName) && writeAttributes(sFileName, eAttributes); });
    return result;
}

MOX_FS_FILEATTRIBUTES moxFSFile::GetAttributes(const String& sFileName) {
    MOX_FS_FILEATTRIBUTES result{};
    trapAndLeave([&] {
        if (Exists(sFileName)) {
            result = readAttributes(sFileName);
        }
    });
    return result;
}

String moxFSFile::StripExtension(const String& sPathFile) {
    return behindLastPoint(StripFileName(sPathFile, True));
}

String moxFSFile::StripFileName(const String& sPathFile, Boolean bIncludeExtension) {
    const std::u16string_view path = trimmed(sPathFile);
    const std::size_t separator = lastSeparator(path);
    std::u16string_view name = path.substr(separator + 1);
    if (separator != path.npos && !name.empty() && modMoxHub::FolderExists(path)) {
        name = {};
    }
    return bIncludeExtension ? name : name.substr(0, name.rfind(u'.'));
}

String moxFSFile::StripPath(const String& sPathFile, Boolean Add_BackSlash) {
    const std::u16string_view path = trimmed(sPathFile);
    const std::size_t last = lastSeparator(path);
    if (last == path.npos) {
        return {};
    }
    const char16_t separator = path[last];
    std::u16string folder(path);
    if (last + 1 < path.size() && !modMoxHub::FolderExists(path)) {
        folder.resize(last + 1);
    }
    if (Add_BackSlash && folder.back() != separator) {
        folder += separator;
    } else if (!Add_BackSlash && folder.back() == separator) {
        folder.pop_back();
    }
    return folder;
}

Boolean moxFSFile::Exists(const String& sFileName) {
    return modMoxHub::FileExists(sFileName);
}

String moxFSFile::GetShortPathFileName(const String& sFileName) {
    String result;
    trapAndLeave([&] { result = modMoxHub::GetShortPath(sFileName); });
    return result;
}

String moxFSFile::GetTypeName(const String& sFileName) {
    String result;
    trapAndLeave([&] { result = typeName(sFileName); });
    return result;
}

} // namespace mox::server
