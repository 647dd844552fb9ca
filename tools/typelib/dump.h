// A type library as JSON.
#pragma once

#include <mox/automation.h>

#include <nlohmann/json.hpp>

#include <string>

namespace mox::tools {

/// Classes, interfaces with their members in the order of slots, events, enums and records, under the names that Visual Basic has
/// for the types.
nlohmann::ordered_json dumpLibrary(ITypeLib& library);

/// The same as an outline for people.
std::string outline(const nlohmann::ordered_json& dump);

} // namespace mox::tools
