#pragma once

#include "TRL_OBKR_MOX/moxVars.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Facade of the value helpers: units, hexadecimal text, and one helper object for each value type.
class moxVars final : public Implements<moxVars> {
public:
    ~moxVars() override;

    Double ConvertUnit(Double& SourceValue, MOX_SCALEUNIT& SourceUnit, MOX_SCALEUNIT& DestUnit);
    Long Hex2Long(const String& HexValue);
    Ref<_moxVarMath> get_vMath();
    Ref<_moxVarByte> get_vByte();
    Ref<_moxVarInteger> get_vInteger();
    Ref<_moxVarSingle> get_vSingle();
    Ref<_moxVarLong> get_vLong();
    Ref<_moxVarString> get_vString();
    Ref<_moxVarRect> get_vRect();
    Ref<_moxVarObject> get_vObject();

private:
    Ref<_moxVarByte> vByte;
    Ref<_moxVarInteger> vInteger;
    Ref<_moxVarSingle> vSingle;
    Ref<_moxVarLong> vLong;
    Ref<_moxVarString> vString;
    Ref<_moxVarRect> vRect;
    Ref<_moxVarObject> vObject;
    Ref<_moxVarMath> vMath;
};

} // namespace mox::server
