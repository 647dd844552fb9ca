#include "host/machine/temporaryfolder.h"

#include <cerrno>
#include <cstdlib>

namespace mox::host {

TemporaryFolder::TemporaryFolder(const std::filesystem::path& parent, const std::string& prefix) {
    std::string name = (parent / (prefix + "XXXXXX")).string();
    if (!mkdtemp(name.data())) {
        throw std::filesystem::filesystem_error("cannot make a temporary folder", name, {errno, std::generic_category()});
    }
    path_ = name;
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored; // nobody is left to hear of it
    std::filesystem::remove_all(path_, ignored);
}

} // namespace mox::host
