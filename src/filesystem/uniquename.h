// Names that are not taken yet.
#pragma once

#include <mox/values.h>

#include <string>

namespace mox::server {

/// A path around the place of its counter.
struct NameParts {
    std::u16string base;
    /// With its point; empty if there is none.
    std::u16string extension;
};

/// The first path of base, `separator`, a counter from 2 on (in brackets if `brackets` is set) and extension that does not exist.
String freeName(const NameParts& parts, const String& separator, Boolean brackets, Boolean (*exists)(const String& path));

} // namespace mox::server
