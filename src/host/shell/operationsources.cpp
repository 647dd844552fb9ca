#include "host/shell/operationsources.h"

#include "host/files/filesearch.h"
#include "host/shell/operationend.h"

#include <algorithm>
#include <cerrno>

namespace mox::host {

namespace {

[[noreturn]] void endAsMissing(const Files& files, const std::string& path) {
    throw OperationEnd(files.hasFolderOf(path) ? fileNotFoundError : pathNotFoundError, path);
}

void addNamed(const Files& files, const std::string& path, bool isDriveRoot, std::vector<OperationSource>& sources) {
    const std::optional<DiskPath> found = files.find(path);
    if (!found) {
        endAsMissing(files, path);
    }
    sources.push_back({*found, true, isDriveRoot});
}

void addMatches(const Files& files, const std::string& pattern, const DrivePath& parsed, std::vector<OperationSource>& sources) {
    const std::shared_ptr<FileSearch> search = files.search(pattern);
    if (!search) {
        throw OperationEnd(files.hasFolderOf(pattern) ? errorOfErrno(EACCES) : pathNotFoundError, pattern);
    }
    const std::size_t before = sources.size();
    for (platform::WIN32_FIND_DATAA found; search->next(found);) {
        if (found.cFileName != "." && found.cFileName != "..") {
            sources.push_back({search->path(), false});
        }
    }
    const std::string& name = parsed.names.back();
    if (sources.size() == before && name != "*" && name != "*.*") {
        throw OperationEnd(fileNotFoundError, pattern);
    }
}

} // namespace

std::vector<std::string> pathsOf(std::string_view list) {
    std::vector<std::string> paths;
    while (!list.empty() && list.front() != '\0') {
        const std::string_view path = list.substr(0, list.find('\0'));
        paths.emplace_back(path);
        list.remove_prefix(std::min(path.size() + 1, list.size()));
    }
    return paths;
}

std::vector<OperationSource> findSources(const Files& files, std::string_view list) {
    std::vector<OperationSource> sources;
    const std::vector<std::string> paths = pathsOf(list);
    if (paths.empty()) {
        throw OperationEnd(invalidPathError, "");
    }
    for (const std::string& path : paths) {
        const std::optional<DrivePath> parsed = files.parse(path);
        if (!parsed) {
            throw OperationEnd(invalidPathError, path);
        }
        if (parsed->hasWildcards() && !parsed->endsWithSeparator) {
            addMatches(files, path, *parsed, sources);
        } else {
            addNamed(files, path, parsed->names.empty(), sources);
        }
    }
    return sources;
}

} // namespace mox::host
