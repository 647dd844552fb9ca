#include "host/shell/treewalk.h"

#include "host/files/folder.h"

#include <sys/stat.h>

namespace mox::host {

void walkTree(const std::string& path, const TreeStep& visit) {
    visit(path);
    struct stat facts {};
    if (lstat(path.c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode)) {
        return;
    }
    for (const std::string& name : namesIn(path).value_or(std::vector<std::string>())) {
        walkTree(joined(path, name), visit);
    }
}

std::uint64_t entriesIn(const std::string& path) {
    std::uint64_t count = 0;
    walkTree(path, [&](const std::string&) { ++count; });
    return count;
}

} // namespace mox::host
