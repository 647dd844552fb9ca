// version: version blocks of program files.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

#include <string>

namespace mox::platform {

/// The fixed part of a version block begins with this number, in the order of bytes of the file (low byte first).
inline constexpr std::uint32_t VS_FFI_SIGNATURE = 0xFEEF04BD;

struct Version : SystemLibrary {
    Version() : SystemLibrary("version") {}

    /// The size of a file's version block in bytes; 0 if it has none.
    Operation<std::uint32_t(std::string_view file)> GetFileVersionInfoSizeA{*this, "GetFileVersionInfoSizeA", 0};
    /// The block, cut to the size of the buffer.
    Operation<bool(std::string_view file, std::span<char> block)> GetFileVersionInfoA{*this, "GetFileVersionInfoA", false};
    /// The part of a block that a path names, as a view into the block: `\` is the fixed part, `\StringFileInfo\040904E4\NAME` a
    /// text, without its final NUL. False if there is none.
    Operation<bool(std::span<const char> block, std::string_view path, std::string_view& value)> VerQueryValueA{
        *this, "VerQueryValueA", false};
};

/// Of the present machine.
MOX_API Version& version();

} // namespace mox::platform
