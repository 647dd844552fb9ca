#include "host/files/files.h"

#include "host/files/filesearch.h"
#include "host/files/names.h"
#include "host/files/standardfolders.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace mox::host {

namespace {

constexpr char systemDrive = 'C';

/// An absolute path in its plain form, without a separator at its end but for the root.
std::filesystem::path plain(const std::filesystem::path& path) {
    const std::filesystem::path normal = std::filesystem::absolute(path).lexically_normal();
    return normal.has_filename() || normal == normal.root_path() ? normal : normal.parent_path();
}

/// True if a path on disk is a drive's folder or lies in it.
bool isBelow(std::string_view path, std::string_view root) noexcept {
    return root == "/" || (path.starts_with(root) && (path.size() == root.size() || path[root.size()] == '/'));
}

} // namespace

Files::Files(const MachineConfig& config, const CodePage& codePage) : codePage_(codePage) {
    drives_ = {{systemDrive, plain(config.home / "drives" / std::string(1, systemDrive))}, {'Z', "/"}};
    for (const auto& [letter, folder] : config.drives) {
        const char upper = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 0x20) : letter;
        if (upper < 'A' || upper > 'Z') {
            throw std::invalid_argument("the name of a drive has to be a letter");
        }
        drives_[upper] = plain(folder);
    }
}

Files::~Files() = default;

std::optional<std::filesystem::path> Files::resolve(std::string_view path) const {
    const std::optional<Location> location = locate(path);
    return location ? std::optional<std::filesystem::path>(location->path.text) : std::nullopt;
}

std::optional<std::filesystem::path> Files::resolveFile(std::string_view path) const {
    const std::optional<DrivePath> parsed = parse(path);
    return parsed && !parsed->endsWithSeparator ? resolve(path) : std::nullopt;
}

std::optional<DiskPath> Files::placeOfFile(std::string_view path) const {
    const std::optional<DrivePath> parsed = parse(path);
    std::optional<Location> location = parsed && !parsed->endsWithSeparator ? locate(*parsed) : std::nullopt;
    return location ? std::optional<DiskPath>(std::move(location->path)) : std::nullopt;
}

std::optional<Files::NewName> Files::newName(std::string_view path) const {
    const std::optional<DrivePath> parsed = parse(path);
    std::optional<Location> location = parsed && !parsed->names.empty() ? locate(*parsed) : std::nullopt;
    const std::string_view name = location ? withoutTrailingDots(parsed->names.back()) : std::string_view();
    if (name.empty()) {
        return std::nullopt;
    }
    NewName result{std::nullopt, {joined(parentOf(location->path.text), name), location->path.rootLength}};
    if (location->exists) {
        result.existing = std::move(location->path);
    }
    return result;
}

std::string Files::toDrivePath(const std::filesystem::path& path) const {
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error).lexically_normal();
    auto closest = drives_.end();
    for (auto drive = drives_.begin(); drive != drives_.end(); ++drive) {
        const std::string& folder = drive->second.native();
        if (isBelow(absolute.native(), folder) && (closest == drives_.end() || folder.size() > closest->second.native().size())) {
            closest = drive;
        }
    }
    if (path.empty() || error || closest == drives_.end()) {
        return {};
    }
    std::string folder = closest->second.native();
    std::string written;
    for (const std::filesystem::path& name : absolute.lexically_relative(folder)) {
        if (!name.empty() && name != ".") {
            written += "\\" + writtenName(folder, name.native(), codePage_);
            folder = joined(folder, name.native());
        }
    }
    return std::string{closest->first, ':'} + (written.empty() ? "\\" : written);
}

bool Files::setCurrentFolder(std::string_view path) {
    std::optional<DrivePath> parsed = parse(path);
    const std::optional<DiskPath> found = find(path);
    if (!parsed || !found || !isFolderOnDisk(found->text)) {
        return false;
    }
    const std::lock_guard lock(currentFolderGuard_);
    currentFolder_ = std::move(*parsed);
    return true;
}

std::string Files::temporaryFolder() const {
    return std::string{systemDrive} + ":\\Temp\\";
}

std::string Files::windowsFolder() const {
    return std::string{systemDrive} + ":\\Windows";
}

std::string Files::systemFolder() const {
    return windowsFolder() + "\\System32";
}

std::shared_ptr<FileSearch> Files::search(std::string_view pattern) const {
    const std::optional<DrivePath> path = parse(pattern);
    if (!path || path->names.empty() || path->endsWithSeparator) {
        return nullptr;
    }
    if (!path->hasWildcards()) {
        const std::optional<DiskPath> file = find(pattern);
        return file ? std::make_shared<FileSearch>(*file, codePage_) : nullptr;
    }
    DrivePath folderPath = *path;
    folderPath.names.pop_back();
    std::optional<DiskPath> folder = exactly(folderPath);
    if (folder && !isReadableFolder(folder->text)) {
        folder = folderOf(*path);
        if (folder && !isReadableFolder(folder->text)) {
            folder = std::nullopt;
        }
    }
    return folder ? std::make_shared<FileSearch>(std::move(*folder), path->names.back(), codePage_, folders_) : nullptr;
}

bool Files::hasFolderOf(std::string_view pattern) const {
    const std::optional<DrivePath> path = parse(pattern);
    return path && !path->names.empty() && folderOf(*path);
}

std::optional<FileFacts> Files::facts(std::string_view path) const {
    const std::optional<DiskPath> file = find(path);
    return file ? readFacts(*file) : std::nullopt;
}

