// Texts made of and read from codes: URL escapes and hexadecimal digits.
#pragma once

#include "core/ansicodes.h"

#include <optional>

namespace mox::server {

/// Digits and unaccented letters stay, a blank becomes "+" or "%20", every other code "%" and two hexadecimal digits (four for a
/// code of two bytes).
String urlEncoded(const AnsiCodes& codes, bool plusForSpace);
/// Undoes URL escapes. Nothing if the last escape reaches beyond the end of the text.
std::optional<String> urlDecoded(std::u16string_view text);

/// Two hexadecimal digits for each code (four for one of two bytes).
String hexadecimal(const AnsiCodes& codes);
/// The characters whose codes stand in the text as pairs of digits; a single character at the end does not count.
String fromHexadecimal(std::u16string_view text);

} // namespace mox::server
