#include "values/escapes.h"

#include "core/numberreading.h"
#include "values/urlvector.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace mox::server {

namespace {

constexpr char16_t digits[] = u"0123456789ABCDEF";

constexpr bool isUnescaped(unsigned code) {
    return (code - u'0' < 10) | ((code | 0x20) - u'a' < 26);
}

/// The escape of one code: up to three characters, and behind them their number. All four go to the result at once, and what is not part of the
/// escape is written over by the next one.
struct alignas(8) Escape {
    std::array<char16_t, 3> text{};
    std::uint16_t length = 0;
};
using EscapeTable = std::array<Escape, 256>;

constexpr EscapeTable makeUrlTable(bool plusForSpace) {
    EscapeTable table;
    for (unsigned code = 0; code < table.size(); ++code) {
        if (isUnescaped(code)) {
            table[code] = {{static_cast<char16_t>(code)}, 1};
        } else {
            table[code] = {{u'%', digits[code >> 4], digits[code & 0xF]}, 3};
        }
    }
    if (plusForSpace) {
        table[u' '] = {{u'+'}, 1};
    }
    return table;
}
constexpr EscapeTable urlTable = makeUrlTable(false);
constexpr EscapeTable urlTableWithPlus = makeUrlTable(true);

constexpr std::array<std::array<char16_t, 2>, 256> digitPairs = [] {
    std::array<std::array<char16_t, 2>, 256> table{};
    for (unsigned code = 0; code < table.size(); ++code) {
        table[code] = {digits[code >> 4], digits[code & 0xF]};
    }
    return table;
}();

/// The value of each hexadecimal digit; `notADigit` for other characters below 256.
constexpr Byte notADigit = 0xFF;
constexpr std::array<Byte, 256> digitValues = [] {
    std::array<Byte, 256> table{};
    for (unsigned code = 0; code < table.size(); ++code) {
        const Long value = hexadecimalDigit(static_cast<char16_t>(code));
        table[code] = value < 0 ? notADigit : static_cast<Byte>(value);
    }
    return table;
}();

/// Two digits as a code, like number reading, which all but bad pairs need not go through.
Byte codeOfPair(char16_t first, char16_t second) {
    if ((first | second) < 0x100) {
        const unsigned high = digitValues[first];
        const unsigned low = digitValues[second];
        if ((high | low) < 0x10) {
            return static_cast<Byte>(high << 4 | low);
        }
    }
    return readHexadecimalPair(first, second);
}

/// Pairs of digits as codes, all at once; false if a character is no digit. Nothing but arithmetic, so that compilers make vector code of it.
template <std::size_t count> bool readDigitPairs(const char16_t* text, std::array<Byte, count>& codes) {
    std::uint16_t bad = 0;
    std::array<std::uint16_t, 2 * count> values;
    for (std::size_t i = 0; i < 2 * count; ++i) {
        const std::uint16_t digit = static_cast<std::uint16_t>(text[i] - u'0');
        const std::uint16_t letter = static_cast<std::uint16_t>((text[i] | 0x20) - u'a');
        const std::uint16_t isDigit = digit < 10 ? 0xFFFF : 0;
        const std::uint16_t isLetter = letter < 6 ? 0xFFFF : 0;
        values[i] = static_cast<std::uint16_t>((digit & isDigit) | ((letter + 10) & isLetter));
        bad = static_cast<std::uint16_t>(bad | ~(isDigit | isLetter));
    }
    for (std::size_t i = 0; i < count; ++i) {
        codes[i] = static_cast<Byte>(values[2 * i] << 4 | values[2 * i + 1]);
    }
    return bad == 0;
}

/// How many codes stay as they are. One comparison a code and nothing else, so that compilers make vector code of it.
std::size_t countUnescaped(std::span<const Byte> codes, bool plusForSpace) {
    std::size_t count = 0;
    while (!codes.empty()) {
        const std::span<const Byte> piece = codes.first(std::min<std::size_t>(codes.size(), 255));
        Byte inPiece = 0;
        for (const Byte code : piece) {
            const bool digit = static_cast<Byte>(code - u'0') < 10;
            const bool letter = static_cast<Byte>((code | 0x20) - u'a') < 26;
            const bool space = plusForSpace & (code == u' ');
            inPiece = static_cast<Byte>(inPiece + (digit | letter | space));
        }
        count += inPiece;
        codes = codes.subspan(piece.size());
    }
    return count;
}

String urlEncodedBytes(std::span<const Byte> codes, bool plusForSpace) {
    const EscapeTable& table = plusForSpace ? urlTableWithPlus : urlTable;
    String result = String::ofLength(3 * codes.size() - 2 * countUnescaped(codes, plusForSpace));
    const UrlProgress done = encodeManyForUrl(codes, plusForSpace, result.data(), result.data() + result.size());
    char16_t* end = done.end;
    codes = codes.subspan(done.codes);
    // The last escapes, which nothing follows, are written exactly.
    const std::size_t tail = std::min<std::size_t>(codes.size(), 4);
    for (const Byte code : codes.first(codes.size() - tail)) {
        const Escape escape = table[code];
        std::memcpy(end, &escape, sizeof escape);
        end += escape.length;
    }
    for (const Byte code : codes.last(tail)) {
        end = std::copy_n(table[code].text.begin(), table[code].length, end);
    }
    return result;
}

void appendPair(std::u16string& text, unsigned code) {
    text.append(digitPairs[code].data(), 2);
}

} // namespace

