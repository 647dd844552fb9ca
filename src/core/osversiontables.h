// Editions by their product types, and the texts of versions and editions.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include <mox/values.h>

#include <cstdint>
#include <string_view>

namespace mox::server::modMoxHub {

using namespace TRL_OBKR_MOX;

/// The edition of version 6.0 by its product type; `osex_NONE` for one that is not known. A product without a licence is told by
/// `version`.
SYS_OS_VERSION_EX editionOfVista(std::uint32_t product, SYS_OS_VERSION version) noexcept;
/// The edition of versions 6.1 and 6.2 by its product type; `osex_NONE` for one that is not known.
SYS_OS_VERSION_EX editionOfWindows7(std::uint32_t product) noexcept;

/// The name of a system, as "Windows XP"; empty for a value that is none of the enum's.
std::u16string_view textOf(SYS_OS_VERSION version) noexcept;
/// The name of an edition, as "Professional"; empty for those that add nothing to the name of their system.
std::u16string_view textOf(SYS_OS_VERSION_EX edition) noexcept;

} // namespace mox::server::modMoxHub
