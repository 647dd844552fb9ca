// Text at the platform: bytes in the system's code page.
#pragma once

#include <mox/values.h>

#include <string>
#include <string_view>

namespace mox::server {

/// A text as bytes; characters that the code page lacks become its replacement. Error 7 if the platform does not convert it.
std::string toAnsi(std::u16string_view text);

/// Bytes as a text, NULs included. Error 7 if the platform does not convert them.
String fromAnsi(std::string_view bytes);
/// The text that the platform put into a buffer: what stands in front of the first NUL.
String fromAnsiToNul(std::string_view buffer);

} // namespace mox::server