bool Files::setAttributes(std::string_view path, std::uint32_t attributes) const {
    const std::optional<DiskPath> file = find(path);
    return file && writeAttributes(*file, attributes);
}

std::string Files::shortPath(std::string_view path) const {
    const std::optional<DrivePath> parsed = parse(path);
    std::optional<DiskPath> folder = parsed ? rootOf(parsed->drive) : std::nullopt;
    if (!folder || !find(path)) {
        return {};
    }
    std::vector<std::string> names;
    for (const std::string& name : parsed->names) {
        const std::string found = findName(folder->text, name).value_or("");
        names.push_back(shortNameIn(folder->text, found, codePage_));
        folder->text = joined(folder->text, found);
    }
    const std::vector<std::string> current = currentFolder().names;
    const bool isRelative = path.front() != '\\' && path.front() != '/' && !path.substr(1).starts_with(':') &&
                            names.size() > current.size() && std::equal(current.begin(), current.end(), parsed->names.begin());
    std::string result = isRelative ? "" : std::string{parsed->drive, ':', '\\'};
    for (std::size_t i = isRelative ? current.size() : 0; i < names.size(); ++i) {
        result += names[i];
        result += i + 1 < names.size() || parsed->endsWithSeparator ? "\\" : "";
    }
    return result;
}

std::uint32_t Files::driveType(std::string_view root) const {
    const bool isBareDrive = root.size() == 2 && root[1] == ':';
    const std::optional<DrivePath> path = parse(std::string(root) + (isBareDrive ? "\\" : ""));
    const std::optional<DiskPath> folder = path && path->names.empty() ? rootOf(path->drive) : std::nullopt;
    if (!folder) {
        return platform::DRIVE_NO_ROOT_DIR;
    }
    const bool isSystems = path->drive == systemDrive || folder->text == "/";
    return isSystems && isFolderOnDisk(folder->text) ? platform::DRIVE_FIXED : driveTypeOf(folder->text);
}

std::optional<DriveSpace> Files::space(std::string_view folder) const {
    const std::optional<DiskPath> found = find(folder);
    return found ? spaceOf(found->text) : std::nullopt;
}

std::optional<DrivePath> Files::parse(std::string_view path) const {
    return DrivePath::parse(codePage_.toUtf8(path.substr(0, path.find('\0'))), currentFolder());
}

DrivePath Files::currentFolder() const {
    const std::lock_guard lock(currentFolderGuard_);
    return currentFolder_;
}

std::optional<DiskPath> Files::rootOf(char drive) const {
    const auto found = drives_.find(drive);
    if (found == drives_.end()) {
        return std::nullopt;
    }
    if (drive == systemDrive) {
        std::call_once(standardFolders_, makeStandardFolders, found->second);
    }
    const std::string& folder = found->second.native();
    return DiskPath{folder, folder == "/" ? 0 : folder.size()};
}

std::optional<DiskPath> Files::exactly(const DrivePath& path) const {
    std::optional<DiskPath> place = path.hasWildcards() ? std::nullopt : rootOf(path.drive);
    if (place) {
        for (const std::string& name : path.names) {
            place->text = joined(place->text, name);
        }
    }
    return place;
}

std::optional<std::string> Files::findName(const std::string& folder, std::string_view name) const {
    if (existsOnDisk(joined(folder, name))) {
        return std::string(name);
    }
    const std::shared_ptr<const FolderListing> listing = folders_.listing(folder);
    return listing ? std::optional(findOtherName(*listing, name, codePage_)) : std::nullopt;
}

std::optional<Files::Location> Files::locate(const DrivePath& path) const {
    std::optional<DiskPath> place = exactly(path);
    if (!place) {
        return std::nullopt;
    }
    if (const bool exists = existsOnDisk(place->text); exists || path.names.empty()) {
        return Location{std::move(*place), exists};
    }
    // Most paths are spelled as the disk has them, up to a last name that is not there.
    std::size_t i = path.names.size();
    do {
        --i;
        place->text = parentOf(place->text);
    } while (i > 0 && !existsOnDisk(place->text));
    for (; i < path.names.size(); ++i) {
        const std::optional<std::string> found = findName(place->text, path.names[i]);
        if (found && !found->empty()) {
            place->text = joined(place->text, *found);
            continue;
        }
        const std::string_view name = withoutTrailingDots(path.names[i]);
        if (i + 1 < path.names.size() || name.empty() || (!found && !isFolderOnDisk(place->text))) {
            return std::nullopt;
        }
        return Location{{joined(place->text, name), place->rootLength}, false};
    }
    return Location{std::move(*place), true};
}

std::optional<Files::Location> Files::locate(std::string_view path) const {
    const std::optional<DrivePath> parsed = parse(path);
    std::optional<Location> location = parsed ? locate(*parsed) : std::nullopt;
    if (location && location->exists && parsed->endsWithSeparator && !isFolderOnDisk(location->path.text)) {
        return std::nullopt;
    }
    return location;
}

std::optional<DiskPath> Files::find(std::string_view path) const {
    std::optional<Location> location = locate(path);
    return location && location->exists ? std::optional<DiskPath>(std::move(location->path)) : std::nullopt;
}

std::optional<DiskPath> Files::folderOf(DrivePath path) const {
    path.names.pop_back();
    std::optional<Location> location = locate(path);
    return location && isFolderOnDisk(location->path.text) ? std::optional<DiskPath>(std::move(location->path)) : std::nullopt;
}

} // namespace mox::host
