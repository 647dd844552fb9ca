#include "host/shell/operationtarget.h"

#include "host/files/names.h"
#include "host/shell/operationend.h"

#include <sys/stat.h>

#include <algorithm>

namespace mox::host {

namespace {

std::string written(const DrivePath& path, const CodePage& codePage) {
    std::string text{path.drive, ':'};
    for (const std::string& name : path.names) {
        text += "\\" + codePage.fromUtf8(name);
    }
    return path.names.empty() ? text + "\\" : text;
}

bool canBeName(std::string_view name) {
    return !withoutTrailingDots(name).empty() && std::ranges::none_of(name, isReserved);
}

/// The folder of a path with all links gone.
std::filesystem::path realFolderOf(const std::string& path) {
    std::error_code error;
    return std::filesystem::weakly_canonical(parentOf(path), error);
}

} // namespace

OperationTarget findTarget(const Files& files, const CodePage& codePage, const std::string& path) {
    std::optional<DrivePath> parsed = files.parse(path);
    if (!parsed || !std::ranges::all_of(parsed->names, canBeName)) {
        throw OperationEnd(invalidPathError, path);
    }
    OperationTarget target{{}, parsed->names.empty() ? "" : std::string(withoutTrailingDots(parsed->names.back()))};
    std::vector<std::string> missing;
    std::optional<std::filesystem::path> place = files.resolve(written(*parsed, codePage));
    while (!place && !parsed->names.empty()) {
        missing.push_back(parsed->names.back());
        parsed->names.pop_back();
        place = files.resolve(written(*parsed, codePage));
    }
    const bool isBelowFile = place && !missing.empty() && existsOnDisk(place->native()) && !isFolderOnDisk(place->native());
    if (!place || isBelowFile) {
        throw OperationEnd(pathNotFoundError, path);
    }
    target.path = place->native();
    for (auto name = missing.rbegin(); name != missing.rend(); ++name) {
        target.path = joined(target.path, withoutTrailingDots(*name));
    }
    return target;
}

bool isSameEntry(const std::string& first, const std::string& second) {
    return nameOf(first) == nameOf(second) && realFolderOf(first) == realFolderOf(second);
}

bool isInside(const std::string& place, const std::string& folder) {
    struct stat outer {};
    if (lstat(folder.c_str(), &outer) != 0 || !S_ISDIR(outer.st_mode)) {
        return false;
    }
    std::error_code error;
    std::filesystem::path passed = std::filesystem::weakly_canonical(place, error);
    for (; !passed.empty(); passed = passed.parent_path()) {
        struct stat inner {};
        if (stat(passed.c_str(), &inner) == 0 && inner.st_ino == outer.st_ino && inner.st_dev == outer.st_dev) {
            return true;
        }
        if (passed == passed.root_path()) {
            break;
        }
    }
    return false;
}

} // namespace mox::host
