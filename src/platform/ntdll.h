// ntdll: helpers of the system's own.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

namespace mox::platform {

struct Ntdll : SystemLibrary {
    Ntdll() : SystemLibrary("ntdll") {}

    /// The CRC-32 (reflected, polynomial 0xEDB88320) of bytes that follow those of which `crc` is the CRC; 0 is that of no bytes.
    /// The register is the complement of the CRC.
    Operation<std::uint32_t(std::uint32_t crc, std::span<const char> bytes)> RtlComputeCrc32{*this, "RtlComputeCrc32", 0};
};

/// Of the present machine.
MOX_API Ntdll& ntdll();

} // namespace mox::platform
