// Paths as texts.
#pragma once

#include "core/trim.h"

#include <string>
#include <string_view>

namespace mox::server {

/// With a backslash at the end; an empty text stays empty.
std::u16string withBackslash(std::u16string_view path);

/// A path without the backslash at its end, if it has one.
std::u16string_view withoutBackslash(std::u16string_view path);

/// The text behind the last point; empty if there is none or if it is the last character.
std::u16string_view behindLastPoint(std::u16string_view text);

/// The text behind the last backslash; the whole text if there is none.
std::u16string_view behindLastBackslash(std::u16string_view text);

/// Without the characters that no name can have but the colon and the separators, and without the points at the start.
std::u16string cleanedName(std::u16string_view text);

/// True for a text of decimal digits, of which there is at least one.
bool isNumber(std::u16string_view text);

} // namespace mox::server
