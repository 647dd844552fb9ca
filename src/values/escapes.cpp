#include "values/escapes.h"

#include "core/numberreading.h"
#include "values/urlvector.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <string>

namespace mox::server {

namespace {

constexpr char16_t digits[] = u"0123456789ABCDEF";

constexpr bool isUnescaped(unsigned code) {
    return (code - u'0' < 10) | ((code | 0x20) - u'a' < 26);
}

/// The escape of one code: up to three characters, and behind them their number. All four go to the result at once, and what is
/// not part of the escape is written over by the next one.
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

/// Pairs of characters as codes, as number reading takes them. Good digits go all at once, with nothing but arithmetic, so that
/// compilers make vector code of it; if there are others, the pairs are read one by one.
template <std::size_t count> void codesOfPairs(const char16_t* text, std::array<Byte, count>& codes) {
    std::array<std::uint16_t, 2 * count> values;
    std::uint16_t good = 0xFFFF;
    for (std::size_t i = 0; i < 2 * count; ++i) {
        const std::uint16_t c = text[i];
        const auto folded = static_cast<std::uint16_t>(c | 0x20);
        const auto isDigit = static_cast<std::uint16_t>(c >= u'0' && c <= u'9' ? 0xFFFF : 0);
        const auto isLetter = static_cast<std::uint16_t>(folded >= u'a' && folded <= u'f' ? 0xFFFF : 0);
        // In the low four bits digits have their value, letters their value less 9.
        values[i] = static_cast<std::uint16_t>((c & 0xF) + (isLetter & 9));
        good &= isDigit | isLetter;
    }
    if (good == 0xFFFF) {
        std::array<std::uint32_t, count> pairs;
        static_assert(sizeof pairs == sizeof values && std::endian::native == std::endian::little);
        std::memcpy(pairs.data(), values.data(), sizeof pairs);
        for (std::size_t i = 0; i < count; ++i) {
            codes[i] = static_cast<Byte>(pairs[i] << 4 | pairs[i] >> 16);
        }
    } else {
        for (std::size_t i = 0; i < count; ++i) {
            codes[i] = readHexadecimalPair(text[2 * i], text[2 * i + 1]);
        }
    }
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

/// The same character in each quarter of 64 bits.
constexpr std::uint64_t fourOf(char16_t c) {
    return 0x0001000100010001 * c;
}

/// The highest bit of each of the four characters that is 0.
constexpr std::uint64_t zerosAmong(std::uint64_t four) {
    constexpr std::uint64_t low = fourOf(0x7FFF);
    return ~(((four & low) + low) | four | low);
}

/// Copies up to four characters, those in front of the first "%", with blanks for "+". Gives their number; `to` has room for four
/// if `from` has as many.
std::size_t copyUpToPercent(const char16_t* from, const char16_t* last, char16_t* to) {
    constexpr std::ptrdiff_t atOnce = 4;
    if constexpr (std::endian::native == std::endian::little) {
        if (last - from >= atOnce) {
            std::uint64_t four = 0;
            std::memcpy(&four, from, sizeof four);
            const std::uint64_t percents = zerosAmong(four ^ fourOf(u'%'));
            four ^= (zerosAmong(four ^ fourOf(u'+')) >> 15) * (u'+' ^ u' ');
            std::memcpy(to, &four, sizeof four);
            return static_cast<std::size_t>(std::countr_zero(percents)) / 16;
        }
    }
    if (*from == u'%') {
        return 0;
    }
    *to = *from == u'+' ? u' ' : *from;
    return 1;
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
        const std::size_t plain = copyUpToPercent(next, last, end);
        next += plain;
        end += plain;
        if (next == last || *next != u'%') {
            continue;
        }
        if (last - next < 3) {
            return std::nullopt;
        }
        *end++ = characters[readHexadecimalPair(next[1], next[2])];
        next += 3;
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
    std::size_t left = result.size();
    for (; left >= pairsAtOnce; left -= pairsAtOnce, end += pairsAtOnce, text.remove_prefix(2 * pairsAtOnce)) {
        std::array<Byte, pairsAtOnce> codes;
        codesOfPairs(text.data(), codes);
        characters.convert(codes, end);
    }
    for (; left > 0; --left, text.remove_prefix(2)) {
        *end++ = characters[readHexadecimalPair(text[0], text[1])];
    }
    return result;
}

} // namespace mox::server
