#pragma once

#include "TRL_OBKR_MOX/moxVarLong.h"

#include "values/bits.h"

#include <utility>

namespace mox::server {

/// Words, bits and ranges of 32-bit values.
class moxVarLong final : public Implements<moxVarLong> {
public:
    Integer GetLoWord(Long LngValue) { return static_cast<Integer>(LngValue); }
    Boolean GetBit(Long LngValue, Byte BitNr) { return bitOf(LngValue, BitNr); }
    void SetBit(Long& LngValue, Byte BitNr, Boolean bSetBit) { LngValue = withBit(LngValue, BitNr, bSetBit); }
    Integer GetHiWord(Long LngValue) { return static_cast<Integer>(LngValue >> 16); }
    Long MakeDWord(Integer LoWord, Integer HiWord) {
        return static_cast<Long>(static_cast<std::uint32_t>(HiWord) << 16 | static_cast<std::uint16_t>(LoWord));
    }
    Long SwapEndian(Long LngValue) { return static_cast<Long>(__builtin_bswap32(static_cast<std::uint32_t>(LngValue))); }
    void SwapValues(Long& LngA, Long& LngB) { std::swap(LngA, LngB); }
    Long MinMax(Long LongValue, Long MinValue, Long MaxValue) { return clamped(LongValue, MinValue, MaxValue); }
};

} // namespace mox::server
