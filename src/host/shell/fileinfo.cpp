#include "host/shell/fileinfo.h"

#include "host/shell/contenttype.h"
#include "host/shell/gio.h"

#include "platform/kernel32.h"

#include <unicode/unistr.h>

#include <sys/stat.h>

#include <charconv>
#include <optional>

namespace mox::host {

namespace {

using namespace platform;

constexpr std::size_t mostOfName = 259;
constexpr std::size_t mostOfType = 79;

/// As much of a text as fits into so many bytes of the code page, in whole characters.
std::string cut(std::string_view utf8, std::size_t most, const CodePage& codePage) {
    std::string bytes = codePage.fromUtf8(utf8);
    while (bytes.size() > most) {
        std::size_t end = utf8.size() - 1;
        while (end > 0 && (static_cast<unsigned char>(utf8[end]) & 0xC0) == 0x80) {
            --end;
        }
        utf8 = utf8.substr(0, end);
        bytes = codePage.fromUtf8(utf8);
    }
    return bytes;
}

const char* kindOfDrive(std::uint32_t type) noexcept {
    switch (type) {
    case DRIVE_REMOVABLE:
        return "Removable Disk";
    case DRIVE_REMOTE:
        return "Network Drive";
    case DRIVE_CDROM:
        return "CD Drive";
    case DRIVE_RAMDISK:
        return "RAM Disk";
    default:
        return "Local Disk";
    }
}

/// By the name alone, as users tell types by extensions: a text in a file with an unknown one does not make it known.
std::string typeByName(const std::string& name) {
    const GText type = contentTypeOfName(name);
    const bool isKnown = type && !g_content_type_is_unknown(type.get());
    const GText description(isKnown ? g_content_type_get_description(type.get()) : nullptr);
    if (description && *description) {
        return description.get();
    }
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos || dot + 1 == name.size()) {
        return "File";
    }
    std::string upper;
    icu::UnicodeString::fromUTF8(name.substr(dot + 1)).toUpper().toUTF8String(upper);
    return upper + " File";
}

/// Escapes of the form `\x20` as characters.
std::string unescaped(std::string_view text) {
    constexpr std::size_t length = 4;
    std::string result;
    while (!text.empty()) {
        unsigned char byte = 0;
        const bool isEscape = text.starts_with("\\x") && text.size() >= length &&
                              std::from_chars(text.data() + 2, text.data() + length, byte, 16).ptr == text.data() + length;
        result += isEscape ? static_cast<char>(byte) : text.front();
        text.remove_prefix(isEscape ? length : 1);
    }
    return result;
}

bool isVolumeRoot(const std::filesystem::path& folder, const struct stat& facts) {
    struct stat above {};
    return folder == "/" || (stat(folder.parent_path().c_str(), &above) == 0 && above.st_dev != facts.st_dev);
}

} // namespace

std::uint32_t fileInfo(const Files& files, const CodePage& codePage, std::string_view file, SHFILEINFOA& info,
                       std::uint32_t flags) {
    const std::optional<DrivePath> parsed = files.parse(file);
    const std::optional<DiskPath> found = files.find(file);
    const bool isRoot = parsed && parsed->names.empty();
    if (!found && !isRoot) {
        return 0;
    }
    const std::string root = isRoot ? std::string{parsed->drive, ':', '\\'} : "";
    const std::uint32_t driveType = isRoot ? files.driveType(root) : DRIVE_FIXED;
    if (driveType == DRIVE_NO_ROOT_DIR) {
        return 0;
    }
    if ((flags & SHGFI_DISPLAYNAME) != 0) {
        std::string name = isRoot ? volumeLabel(*files.resolve(root)) : nameOf(found->text);
        name = isRoot ? (name.empty() ? kindOfDrive(driveType) : name) + " (" + root.substr(0, 2) + ")" : name;
        info.szDisplayName = cut(name, mostOfName, codePage);
    }
    if ((flags & SHGFI_TYPENAME) != 0) {
        const std::string type = isRoot                        ? kindOfDrive(driveType)
                                 : isFolderOnDisk(found->text) ? "File folder"
                                                               : typeByName(nameOf(found->text));
        info.szTypeName = cut(type, mostOfType, codePage);
    }
    return 1;
}

std::string volumeLabel(const std::filesystem::path& folder, const std::filesystem::path& labels) {
    struct stat facts {};
    if (stat(folder.c_str(), &facts) != 0 || !isVolumeRoot(folder, facts)) {
        return {};
    }
    for (const std::string& label : namesIn(labels.native()).value_or(std::vector<std::string>())) {
        struct stat device {};
        if (stat((labels / label).c_str(), &device) == 0 && S_ISBLK(device.st_mode) && device.st_rdev == facts.st_dev) {
            return unescaped(label);
        }
    }
    return {};
}

} // namespace mox::host
