// The names in a folder before something is brought there.
#pragma once

#include <map>
#include <string>

namespace mox::host {

/// Finds the place of a name in a folder: that of the entry which has the name, else of one that differs in case only and was
/// there from the beginning, so that two names which differ in case never take each other's place. Else a new place.
class PresentNames {
public:
    /// Of a folder that does not exist or cannot be read nothing is known.
    explicit PresentNames(std::string folder);

    std::string placeOf(const std::string& name) const;

private:
    std::string folder_;
    std::map<std::u32string, std::string> names_;
};

} // namespace mox::host
