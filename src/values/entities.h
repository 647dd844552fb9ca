// HTML entities.
#pragma once

#include <mox/values.h>

namespace mox::server {

/// Every entity of the table as its character, "<br />" as carriage return and line feed.
std::u16string decodeEntities(std::u16string_view text);
/// Every character of the table as its entity, every form of line break as "<br />".
std::u16string encodeEntities(std::u16string_view text);

} // namespace mox::server
