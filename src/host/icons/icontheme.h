// Icon themes of the desktop.
#pragma once

#include "automation/objects/export.h"
#include "host/graphics/objects.h"

#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace mox::host {

/// The folders that themes of the present user lie in, by the environment.
std::vector<std::filesystem::path> iconFoldersOfUser();
/// The name of the theme that the user has chosen, else the usual one.
std::string iconThemeOfUser();

/// A theme with those that it builds on, and last the one that every theme builds on. Only PNG files are looked for.
class MOX_API IconTheme {
public:
    /// Without folders there are no icons.
    IconTheme(std::vector<std::filesystem::path> folders, std::string name)
        : folders_(std::move(folders)), name_(std::move(name)) {}

    /// By the first of the names that there is an icon for, from the file of the size that fits best. Nothing if there is none,
    /// or none that can be read.
    std::optional<Icon> find(const std::vector<std::string>& names, int size) const;

private:
    /// A folder of icons in a theme.
    struct Section {
        std::filesystem::path folder;
        int size;
    };
    using Theme = std::vector<Section>;

    const std::vector<Theme>& themes() const;
    void load(const std::string& name, std::vector<std::string>& known) const;
    void addSections(Theme& theme, const std::string& name, const std::string& section, int size) const;

    const std::vector<std::filesystem::path> folders_;
    const std::string name_;
    mutable std::mutex guard_;
    mutable bool isLoaded_ = false;
    mutable std::vector<Theme> themes_;
};

} // namespace mox::host
