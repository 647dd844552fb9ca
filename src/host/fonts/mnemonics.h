// The ampersands of captions, which underline the character behind them.
#pragma once

#include "automation/objects/export.h"

#include <cstddef>
#include <string>
#include <vector>

namespace mox::host {

/// A text as it is shown, and where its characters come from.
struct ShownText {
    std::u16string text;
    /// The place of each character in the original, and its length at the end; empty if all stand where they stood.
    std::vector<std::size_t> places{};
    /// Characters that are underlined.
    std::vector<std::size_t> mnemonics{};

    std::size_t placeOf(std::size_t shown) const noexcept { return places.empty() ? shown : places[shown]; }
};

/// Takes single ampersands out and doubled ones as one.
MOX_API ShownText readMnemonics(std::u16string text);

} // namespace mox::host
