#include "host/text/codepage.h"

#include "host/text/codepagetables.h"

#include <mox/values/string.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <type_traits>

namespace mox::host {

namespace {

/// Converts one unit into one, in blocks: most text is ASCII, which needs no table and goes many units at a time.
template <class From, class To, class Lookup> void convertUnits(std::basic_string_view<From> text, To* result, Lookup lookup) {
    constexpr std::size_t block = 16;
    const From* unit = text.data();
    const From* const end = unit + text.size();
    for (; static_cast<std::size_t>(end - unit) >= block; unit += block, result += block) {
        std::array<From, block> from;
        std::array<To, block> to;
        std::copy_n(unit, block, from.begin());
        unsigned all = 0;
        for (const From one : from) {
            all |= static_cast<std::make_unsigned_t<From>>(one);
        }
        if (all < 0x80) {
            std::ranges::copy(from, to.begin());
        } else {
            std::ranges::transform(from, to.begin(), lookup);
        }
        std::ranges::copy(to, result);
    }
    std::transform(unit, end, result, lookup);
}

} // namespace

CodePage::CodePage(std::uint32_t number) : number_(number), tables_(CodePageTables::find(number)) {
    if (!tables_) {
        throw std::invalid_argument("no known code page: " + std::to_string(number));
    }
}

bool CodePage::isKnown(std::uint32_t number) noexcept {
    return CodePageTables::isKnown(number);
}

namespace {

/// What `convert` gives, in the caller's place.
template <class Unit, class Convert> std::optional<std::size_t> copied(std::span<Unit> place, Convert convert) {
    const std::basic_string<Unit> result = convert();
    if (result.size() > place.size()) {
        return std::nullopt;
    }
    std::ranges::copy(result, place.begin());
    return result.size();
}

} // namespace

std::optional<std::size_t> CodePage::fromUtf16(std::u16string_view text, std::span<char> bytes) const {
    if (tables_->hasPairs()) {
        return copied(bytes, [&] { return fromUtf16(text); });
    }
    if (text.size() > bytes.size()) {
        return std::nullopt;
    }
    const std::uint16_t* codes = tables_->codes.data();
    convertUnits(text, bytes.data(), [codes](char16_t unit) { return static_cast<char>(codes[unit]); });
    return text.size();
}

std::optional<std::size_t> CodePage::toUtf16(std::string_view bytes, std::span<char16_t> text) const {
    if (tables_->hasPairs()) {
        return copied(text, [&] { return toUtf16(bytes); });
    }
    if (bytes.size() > text.size()) {
        return std::nullopt;
    }
    convertUnits(bytes, text.data(), [&](char byte) { return tables_->single[static_cast<std::uint8_t>(byte)]; });
    return bytes.size();
}

std::string CodePage::fromUtf16(std::u16string_view text) const {
    const std::uint16_t* codes = tables_->codes.data();
    if (!tables_->hasPairs()) {
        std::string bytes(text.size(), '\0');
        fromUtf16(text, bytes);
        return bytes;
    }
    std::string bytes;
    bytes.reserve(2 * text.size());
    for (const char16_t unit : text) {
        if (const std::uint16_t code = codes[unit]; code > 0xFF) {
            bytes += {static_cast<char>(code >> 8), static_cast<char>(code)};
        } else {
            bytes += static_cast<char>(code);
        }
    }
    return bytes;
}

std::u16string CodePage::toUtf16(std::string_view bytes) const {
    const CodePageTables& tables = *tables_;
    if (!tables.hasPairs()) {
        std::u16string text(bytes.size(), u'\0');
        toUtf16(bytes, text);
        return text;
    }
    std::u16string text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<std::uint8_t>(bytes[i]);
        if (!tables.isLead[byte]) {
            text += tables.single[byte];
            continue;
        }
        const bool isLast = i + 1 == bytes.size();
        const char16_t character = isLast ? u'\0' : tables.pairs[byte << 8 | static_cast<std::uint8_t>(bytes[i + 1])];
        text += character ? character : tables.defaultCharacter;
        i += character ? 1 : 0;
    }
    return text;
}

std::string CodePage::fromUtf8(std::string_view text) const {
    return fromUtf16(utf16FromUtf8(text));
}

std::string CodePage::toUtf8(std::string_view bytes) const {
    return utf8FromUtf16(toUtf16(bytes));
}

bool CodePage::holds(std::u16string_view text) const {
    return std::ranges::all_of(text, [&](char16_t unit) { return unit == u'?' || tables_->codes[unit] != u'?'; });
}

bool CodePage::isLeadByte(std::uint8_t byte) const noexcept {
    return tables_->isLead[byte];
}

} // namespace mox::host
