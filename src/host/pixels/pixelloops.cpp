#include "host/pixels/pixelloops.h"

#include <algorithm>
#include <cstring>

// One function for each kind of processor, chosen when the library is loaded. The sanitizers are not ready by then.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__)
#define MOX_VECTOR_CODE __attribute__((target_clones("avx2", "default")))
#else
#define MOX_VECTOR_CODE
#endif

namespace mox::host {

namespace {

template <class Function>
[[gnu::always_inline]] inline void eachWithSource(Pixel* target, const Pixel* source, std::size_t count, Function function) {
    for (std::size_t i = 0; i < count; ++i) {
        target[i] = function(source[i], target[i]);
    }
}

MOX_VECTOR_CODE void combineBySource(std::uint8_t table, Pixel* target, const Pixel* source, std::size_t count) {
    switch (table) {
    case truthTable(platform::NOTSRCCOPY):
        return eachWithSource(target, source, count, [](Pixel s, Pixel) { return ~s; });
    case truthTable(platform::SRCAND):
        return eachWithSource(target, source, count, [](Pixel s, Pixel d) { return s & d; });
    case truthTable(platform::SRCPAINT):
        return eachWithSource(target, source, count, [](Pixel s, Pixel d) { return s | d; });
    case truthTable(platform::SRCINVERT):
        return eachWithSource(target, source, count, [](Pixel s, Pixel d) { return s ^ d; });
    default: {
        // The target selects between two results of each value of the source.
        const auto all = [&](int place) { return static_cast<Pixel>(-(table >> place & 1)); };
        const Pixel zero = all(0);
        const Pixel zeroChange = all(0) ^ all(1);
        const Pixel one = all(2);
        const Pixel oneChange = all(2) ^ all(3);
        return eachWithSource(target, source, count, [=](Pixel s, Pixel d) {
            const Pixel ifZero = zero ^ (d & zeroChange);
            return ifZero ^ (s & (ifZero ^ one ^ (d & oneChange)));
        });
    }
    }
}

MOX_VECTOR_CODE void combineAll(std::uint8_t table, Pixel* target, const Pixel* source, const Pixel* pattern, std::size_t count) {
    const auto all = [&](int place) { return static_cast<Pixel>(-(table >> place & 1)); };
    Pixel base[4];
    Pixel change[4];
    for (int i = 0; i < 4; ++i) {
        base[i] = all(2 * i);
        change[i] = all(2 * i) ^ all(2 * i + 1);
    }
    for (std::size_t i = 0; i < count; ++i) {
        const Pixel d = target[i];
        const Pixel s = source[i];
        const Pixel s0 = base[0] ^ (d & change[0]);
        const Pixel s1 = base[1] ^ (d & change[1]);
        const Pixel s2 = base[2] ^ (d & change[2]);
        const Pixel s3 = base[3] ^ (d & change[3]);
        const Pixel without = s0 ^ (s & (s0 ^ s1));
        const Pixel with = s2 ^ (s & (s2 ^ s3));
        target[i] = without ^ (pattern[i] & (without ^ with));
    }
}

} // namespace

void combine(std::uint8_t table, Pixel* target, const Pixel* source, const Pixel* pattern, std::size_t count) noexcept {
    const std::uint32_t rop = std::uint32_t{table} << 16;
    if (table == truthTable(platform::SRCCOPY)) {
        std::memmove(target, source, count * sizeof(Pixel));
    } else if (table == truthTable(platform::PATCOPY)) {
        std::memmove(target, pattern, count * sizeof(Pixel));
    } else if (!usesPattern(rop)) {
        combineBySource(table, target, usesSource(rop) ? source : target, count);
    } else {
        combineAll(table, target, usesSource(rop) ? source : target, pattern, count);
    }
}

MOX_VECTOR_CODE void paintOver(std::uint8_t table, Pixel* target, const Pixel* pattern, std::size_t count) noexcept {
    constexpr Pixel colors = 0xFFFFFF;
    const auto all = [&](int place) { return static_cast<Pixel>(-(table >> place & 1)); };
    const Pixel zero = all(0);
    const Pixel zeroChange = all(0) ^ all(1);
    const Pixel one = all(4);
    const Pixel oneChange = all(4) ^ all(5);
    if (!pattern) {
        for (std::size_t i = 0; i < count; ++i) {
            const Pixel d = target[i];
            target[i] = d ^ ((zero ^ (d & zeroChange) ^ d) & colors);
        }
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const Pixel d = target[i];
        const Pixel ifZero = zero ^ (d & zeroChange);
        const Pixel result = ifZero ^ (pattern[i] & (ifZero ^ one ^ (d & oneChange)));
        target[i] = d ^ ((result ^ d) & colors);
    }
}

MOX_VECTOR_CODE void copyKeyed(Pixel key, Pixel* target, const Pixel* source, std::size_t count) noexcept {
    for (std::size_t i = 0; i < count; ++i) {
        const Pixel s = source[i];
        const Pixel d = target[i];
        target[i] = ((s ^ key) & 0xFFFFFF) == 0 ? d : s;
    }
}

MOX_VECTOR_CODE void mix(std::uint8_t alpha, Pixel* target, const Pixel* source, std::size_t count) noexcept {
    auto* const to = reinterpret_cast<std::uint8_t*>(target);
    const auto* const from = reinterpret_cast<const std::uint8_t*>(source);
    const std::uint16_t share = alpha;
    const auto rest = static_cast<std::uint16_t>(255 - alpha);
    for (std::size_t i = 0; i < count * sizeof(Pixel); ++i) {
        const auto value = static_cast<std::uint16_t>(from[i] * share + to[i] * rest + 128);
        to[i] = static_cast<std::uint8_t>(static_cast<std::uint16_t>(value + (value >> 8)) >> 8);
    }
}

namespace {

// Two bytes of a pixel at a time, each in 16 bits of a number.
constexpr std::uint32_t twoBytes = 0x00FF00FF;

[[gnu::always_inline]] inline std::uint32_t dividedPair(std::uint32_t pair) {
    pair += 0x00800080;
    return ((pair + (pair >> 8 & twoBytes)) >> 8) & twoBytes;
}

/// The sums of two bytes each, at most 255.
[[gnu::always_inline]] inline std::uint32_t saturatedPair(std::uint32_t sums) {
    const std::uint32_t over = sums >> 8 & 0x00010001;
    return (sums | (over * 0xFF)) & twoBytes;
}

} // namespace

namespace {

/// `scaled` gives the source's pairs of bytes times the constant alpha.
template <class Scale>
[[gnu::always_inline]] inline void layOverEach(Pixel* target, const Pixel* source, std::size_t count, Scale scaled) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint32_t low = scaled(source[i] & twoBytes);
        const std::uint32_t high = scaled(source[i] >> 8 & twoBytes);
        const std::uint32_t rest = 255 - (high >> 16);
        const std::uint32_t lowSum = saturatedPair(low + dividedPair((target[i] & twoBytes) * rest));
        const std::uint32_t highSum = saturatedPair(high + dividedPair((target[i] >> 8 & twoBytes) * rest));
        target[i] = lowSum | highSum << 8;
    }
}

} // namespace

