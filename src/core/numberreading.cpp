#include "core/numberreading.h"

#include "automation/objects/runtimeerror.h"

#include <charconv>
#include <string>

namespace mox::server {

namespace {

/// The characters of a text without those that number reading skips.
class Reader {
public:
    explicit Reader(std::u16string_view text) : rest_(text) { skip(); }

    char16_t peek() const { return rest_.empty() ? u'\0' : rest_.front(); }
    char16_t take() {
        const char16_t c = rest_.front();
        rest_.remove_prefix(1);
        skip();
        return c;
    }
    bool takeIf(char16_t upper, char16_t lower) {
        const bool found = !rest_.empty() && (peek() == upper || peek() == lower);
        if (found) {
            take();
        }
        return found;
    }
    bool atDigit() const { return peek() >= u'0' && peek() <= u'9'; }

private:
    void skip() {
        while (!rest_.empty() && (rest_.front() == u' ' || rest_.front() == u'\t' || rest_.front() == u'\n')) {
            rest_.remove_prefix(1);
        }
    }

    std::u16string_view rest_;
};

/// Digits of a base that is a power of two, as a signed number of 16 or 32 bits.
Double readBits(Reader& reader, unsigned bitsOfDigit, unsigned digitsOf16Bits) {
    std::uint64_t value = 0;
    unsigned digits = 0;
    for (Long digit = hexadecimalDigit(reader.peek()); digit >= 0 && digit < (1 << bitsOfDigit);
         digit = hexadecimalDigit(reader.peek())) {
        value = (value << bitsOfDigit) | static_cast<std::uint64_t>(digit);
        ++digits;
        if (value > 0xFFFFFFFFu) {
            throw RuntimeError(errOverflow);
        }
        reader.take();
    }
    if (digits <= digitsOf16Bits && value <= 0xFFFF) {
        return static_cast<Integer>(value);
    }
    return static_cast<Long>(value);
}

void takeDigits(Reader& reader, std::string& number) {
    while (reader.atDigit()) {
        number += static_cast<char>(reader.take());
    }
}

/// The exponent, if digits follow its letter; without them the number ends before the letter.
void takeExponent(Reader& reader, std::string& number) {
    Reader ahead = reader;
    if (!ahead.takeIf(u'E', u'e') && !ahead.takeIf(u'D', u'd')) {
        return;
    }
    std::string exponent = "e";
    if (ahead.peek() == u'+' || ahead.peek() == u'-') {
        exponent += static_cast<char>(ahead.take());
    }
    if (ahead.atDigit()) {
        takeDigits(ahead, exponent);
        number += exponent;
        reader = ahead;
    }
}

Double readDecimal(Reader& reader) {
    std::string number;
    if (reader.peek() == u'-' || reader.peek() == u'+') {
        const char16_t sign = reader.take();
        number += sign == u'-' ? "-" : "";
    }
    const std::size_t start = number.size();
    takeDigits(reader, number);
    std::size_t digits = number.size() - start;
    if (reader.peek() == u'.') {
        reader.take();
        number += '.';
        takeDigits(reader, number);
        digits = number.size() - start - 1;
    }
    if (digits == 0) {
        return 0;
    }
    takeExponent(reader, number);
    Double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) {
        // Too large or too small: a number too small for a Double is 0.
        const std::size_t exponent = number.find("e-");
        if (exponent != std::string::npos || number.find_first_not_of("-0") == number.find('.')) {
            return 0;
        }
        throw RuntimeError(errOverflow);
    }
    return value;
}

} // namespace

Double Val(std::u16string_view text) {
    Reader reader(text);
    if (reader.takeIf(u'&', u'&')) {
        if (reader.takeIf(u'H', u'h')) {
            return readBits(reader, 4, 4);
        }
        return reader.takeIf(u'O', u'o') ? readBits(reader, 3, 6) : 0;
    }
    return readDecimal(reader);
}

} // namespace mox::server
