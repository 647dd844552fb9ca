#include "host/shell/presentnames.h"

#include "host/files/folder.h"
#include "host/files/names.h"

#include <algorithm>

namespace mox::host {

PresentNames::PresentNames(std::string folder) : folder_(std::move(folder)) {
    std::vector<std::string> names = namesIn(folder_).value_or(std::vector<std::string>());
    std::ranges::sort(names); // of several that differ in case the first one counts
    for (std::string& name : names) {
        names_.emplace(upperCase(name), std::move(name));
    }
}

std::string PresentNames::placeOf(const std::string& name) const {
    std::string exact = joined(folder_, name);
    const auto other = existsOnDisk(exact) ? names_.end() : names_.find(upperCase(name));
    return other == names_.end() ? exact : joined(folder_, other->second);
}

} // namespace mox::host
