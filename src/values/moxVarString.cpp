#include "values/moxVarString.h"

#include "automation/objects/convert.h"
#include "automation/objects/errormodes.h"
#include "core/ansicodes.h"
#include "core/numberreading.h"
#include "values/entities.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <string>

namespace mox::server {

namespace {

/// Positions in a text are counted in 16 bits by the two URL members; a longer text makes the counter fail.
constexpr std::size_t longestCounted = 32767;

constexpr char16_t hexadecimalDigits[] = u"0123456789ABCDEF";

/// A short run of characters: copied as a whole, then cut to its length.
struct Escape {
    std::array<char16_t, 4> text{};
    std::size_t length = 0;
};

constexpr Escape twoDigits(unsigned code) {
    return {{hexadecimalDigits[code >> 4 & 0xF], hexadecimalDigits[code & 0xF]}, 2};
}

constexpr Escape urlEscape(unsigned code, bool plusForSpace) {
    const bool digit = code >= 48 && code <= 57;
    const bool letter = (code >= 65 && code <= 90) || (code >= 97 && code <= 122);
    if (digit || letter) {
        return {{static_cast<char16_t>(code)}, 1};
    }
    if (code == 32 && plusForSpace) {
        return {{u'+'}, 1};
    }
    return {{u'%', hexadecimalDigits[code >> 4], hexadecimalDigits[code & 0xF]}, 3};
}

using EscapeTable = std::array<Escape, 256>;

template <class Make>
constexpr EscapeTable makeTable(Make make) {
    EscapeTable table;
    for (unsigned code = 0; code < table.size(); ++code) {
        table[code] = make(code);
    }
    return table;
}

constexpr EscapeTable hexadecimalTable = makeTable([](unsigned code) { return twoDigits(code); });
constexpr EscapeTable urlTable = makeTable([](unsigned code) { return urlEscape(code, false); });
constexpr EscapeTable urlTableWithPlus = makeTable([](unsigned code) { return urlEscape(code, true); });

/// Joins the escapes of all codes. A code of two bytes has no row: it gives `prefix` and four digits.
String joined(std::span<const std::uint16_t> codes, const EscapeTable& table, std::u16string_view prefix) {
    std::u16string result;
    const std::size_t longest = prefix.size() + 4;
    result.resize(codes.size() * longest);
    char16_t* end = result.data();
    for (const std::uint16_t code : codes) {
        if (code < table.size()) [[likely]] {
            const Escape& escape = table[code];
            std::memcpy(end, escape.text.data(), sizeof escape.text);
            end += escape.length;
        } else {
            end = std::ranges::copy(prefix, end).out;
            for (const Escape& pair : {twoDigits(code >> 8u), twoDigits(code & 0xFFu)}) {
                end = std::copy_n(pair.text.begin(), pair.length, end);
            }
        }
    }
    return std::u16string_view(result.data(), end);
}

/// A text with its escapes undone; nothing if an escape reaches beyond the end.
std::optional<std::u16string> urlDecoded(std::u16string_view text) {
    AnsiCharacters characters;
    std::u16string result;
    result.reserve(text.size());
    std::size_t position = 0;
    while (position < text.size()) {
        const char16_t c = text[position];
        if (c == u'%') {
            if (position + 3 > text.size()) {
                return std::nullopt;
            }
            result += characters[readHexadecimalPair(text[position + 1], text[position + 2])];
            position += 3;
        } else {
            result += c == u'+' ? u' ' : c;
            ++position;
        }
    }
    return result;
}

/// The number in a text within its limits; the lower limit also for a number that is too large to be read.
template <class Value, class Convert>
Value numberWithin(std::u16string_view text, Value minimum, Value maximum, Convert&& convert) {
    Value result = minimum;
    carryOn([&] {
        const auto number = convert(Val(text));
        if (number > minimum) {
            result = number >= maximum ? maximum : static_cast<Value>(number);
        }
    });
    return result;
}

} // namespace

String moxVarString::URLEncode(const String& StringToEncode, Boolean UsePlusRatherThanHexForSpace) {
    if (StringToEncode.size() > longestCounted) {
        return StringToEncode;
    }
    String result = StringToEncode;
    trapAndLeave([&] {
        result = joined(ansiCodes(StringToEncode), UsePlusRatherThanHexForSpace == True ? urlTableWithPlus : urlTable, u"%");
    });
    return result;
}

String moxVarString::URLDecode(const String& StringToDecode) {
    if (StringToDecode.size() > longestCounted) {
        return StringToDecode;
    }
    String result = StringToDecode;
    trapAndLeave([&] {
        if (const auto decoded = urlDecoded(StringToDecode)) {
            result = *decoded;
        }
    });
    return result;
}

Long moxVarString::StringChecksum(const String& Str2Conv) {
    Long result = 0;
    trapAndLeave([&] {
        // Of a code of two bytes only the low one reaches the table.
        const std::vector<std::uint16_t> codes = ansiCodes(Str2Conv);
        const std::vector<Byte> bytes(codes.begin(), codes.end());
        result = static_cast<Long>(~checksumTable_.update(0, bytes));
    });
    return result;
}

String moxVarString::StringEntities(const String& String2Convert, Boolean bConvert2Entities) {
    const std::u16string decoded = decodeEntities(String2Convert);
    return bConvert2Entities == True ? encodeEntities(decoded) : decoded;
}

String moxVarString::Conv2HexString(const String& Str2Conv, Boolean bConvBack) {
    if (bConvBack != True) {
        return joined(ansiCodes(Str2Conv), hexadecimalTable, u"");
    }
    AnsiCharacters characters;
    String result = String::ofLength(Str2Conv.size() / 2);
    for (std::size_t i = 0; i < result.size(); ++i) {
        result.data()[i] = characters[readHexadecimalPair(Str2Conv[2 * i], Str2Conv[2 * i + 1])];
    }
    return result;
}

String moxVarString::StringTrimRight(const String& String2Trim, Boolean bTrimSpace, Boolean bTrimCR, Boolean bTrimLF, Boolean bTrimChar0,
                                     Boolean bTrimTab) {
    std::u16string_view text = String2Trim;
    const auto isTrimmed = [&](char16_t c) {
        return (c == u' ' && bTrimSpace == True) || (c == u'\r' && bTrimCR == True) || (c == u'\n' && bTrimLF == True) ||
               (c == u'\0' && bTrimChar0 == True) || (c == u'\t' && bTrimTab == True);
    };
    while (!text.empty() && isTrimmed(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

String moxVarString::StringLeftZeroFill(const String& String2Fill, Byte Digits) {
    const std::size_t missing = Digits > String2Fill.size() ? Digits - String2Fill.size() : 0;
    return std::u16string(missing, u'0') + std::u16string(String2Fill.view());
}

void moxVarString::StringSwap(String& StrA, String& StrB) {
    std::swap(StrA, StrB);
}

Byte moxVarString::Conv2Byte(const String& Str, Byte Min, Byte Max) {
    return toByte(numberWithin<Double>(Str, Min, Max, [](Double number) { return number; }));
}

Integer moxVarString::Conv2Integer(const String& Str, Integer Min, Integer Max) {
    return toInteger(numberWithin<Double>(Str, Min, Max, [](Double number) { return number; }));
}

Single moxVarString::Conv2Single(const String& Str, Single Min, Single Max) {
    std::u16string text(Str.view());
    std::ranges::replace(text, u',', u'.');
    return numberWithin<Single>(text, Min, Max, [](Double number) { return toSingle(number); });
}

Long moxVarString::Conv2Long(const String& Str, Long Min, Long Max) {
    return toLong(numberWithin<Double>(Str, Min, Max, [](Double number) { return number; }));
}

} // namespace mox::server
