#pragma once

#include "TRL_OBKR_MOX/moxVarString.h"

#include "values/checksum.h"

namespace mox::server {

/// Text conversions around the web and user input. "ANSI code" is the byte that a character has in the system's code page:
/// escapes, checksum and hexadecimal text are made of these, not of UTF-8.
class moxVarString final : public Implements<moxVarString> {
public:
    String URLEncode(const String& StringToEncode, Boolean UsePlusRatherThanHexForSpace);
    String URLDecode(const String& StringToDecode);
    Long StringChecksum(const String& Str2Conv);
    String StringEntities(const String& String2Convert, Boolean bConvert2Entities);
    String Conv2HexString(const String& Str2Conv, Boolean bConvBack);
    String StringTrimRight(const String& String2Trim, Boolean bTrimSpace, Boolean bTrimCR, Boolean bTrimLF, Boolean bTrimChar0,
                           Boolean bTrimTab);
    String StringLeftZeroFill(const String& String2Fill, Byte Digits);
    void StringSwap(String& StrA, String& StrB);
    Byte Conv2Byte(const String& Str, Byte Min, Byte Max);
    Integer Conv2Integer(const String& Str, Integer Min, Integer Max);
    Single Conv2Single(const String& Str, Single Min, Single Max);
    Long Conv2Long(const String& Str, Long Min, Long Max);

private:
    ChecksumTable checksumTable_; // built on first use
};

} // namespace mox::server
