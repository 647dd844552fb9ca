#include "host/shell/shellpicture.h"

#include "host/shell/contenttype.h"
#include "host/shell/gio.h"

#include "platform/kernel32.h"

#include <algorithm>
#include <string_view>

namespace mox::host {

namespace {

/// Programs of Windows are told by their extensions.
bool isProgramName(const std::string& name) {
    constexpr std::string_view extensions[] = {"exe", "com", "bat", "cmd", "scr"};
    const std::size_t dot = name.rfind('.');
    std::string extension = dot == std::string::npos ? "" : name.substr(dot + 1);
    std::ranges::transform(extension, extension.begin(), g_ascii_tolower);
    return std::ranges::count(extensions, extension) != 0;
}

Artwork artworkOf(const char* type) {
    const GText generic(g_content_type_get_generic_icon_name(type));
    const std::string_view name = generic ? generic.get() : "";
    struct {
        std::string_view start;
        Artwork artwork;
    } constexpr kinds[] = {
        {"image", Artwork::image}, {"x-office-drawing", Artwork::image}, {"audio", Artwork::audio},
        {"video", Artwork::video}, {"package", Artwork::archive},        {"application-x-executable", Artwork::application},
        {"text", Artwork::text},   {"x-office-document", Artwork::text},
    };
    const auto* found = std::ranges::find_if(kinds, [&](const auto& kind) { return name.starts_with(kind.start); });
    return found != std::end(kinds) ? found->artwork : Artwork::document;
}

/// What a theme may call it, the best name first.
std::vector<std::string> namesOf(const char* type) {
    const GObjectHolder<GIcon> icon(g_content_type_get_icon(type));
    std::vector<std::string> names;
    if (icon && G_IS_THEMED_ICON(icon.get())) {
        for (const char* const* name = g_themed_icon_get_names(G_THEMED_ICON(icon.get())); *name; ++name) {
            if (!std::string_view(*name).ends_with("-symbolic")) {
                names.emplace_back(*name);
            }
        }
    }
    return names;
}

} // namespace

ShellPicture pictureOfDrive(std::uint32_t kind) {
    switch (kind) {
    case platform::DRIVE_REMOVABLE:
        return {Artwork::removableDrive, {"drive-removable-media"}};
    case platform::DRIVE_CDROM:
        return {Artwork::opticalDrive, {"drive-optical", "media-optical"}};
    case platform::DRIVE_REMOTE:
        return {Artwork::networkDrive, {"folder-remote", "network-server"}};
    default:
        return {Artwork::drive, {"drive-harddisk"}};
    }
}

ShellPicture pictureOfFolder(bool isOpen) {
    return isOpen ? ShellPicture{Artwork::openFolder, {"folder-open", "folder"}} : ShellPicture{Artwork::folder, {"folder"}};
}

ShellPicture pictureOfTrash() {
    return {Artwork::trash, {"user-trash"}};
}

ShellPicture pictureOfFile(const std::string& name) {
    if (isProgramName(name)) {
        return {Artwork::application, {"application-x-executable"}};
    }
    const GText type = contentTypeOfName(name);
    return type ? ShellPicture{artworkOf(type.get()), namesOf(type.get())} : ShellPicture{};
}

} // namespace mox::host
