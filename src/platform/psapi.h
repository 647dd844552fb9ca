// psapi: the files that a process has loaded.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

namespace mox::platform {

struct Psapi : SystemLibrary {
    Psapi() : SystemLibrary("psapi") {}

    /// The modules of a process, the executable first, as many as `modules` holds. `needed` is the size in bytes of all.
    Operation<bool(Handle process, std::span<Handle> modules, std::uint32_t& needed)> EnumProcessModules{
        *this, "EnumProcessModules", false};
    /// The path of a module; gives its length, cut to the buffer, 0 on failure.
    Operation<std::uint32_t(Handle process, Handle module, std::span<char> path)> GetModuleFileNameExA{*this,
                                                                                                       "GetModuleFileNameExA", 0};
};

/// Of the present machine.
MOX_API Psapi& psapi();

} // namespace mox::platform
