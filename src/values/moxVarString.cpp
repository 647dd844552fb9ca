#include "values/moxVarString.h"

#include "automation/objects/convert.h"
#include "automation/objects/errormodes.h"
#include "core/numberreading.h"
#include "values/entities.h"
#include "values/escapes.h"

#include <algorithm>
#include <string>
#include <vector>

namespace mox::server {

namespace {

/// Positions in a text are counted in 16 bits by the two URL members; a longer text makes the counter fail.
constexpr std::size_t longestCounted = 32767;

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
    trapAndLeave([&] { result = urlEncoded(AnsiCodes(StringToEncode), UsePlusRatherThanHexForSpace == True); });
    return result;
}

String moxVarString::URLDecode(const String& StringToDecode) {
    if (StringToDecode.size() > longestCounted) {
        return StringToDecode;
    }
    String result = StringToDecode;
    trapAndLeave([&] {
        if (auto decoded = urlDecoded(StringToDecode)) {
            result = std::move(*decoded);
        }
    });
    return result;
}

Long moxVarString::StringChecksum(const String& Str2Conv) {
    Long result = 0;
    trapAndLeave([&] {
        const AnsiCodes codes(Str2Conv);
        std::vector<Byte> lowBytes; // of a code of two bytes only the low one reaches the table
        if (!codes.areBytes()) {
            lowBytes.assign(codes.wide().begin(), codes.wide().end());
        }
        result = static_cast<Long>(~checksumTable_.update(0, codes.areBytes() ? codes.bytes() : lowBytes));
    });
    return result;
}

String moxVarString::StringEntities(const String& String2Convert, Boolean bConvert2Entities) {
    const std::u16string decoded = decodeEntities(String2Convert);
    return bConvert2Entities == True ? encodeEntities(decoded) : decoded;
}

String moxVarString::Conv2HexString(const String& Str2Conv, Boolean bConvBack) {
    return bConvBack == True ? fromHexadecimal(Str2Conv) : hexadecimal(AnsiCodes(Str2Conv));
}

String moxVarString::StringTrimRight(const String& String2Trim, Boolean bTrimSpace, Boolean bTrimCR, Boolean bTrimLF,
                                     Boolean bTrimChar0, Boolean bTrimTab) {
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
