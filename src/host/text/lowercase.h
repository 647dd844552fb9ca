// Small letters.
#pragma once

#include <string>
#include <string_view>

namespace mox::host {

/// The text with every character in lower case by the simple mapping of Unicode, so that its length stays. Lone surrogates stay.
std::u16string lowerCase(std::u16string_view text);

} // namespace mox::host
