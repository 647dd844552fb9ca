#include "host/text/codepagetables.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>

namespace mox::host {

namespace {

/// A byte that Windows has otherwise than ICU.
struct Correction {
    std::uint8_t byte;
    char16_t character;
};

struct Description {
    std::uint32_t number;
    const char* converter;
    std::span<const Correction> corrections = {};
    char16_t defaultCharacter = u'?';
};

// Bytes that have no character in ICU's tables. Windows gives them the end of the private use area, so that they survive.
constexpr Correction corrections932[] = {{0x80, 0x0080}, {0xA0, 0xF8F0}, {0xFD, 0xF8F1}, {0xFE, 0xF8F2}, {0xFF, 0xF8F3}};
constexpr Correction corrections1253[] = {{0xAA, 0xF8F9}, {0xD2, 0xF8FA}, {0xFF, 0xF8FB}};
constexpr Correction corrections1255[] = {{0xCA, 0x05BA}, {0xD9, 0xF88D}, {0xDA, 0xF88E}, {0xDB, 0xF88F},
                                          {0xDC, 0xF890}, {0xDD, 0xF891}, {0xDE, 0xF892}, {0xDF, 0xF893},
                                          {0xFB, 0xF894}, {0xFC, 0xF895}, {0xFF, 0xF896}};
constexpr Correction corrections1257[] = {{0xA1, 0xF8FC}, {0xA5, 0xF8FD}};
constexpr Correction notSign[] = {{0xAA, 0x00AC}};
// The micro sign, which ICU has as the Greek letter.
constexpr Correction microSign[] = {{0xE6, 0x00B5}};

constexpr Description descriptions[] = {
    {437, "ibm-437_P100-1995", microSign},
    {737, "ibm-737_P100-1997"},
    {775, "ibm-775_P100-1996"},
    {850, "ibm-850_P100-1995"},
    {852, "ibm-852_P100-1995", notSign},
    {855, "ibm-855_P100-1995"},
    {858, "ibm-858_P100-1997"},
    {860, "ibm-860_P100-1995", microSign},
    {861, "ibm-861_P100-1995", microSign},
    {862, "ibm-862_P100-1995", microSign},
    {863, "ibm-863_P100-1995", microSign},
    {865, "ibm-865_P100-1995", microSign},
    {866, "ibm-866_P100-1995"},
    {874, "windows-874-2000"},
    {932, "ibm-943_P15A-2003", corrections932, u'\u30FB'},
    {936, "windows-936-2000"},
    {949, "windows-949-2000"},
    {950, "windows-950-2000"},
    {1250, "ibm-5346_P100-1998"},
    {1251, "ibm-5347_P100-1998"},
    {1252, "ibm-5348_P100-1997"},
    {1253, "ibm-5349_P100-1998", corrections1253},
    {1254, "ibm-5350_P100-1998"},
    {1255, "ibm-9447_P100-2002", corrections1255},
    {1256, "ibm-9448_X100-2005"},
    {1257, "ibm-9449_P100-2002", corrections1257},
    {1258, "ibm-5354_P100-1998"},
};

constexpr std::size_t asciiCount = 0x80;
constexpr std::size_t unitCount = 0x10000;

/// One converter of ICU that stops at whatever it does not know.
class Converter {
public:
    explicit Converter(const char* name) : converter_(nullptr, &ucnv_close) {
        UErrorCode status = U_ZERO_ERROR;
        converter_.reset(ucnv_open(name, &status));
        if (U_SUCCESS(status)) {
            ucnv_setToUCallBack(converter_.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
            ucnv_setFromUCallBack(converter_.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        }
        if (U_FAILURE(status)) {
            throw std::runtime_error(std::string("no code page table ") + name + ": " + u_errorName(status));
        }
    }

    /// The one character of UTF-16 that some bytes stand for.
    std::optional<char16_t> character(std::span<const char> bytes, UErrorCode& status) {
        status = U_ZERO_ERROR;
        char16_t units[4];
        ucnv_reset(converter_.get());
        const std::int32_t count =
            ucnv_toUChars(converter_.get(), units, 4, bytes.data(), static_cast<std::int32_t>(bytes.size()), &status);
        return U_SUCCESS(status) && count == 1 ? std::optional(units[0]) : std::nullopt;
    }
    /// The bytes of a character, one or two as a number.
    std::optional<std::uint16_t> code(char16_t unit) {
        UErrorCode status = U_ZERO_ERROR;
        char bytes[8];
        ucnv_reset(converter_.get());
        const std::int32_t count = ucnv_fromUChars(converter_.get(), bytes, 8, &unit, 1, &status);
        if (U_FAILURE(status) || count < 1 || count > 2) {
            return std::nullopt;
        }
        const auto first = static_cast<std::uint8_t>(bytes[0]);
        return count == 1 ? first : static_cast<std::uint16_t>(first << 8 | static_cast<std::uint8_t>(bytes[1]));
    }

private:
    std::unique_ptr<UConverter, void (*)(UConverter*)> converter_;
};

void fillBytes(CodePageTables& tables, Converter& converter, const Description& description) {
    for (std::size_t byte = 0; byte < tables.single.size(); ++byte) {
        const char bytes[] = {static_cast<char>(byte)};
        UErrorCode status = U_ZERO_ERROR;
        const auto character = converter.character(bytes, status);
        tables.isLead[byte] = status == U_TRUNCATED_CHAR_FOUND;
        tables.single[byte] = byte < asciiCount ? static_cast<char16_t>(byte) : character.value_or(description.defaultCharacter);
    }
    for (const Correction& correction : description.corrections) {
        tables.single[correction.byte] = correction.character;
    }
}

void fillPairs(CodePageTables& tables, Converter& converter) {
    if (std::ranges::count(tables.isLead, true) == 0) {
        return;
    }
    tables.pairs.resize(unitCount);
    for (std::size_t pair = 0; pair < unitCount; ++pair) {
        if (tables.isLead[pair >> 8]) {
            const char bytes[] = {static_cast<char>(pair >> 8), static_cast<char>(pair)};
            UErrorCode status = U_ZERO_ERROR;
            tables.pairs[pair] = converter.character(bytes, status).value_or(u'\0');
        }
    }
}

/// The way back: where several pairs stand for one character, ICU knows which one counts; one-way conversions do not.
void fillCodes(CodePageTables& tables, Converter& converter) {
    tables.codes.assign(unitCount, '?');
    if (tables.hasPairs()) {
        for (std::size_t unit = asciiCount; unit < unitCount; ++unit) {
            const auto code = converter.code(static_cast<char16_t>(unit)).value_or(0);
            if (code > 0xFF && tables.pairs[code] == unit) {
                tables.codes[unit] = code;
            }
        }
    }
    for (std::size_t byte = 0; byte < tables.single.size(); ++byte) {
        if (!tables.isLead[byte]) {
            tables.codes[tables.single[byte]] = static_cast<std::uint16_t>(byte);
        }
    }
}

std::shared_ptr<const CodePageTables> makeTables(const Description& description) {
    Converter converter(description.converter);
    auto tables = std::make_shared<CodePageTables>();
    tables->defaultCharacter = description.defaultCharacter;
    fillBytes(*tables, converter, description);
    fillPairs(*tables, converter);
    fillCodes(*tables, converter);
    return tables;
}

} // namespace

bool CodePageTables::isKnown(std::uint32_t number) noexcept {
    return std::ranges::find(descriptions, number, &Description::number) != std::ranges::end(descriptions);
}

std::shared_ptr<const CodePageTables> CodePageTables::find(std::uint32_t number) {
    const auto description = std::ranges::find(descriptions, number, &Description::number);
    if (description == std::ranges::end(descriptions)) {
        return nullptr;
    }
    static std::mutex guard;
    static std::map<std::uint32_t, std::shared_ptr<const CodePageTables>> made;
    const std::lock_guard lock(guard);
    std::shared_ptr<const CodePageTables>& tables = made[number];
    if (!tables) {
        tables = makeTables(*description);
    }
    return tables;
}

} // namespace mox::host
