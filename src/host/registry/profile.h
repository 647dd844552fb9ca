// The profile of the user: sections of named texts.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace mox::host {

class Registry;

/// `GetProfileStringA`. A section is the key of that name below `Software\Microsoft\Windows NT\CurrentVersion` of the user; its
/// entries are the texts there.
std::uint32_t profileString(Registry& registry, std::string_view section, const char* key, std::string_view otherwise,
                            std::span<char> buffer);

} // namespace mox::host
