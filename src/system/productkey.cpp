#include "system/productkey.h"

#include <array>
#include <string>

namespace mox::server {

namespace {

constexpr std::size_t keyPlace = 52;
constexpr std::size_t keySize = 15;
constexpr std::size_t keyDigits = 25;
constexpr std::size_t groupSize = 5;
// No vowels and nothing that is easily mistaken for something else.
constexpr std::u16string_view digits = u"BCDFGHJKMPQRTVWXY2346789";

/// Divides a number, high byte in front, by the base, and gives the remainder.
std::size_t takeDigit(std::array<unsigned char, keySize>& number) {
    std::size_t rest = 0;
    for (unsigned char& byte : number) {
        const std::size_t value = rest * 256 + byte;
        byte = static_cast<unsigned char>(value / digits.size());
        rest = value % digits.size();
    }
    return rest;
}

} // namespace

String productKey(std::string_view digitalProductId) {
    if (digitalProductId.size() < keyPlace + keySize) {
        return {};
    }
    std::array<unsigned char, keySize> number{};
    for (std::size_t i = 0; i < keySize; ++i) {
        number[keySize - 1 - i] = static_cast<unsigned char>(digitalProductId[keyPlace + i]);
    }
    std::u16string text;
    for (std::size_t i = 0; i < keyDigits; ++i) {
        text.insert(0, i > 0 && i % groupSize == 0 ? 2 : 1, u'-');
        text.front() = digits[takeDigit(number)];
    }
    return text;
}

} // namespace mox::server
