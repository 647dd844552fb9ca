// shell32: what the desktop knows of files.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

namespace mox::platform {

struct Shell32 : SystemLibrary {
    Shell32() : SystemLibrary("shell32") {}

    /// The program that opens a document, into `result` with a final NUL. The answer is above 32 on success.
    Operation<std::int32_t(std::string_view file, std::string_view folder, std::span<char> result)> FindExecutableA{
        *this, "FindExecutableA", 0};
    /// Space below a folder in bytes: available to the caller, in all, free.
    Operation<bool(std::string_view folder, std::uint64_t& available, std::uint64_t& total, std::uint64_t& free)>
        SHGetDiskFreeSpaceA{*this, "SHGetDiskFreeSpaceA", false};
};

/// Of the present machine.
MOX_API Shell32& shell32();

} // namespace mox::platform
