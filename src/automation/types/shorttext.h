// A small text that is built without memory of its own.
#pragma once

#include <array>
#include <charconv>
#include <string_view>

namespace mox::automation {

/// ASCII text with room for the longest number or date.
class ShortText {
public:
    void append(char character) noexcept { characters_[size_++] = character; }
    void append(std::string_view text) noexcept { size_ += text.copy(characters_.data() + size_, text.size()); }
    void append(std::size_t count, char character) noexcept {
        while (count-- > 0) {
            append(character);
        }
    }
    void appendNumber(int number, std::size_t leastDigits = 1) noexcept {
        std::array<char, 12> digits;
        const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        const auto count = static_cast<std::size_t>(end - digits.data());
        append(count < leastDigits ? leastDigits - count : 0, '0');
        append(std::string_view(digits.data(), count));
    }
    std::string_view view() const noexcept { return {characters_.data(), size_}; }

private:
    std::array<char, 64> characters_;
    std::size_t size_ = 0;
};

} // namespace mox::automation
