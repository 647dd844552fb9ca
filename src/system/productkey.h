// The product key of an installation.
#pragma once

#include <mox/values.h>

#include <string_view>

namespace mox::server {

/// The product key that a "DigitalProductId" holds: five groups of five characters with hyphens between, as printed on its label.
/// It is the number in the 15 bytes from byte 52 on, the low byte in front, written with 25 digits to the base 24. Empty if there
/// are fewer than 67 bytes.
String productKey(std::string_view digitalProductId);

} // namespace mox::server
