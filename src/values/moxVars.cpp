#include "values/moxVars.h"

#include "automation/objects/convert.h"
#include "core/classes.h"
#include "core/numberreading.h"
#include "core/release.h"

#include "platform/runtime.h"

#include <optional>
#include <string>

namespace mox::server {

namespace {

/// Twips in one unit; nothing for a unit that does not exist. The metric factors are the library's own round numbers, not 1440
/// / 25.4.
std::optional<Double> twipsPerUnit(MOX_SCALEUNIT unit) {
    switch (unit) {
    case suTWIP:
        return 1;
    case suPOINTS:
        return 20;
    case suPIXEL: {
        // Asked anew each time: the screen may change.
        const Double x = platform::runtime().ScreenTwipsPerPixelX();
        const Double y = platform::runtime().ScreenTwipsPerPixelY();
        return (x + y) / 2;
    }
    case suINCH:
        return 1440;
    case suMM:
        return 56.7;
    case suCM:
        return 567;
    }
    return std::nullopt;
}

} // namespace

moxVars::~moxVars() {
    releaseInOrder(vByte, vInteger, vSingle, vLong, vString, vRect, vObject, vMath);
}

Double moxVars::ConvertUnit(Double& SourceValue, MOX_SCALEUNIT& SourceUnit, MOX_SCALEUNIT& DestUnit) {
    if (SourceUnit == DestUnit) {
        return SourceValue;
    }
    const std::optional<Double> source = twipsPerUnit(SourceUnit);
    const Double twips = source ? checked(SourceValue * *source) : 0;
    const std::optional<Double> destination = twipsPerUnit(DestUnit);
    return destination ? divided(twips, *destination) : 0;
}

Long moxVars::Hex2Long(const String& HexValue) {
    std::u16string digits = u"&H";
    for (const char16_t c : HexValue.view()) {
        if (hexadecimalDigit(c) >= 0) {
            digits += c;
        }
    }
    return toLong(Val(digits));
}

Ref<_moxVarMath> moxVars::get_vMath() {
    return child(vMath);
}

Ref<_moxVarByte> moxVars::get_vByte() {
    return child(vByte);
}

Ref<_moxVarInteger> moxVars::get_vInteger() {
    return child(vInteger);
}

Ref<_moxVarSingle> moxVars::get_vSingle() {
    return child(vSingle);
}

Ref<_moxVarLong> moxVars::get_vLong() {
    return child(vLong);
}

Ref<_moxVarString> moxVars::get_vString() {
    return child(vString);
}

Ref<_moxVarRect> moxVars::get_vRect() {
    return child(vRect);
}

Ref<_moxVarObject> moxVars::get_vObject() {
    return child(vObject);
}

} // namespace mox::server
