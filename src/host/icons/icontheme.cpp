#include "host/icons/icontheme.h"

#include "host/icons/iconimage.h"
#include "host/icons/readpng.h"

#include <glib.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <span>

namespace mox::host {

namespace {

struct FreeKeyFile {
    void operator()(GKeyFile* file) const noexcept { g_key_file_unref(file); }
};
using KeyFile = std::unique_ptr<GKeyFile, FreeKeyFile>;

constexpr const char* themeGroup = "Icon Theme";
/// More than any theme builds on.
constexpr std::size_t mostThemes = 16;

/// Null if it cannot be read.
KeyFile readKeyFile(const std::filesystem::path& file) {
    KeyFile keys(g_key_file_new());
    return g_key_file_load_from_file(keys.get(), file.c_str(), G_KEY_FILE_NONE, nullptr) != FALSE ? std::move(keys) : nullptr;
}

std::string textOf(GKeyFile& keys, const char* group, const char* key) {
    const std::unique_ptr<char, decltype(&g_free)> value(g_key_file_get_string(&keys, group, key, nullptr), &g_free);
    return value ? value.get() : "";
}

std::vector<std::string> listOf(GKeyFile& keys, const char* key) {
    std::vector<std::string> list;
    std::string text = textOf(keys, themeGroup, key);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(','), text.size());
        if (end > 0) {
            list.push_back(text.substr(0, end));
        }
        text.erase(0, end + 1);
    }
    return list;
}

/// 0 for a folder of no fixed size, or of icons for finer screens.
int sizeOf(GKeyFile& keys, const std::string& section) {
    const std::string type = textOf(keys, section.c_str(), "Type");
    const std::string scale = textOf(keys, section.c_str(), "Scale");
    const bool isFixed = type != "Scalable" && (scale.empty() || scale == "1");
    return isFixed ? g_key_file_get_integer(&keys, section.c_str(), "Size", nullptr) : 0;
}

/// The smaller the better: exact, larger, smaller.
int distance(int size, int wanted) {
    constexpr int far = 1 << 16;
    return size >= wanted ? size - wanted : far + wanted - size;
}

std::optional<Icon> readIcon(const std::filesystem::path& file, int size) {
    auto image = readPng(file);
    if (image && (image->width() != size || image->height() != size)) {
        image = resized(*image, size, size);
    }
    if (!image) {
        return std::nullopt;
    }
    return Icon{.image = std::move(image), .hasAlpha = true, .hotspot = {size / 2, size / 2}};
}

/// A name that leads nowhere else than into a folder of icons.
bool isPlainName(const std::string& name) {
    return !name.empty() && name.front() != '.' && name.find('/') == std::string::npos;
}

} // namespace

std::vector<std::filesystem::path> iconFoldersOfUser() {
    std::vector<std::filesystem::path> folders{std::filesystem::path(g_get_home_dir()) / ".icons",
                                               std::filesystem::path(g_get_user_data_dir()) / "icons"};
    for (const char* const* folder = g_get_system_data_dirs(); *folder; ++folder) {
        folders.push_back(std::filesystem::path(*folder) / "icons");
    }
    return folders;
}

std::string iconThemeOfUser() {
    for (const char* toolkit : {"gtk-4.0", "gtk-3.0"}) {
        const KeyFile settings = readKeyFile(std::filesystem::path(g_get_user_config_dir()) / toolkit / "settings.ini");
        if (const std::string name = settings ? textOf(*settings, "Settings", "gtk-icon-theme-name") : ""; !name.empty()) {
            return name;
        }
    }
    return "Adwaita";
}

std::optional<Icon> IconTheme::find(const std::vector<std::string>& names, int size) const {
    for (const std::string& name : names) {
        if (!isPlainName(name)) {
            continue;
        }
        for (const Theme& theme : themes()) {
            std::vector<const Section*> sections;
            std::ranges::transform(theme, std::back_inserter(sections), [](const Section& section) { return &section; });
            std::ranges::stable_sort(sections, {}, [size](const Section* section) { return distance(section->size, size); });
            for (const Section* section : sections) {
                if (std::optional<Icon> icon = readIcon(section->folder / (name + ".png"), size)) {
                    return icon;
                }
            }
        }
    }
    return std::nullopt;
}

const std::vector<IconTheme::Theme>& IconTheme::themes() const {
    const std::lock_guard lock(guard_);
    if (!isLoaded_) {
        std::vector<std::string> known;
        load(name_, known);
        load("hicolor", known);
        isLoaded_ = true;
    }
    return themes_;
}

void IconTheme::load(const std::string& name, std::vector<std::string>& known) const {
    if (!isPlainName(name) || std::ranges::count(known, name) != 0 || known.size() >= mostThemes) {
        return;
    }
    known.push_back(name);
    const auto found = std::ranges::find_if(folders_, [&](const std::filesystem::path& folder) {
        std::error_code error;
        return std::filesystem::is_regular_file(folder / name / "index.theme", error);
    });
    const KeyFile keys = found != folders_.end() ? readKeyFile(*found / name / "index.theme") : nullptr;
    if (!keys) {
        return;
    }
    Theme theme;
    for (const std::string& section : listOf(*keys, "Directories")) {
        if (const int size = sizeOf(*keys, section); size > 0) {
            addSections(theme, name, section, size);
        }
    }
    themes_.push_back(std::move(theme));
    for (const std::string& parent : listOf(*keys, "Inherits")) {
        if (parent != "hicolor") { // which comes last
            load(parent, known);
        }
    }
}

/// A theme lies in as many of the folders as have something of it.
void IconTheme::addSections(Theme& theme, const std::string& name, const std::string& section, int size) const {
    for (const std::filesystem::path& folder : folders_) {
        std::error_code error;
        if (const auto place = folder / name / section; std::filesystem::is_directory(place, error)) {
            theme.push_back({place, size});
        }
    }
}

} // namespace mox::host