String urlEncoded(const AnsiCodes& codes, bool plusForSpace) {
    if (codes.areBytes()) {
        return urlEncodedBytes(codes.bytes(), plusForSpace);
    }
    std::u16string result;
    for (const std::uint16_t code : codes.wide()) {
        if (code < 0x100) {
            const Byte byte = static_cast<Byte>(code);
            result += urlEncodedBytes({&byte, 1}, plusForSpace).view();
        } else {
            result += u'%';
            appendPair(result, code >> 8);
            appendPair(result, code & 0xFF);
        }
    }
    return result;
}

std::optional<String> urlDecoded(std::u16string_view text) {
    AnsiCharacters characters;
    String result = String::ofLength(text.size());
    char16_t* end = result.data();
    const char16_t* next = text.data();
    const char16_t* const last = next + text.size();
    while (next != last) {
        const char16_t c = *next;
        if (c != u'%') [[likely]] {
            *end++ = c == u'+' ? u' ' : c;
            ++next;
        } else if (last - next >= 3) {
            *end++ = characters[codeOfPair(next[1], next[2])];
            next += 3;
        } else {
            return std::nullopt;
        }
    }
    result.truncate(static_cast<std::size_t>(end - result.data()));
    return result;
}

String hexadecimal(const AnsiCodes& codes) {
    if (codes.areBytes()) {
        const std::span<const Byte> bytes = codes.bytes();
        String result = String::ofLength(2 * bytes.size());
        char16_t* end = result.data();
        for (const Byte code : bytes) {
            std::memcpy(end, &digitPairs[code], sizeof digitPairs[code]);
            end += 2;
        }
        return result;
    }
    std::u16string result;
    for (const std::uint16_t code : codes.wide()) {
        if (code >= 0x100) {
            appendPair(result, code >> 8);
        }
        appendPair(result, code & 0xFF);
    }
    return result;
}

String fromHexadecimal(std::u16string_view text) {
    constexpr std::size_t pairsAtOnce = 16;
    AnsiCharacters characters;
    String result = String::ofLength(text.size() / 2);
    char16_t* end = result.data();
    std::array<Byte, pairsAtOnce> codes;
    for (std::size_t left = result.size(); left > 0;) {
        const std::size_t count = std::min(left, pairsAtOnce);
        if (count < pairsAtOnce || !readDigitPairs<pairsAtOnce>(text.data(), codes)) {
            for (std::size_t i = 0; i < count; ++i) {
                codes[i] = codeOfPair(text[2 * i], text[2 * i + 1]);
            }
        }
        for (std::size_t i = 0; i < count; ++i) {
            *end++ = characters[codes[i]];
        }
        text.remove_prefix(2 * count);
        left -= count;
    }
    return result;
}

} // namespace mox::server
