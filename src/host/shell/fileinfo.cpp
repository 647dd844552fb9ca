#include "host/shell/fileinfo.h"

#include "host/shell/contenttype.h"
#include "host/shell/gio.h"
#include "host/shell/shellpicture.h"

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

/// What a path leads to: the root of a drive, or a file.
struct Shown {
    /// `C:\`, empty for a file.
    std::string root;
    std::uint32_t driveType = DRIVE_FIXED;
    /// On the disk, for a file.
    std::string path;
};

std::optional<Shown> findShown(const Files& files, std::string_view file) {
    if (const std::optional<DrivePath> parsed = files.parse(file); parsed && parsed->names.empty()) {
        const std::string root{parsed->drive, ':', '\\'};
        const std::uint32_t driveType = files.driveType(root);
        return driveType != DRIVE_NO_ROOT_DIR ? std::optional(Shown{root, driveType, ""}) : std::nullopt;
    }
    const std::optional<DiskPath> found = files.find(file);
    return found ? std::optional(Shown{"", DRIVE_FIXED, found->text}) : std::nullopt;
}

std::string displayName(const Files& files, const Shown& shown) {
    if (shown.root.empty()) {
        return nameOf(shown.path);
    }
    const std::string label = volumeLabel(*files.resolve(shown.root));
    return (label.empty() ? kindOfDrive(shown.driveType) : label) + " (" + shown.root.substr(0, 2) + ")";
}

std::string typeName(const Shown& shown) {
    return !shown.root.empty()          ? kindOfDrive(shown.driveType)
           : isFolderOnDisk(shown.path) ? "File folder"
                                        : typeByName(nameOf(shown.path));
}

ShellPicture pictureOf(const ShellSources& sources, const Shown& shown, bool isOpen) {
    if (!shown.root.empty()) {
        return pictureOfDrive(shown.driveType);
    }
    if (!isFolderOnDisk(shown.path)) {
        return pictureOfFile(nameOf(shown.path));
    }
    std::error_code error;
    const bool isTrash = std::filesystem::equivalent(shown.path, sources.trash, error);
    return isTrash ? pictureOfTrash() : pictureOfFolder(isOpen);
}

/// The answer of `fileInfo` as far as it is about icons.
std::uint32_t iconInfo(const ShellSources& sources, const Shown& shown, SHFILEINFOA& info, std::uint32_t flags) {
    const IconSize size = (flags & SHGFI_SMALLICON) != 0 ? IconSize::small : IconSize::large;
    const std::int32_t index = sources.icons.indexOf(pictureOf(sources, shown, (flags & SHGFI_OPENICON) != 0));
    const std::uint32_t answer = index < 0                           ? 0
                                 : (flags & SHGFI_SYSICONINDEX) != 0 ? static_cast<std::uint32_t>(sources.icons.list(size))
                                                                     : 1;
    const Handle icon = answer != 0 && (flags & SHGFI_ICON) != 0 ? sources.icons.copy(index, size) : 0;
    if (answer == 0 || ((flags & SHGFI_ICON) != 0 && icon == 0)) {
        return 0;
    }
    info.iIcon = index;
    info.hIcon = icon != 0 ? icon : info.hIcon;
    return answer;
}

} // namespace

std::uint32_t fileInfo(const ShellSources& sources, std::string_view file, SHFILEINFOA& info, std::uint32_t flags) {
    const std::optional<Shown> shown = findShown(sources.files, file);
    if (!shown) {
        return 0;
    }
    std::uint32_t answer = 1;
    if ((flags & (SHGFI_ICON | SHGFI_SYSICONINDEX)) != 0) {
        answer = iconInfo(sources, *shown, info, flags);
    }
    if (answer != 0 && (flags & SHGFI_DISPLAYNAME) != 0) {
        info.szDisplayName = cut(displayName(sources.files, *shown), mostOfName, sources.codePage);
    }
    if (answer != 0 && (flags & SHGFI_TYPENAME) != 0) {
        info.szTypeName = cut(typeName(*shown), mostOfType, sources.codePage);
    }
    return answer;
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