MOX_VECTOR_CODE void layOver(std::uint8_t alpha, Pixel* target, const Pixel* source, std::size_t count) noexcept {
    if (alpha == 255) {
        layOverEach(target, source, count, [](std::uint32_t pair) { return pair; });
    } else {
        layOverEach(target, source, count, [=](std::uint32_t pair) { return dividedPair(pair * alpha); });
    }
}

MOX_VECTOR_CODE void halve(Pixel* target, const Pixel* upper, const Pixel* lower, std::size_t count) noexcept {
    constexpr std::uint64_t fourBytes = 0x00FF00FF00FF00FF;
    for (std::size_t i = 0; i < count; ++i) {
        std::uint64_t a = 0;
        std::uint64_t b = 0;
        std::memcpy(&a, upper + 2 * i, sizeof a);
        std::memcpy(&b, lower + 2 * i, sizeof b);
        const std::uint64_t low = (a & fourBytes) + (b & fourBytes);
        const std::uint64_t high = (a >> 8 & fourBytes) + (b >> 8 & fourBytes);
        const auto lowSum = static_cast<std::uint32_t>(low + (low >> 32)) + 0x00020002;
        const auto highSum = static_cast<std::uint32_t>(high + (high >> 32)) + 0x00020002;
        target[i] = (lowSum >> 2 & twoBytes) | (highSum >> 2 & twoBytes) << 8;
    }
}

MOX_VECTOR_CODE void addWeighted(std::uint32_t weight, std::uint32_t* totals, const std::uint32_t* values,
                                 std::size_t count) noexcept {
    for (std::size_t i = 0; i < count; ++i) {
        totals[i] += values[i] * weight;
    }
}

MOX_VECTOR_CODE void toMeans(std::uint32_t whole, std::uint8_t* bytes, const std::uint32_t* totals, std::size_t count) noexcept {
    // A quarter of the smallest step more than the half: products that come out too small by a few bits do not change the result.
    const double scale = 1.0 / whole;
    const double half = 0.5 + scale / 4;
    for (std::size_t i = 0; i < count; ++i) {
        bytes[i] = static_cast<std::uint8_t>(static_cast<std::int32_t>(static_cast<std::int32_t>(totals[i]) * scale + half));
    }
}

} // namespace mox::host
