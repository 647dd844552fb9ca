// comctl32: image lists.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

namespace mox::platform {

inline constexpr std::uint32_t ILD_NORMAL = 0;
inline constexpr std::uint32_t ILD_TRANSPARENT = 1;
/// Blended with the colour of selected text, by 25 and by 50 per cent.
inline constexpr std::uint32_t ILD_BLEND25 = 2;
inline constexpr std::uint32_t ILD_BLEND50 = 4;

struct Comctl32 : SystemLibrary {
    Comctl32() : SystemLibrary("comctl32") {}

    Operation<bool(Handle list, std::int32_t index, Handle hdc, std::int32_t x, std::int32_t y, std::uint32_t style)>
        ImageList_Draw{*this, "ImageList_Draw", false};
};

/// Of the present machine.
MOX_API Comctl32& comctl32();

} // namespace mox::platform
