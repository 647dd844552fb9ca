#pragma once

#include "TRL_OBKR_MOX/moxVarInteger.h"

#include "values/bits.h"

#include <utility>

namespace mox::server {

/// Bytes, bits and ranges of 16-bit values.
class moxVarInteger final : public Implements<moxVarInteger> {
public:
    Integer MakeWord(Byte LoByte, Byte HiByte) { return static_cast<Integer>(HiByte << 8 | LoByte); }
    Boolean GetBit(Integer IntValue, Byte BitNr) { return bitOf(IntValue, BitNr); }
    Byte GetHiByte(Integer IntValue) { return static_cast<Byte>(IntValue >> 8); }
    Byte GetLoByte(Integer IntValue) { return static_cast<Byte>(IntValue); }
    Integer MinMax(Integer IntValue, Integer MinValue, Integer MaxValue) { return clamped(IntValue, MinValue, MaxValue); }
    void SetBit(Integer& IntValue, Byte BitNr, Boolean bSetBit) { IntValue = withBit(IntValue, BitNr, bSetBit); }
    void SwapValues(Integer& IntA, Integer& IntB) { std::swap(IntA, IntB); }
};

} // namespace mox::server
