#pragma once

#include "TRL_OBKR_MOX/moxVarByte.h"

#include "values/bits.h"

#include <utility>

namespace mox::server {

/// Bits and ranges of 8-bit values, bytes to text.
class moxVarByte final : public Implements<moxVarByte> {
public:
    Byte MinMax(Byte ByteValue, Byte MinValue, Byte MaxValue) { return clamped(ByteValue, MinValue, MaxValue); }
    Boolean GetBit(Byte ByteValue, Byte BitNr) { return bitOf(ByteValue, BitNr); }
    /// The value comes by value, unlike in the sister classes, so no effect can reach the caller.
    void SetBit(Byte, Byte, Boolean) {}
    /// All bytes as text of the code page, also those behind a NUL.
    String ConvByteArr2String(const Array<Byte>& ByteArray);
    void SwapValues(Byte& ByteA, Byte& ByteB) { std::swap(ByteA, ByteB); }
};

} // namespace mox::server
