// URL escapes of many codes at once, where the processor has the instructions for it.
#pragma once

#include <mox/values.h>

#include <span>

namespace mox::server {

/// How far a piece of work got.
struct UrlProgress {
    std::size_t codes = 0;
    char16_t* end = nullptr;
};

/// Writes the escapes of the first codes, four at a time, to `result`; what it does not do (on other processors all) is left to
/// the caller. Up to 16 characters behind the end are written over, so it stops when less than that are left before `limit`.
UrlProgress encodeManyForUrl(std::span<const Byte> codes, bool plusForSpace, char16_t* result, const char16_t* limit);

} // namespace mox::server
