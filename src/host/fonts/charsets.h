// Character sets, as fonts are asked for and listed by them.
#pragma once

#include "host/fonts/fontlibrary.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace mox::host {

struct CharacterSet {
    /// The value of `lfCharSet`.
    std::uint8_t number;
    /// The bit of a font's table that claims it.
    std::uint8_t bit;
    /// What listings call it.
    std::string_view script;
    /// Characters that a font has which serves it.
    std::u16string_view typical;
    /// A font for it is looked for by this character.
    char16_t sample;
};

std::span<const CharacterSet> characterSets() noexcept;
/// Null for a number that is none of them.
const CharacterSet* findCharacterSet(std::uint8_t number) noexcept;

/// The sets that a font serves, as bits in the order of `characterSets`.
using CharacterSetMask = std::uint32_t;
CharacterSetMask coveredSets(const FontFace& face);

} // namespace mox::host
