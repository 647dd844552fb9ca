// How new the system is.
#pragma once

#include "core/osversion.h"

namespace mox::server {

/// True for that system and newer ones.
inline bool isSystemAtLeast(TRL_OBKR_MOX::SYS_OS_VERSION version) {
    TRL_OBKR_MOX::SYS_OS_VERSION_EX edition{};
    Integer major = 0;
    Integer minor = 0;
    String text;
    return modMoxHub::GetOSVersion(edition, major, minor, text) >= version;
}

} // namespace mox::server
