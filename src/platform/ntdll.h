// ntdll: helpers of the system's own.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

namespace mox::platform {

struct Ntdll : SystemLibrary {
    Ntdll() : SystemLibrary("ntdll") {}

    /// Takes bytes into a CRC-32 (reflected, polynomial 0xEDB88320), which begins as 0; the register is its complement.
    Operation<bool(std::uint32_t& crc, std::span<const char> bytes)> RtlComputeCrc32{*this, "RtlComputeCrc32", false};
};

/// Of the present machine.
MOX_API Ntdll& ntdll();

} // namespace mox::platform
