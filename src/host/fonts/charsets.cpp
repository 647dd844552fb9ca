#include "host/fonts/charsets.h"

#include "platform/gditypes.h"

#include FT_TRUETYPE_TABLES_H

#include <algorithm>

namespace mox::host {

namespace {

constexpr CharacterSet sets[] = {
    {0, 0, "Western", u"Aaz09\u00C4\u00E9", u'A'},
    {161, 3, "Greek", u"\u0391\u03B1\u03A9\u03AC", u'\u03B1'},
    {162, 4, "Turkish", u"A\u011E\u0130\u015F", u'\u011E'},
    {177, 5, "Hebrew", u"\u05D0\u05EA", u'\u05D0'},
    {178, 6, "Arabic", u"\u0627\u0628\u064A", u'\u0628'},
    {186, 7, "Baltic", u"A\u0100\u0123\u0173", u'\u0123'},
    {204, 2, "Cyrillic", u"\u0410\u044F\u0451", u'\u0416'},
    {238, 1, "Central European", u"A\u0104\u010D\u0159", u'\u0159'},
    {163, 8, "Vietnamese", u"A\u01A0\u01B0\u20AB", u'\u01A0'},
    {222, 16, "Thai", u"\u0E01\u0E2E", u'\u0E01'},
    {128, 17, "Japanese", u"\u3042\u30A2\u65E5", u'\u3042'},
    {129, 19, "Hangul", u"\uAC00\uD55C", u'\uAC00'},
    {134, 18, "CHINESE_GB2312", u"\u4E00\u7B80\u4F53", u'\u7B80'},
    {136, 20, "CHINESE_BIG5", u"\u4E00\u7E41\u9AD4", u'\u9AD4'},
    {platform::SYMBOL_CHARSET, 31, "Symbol", u"", u'\uF041'},
};

bool isSymbolFont(FT_Face face) {
    return std::ranges::any_of(std::span(face->charmaps, static_cast<std::size_t>(face->num_charmaps)),
                               [](FT_CharMap map) { return map->encoding == FT_ENCODING_MS_SYMBOL; });
}

bool hasAll(FT_Face face, std::u16string_view characters) {
    return !characters.empty() &&
           std::ranges::all_of(characters, [&](char16_t unit) { return FT_Get_Char_Index(face, unit) != 0; });
}

} // namespace

std::span<const CharacterSet> characterSets() noexcept {
    return sets;
}

const CharacterSet* findCharacterSet(std::uint8_t number) noexcept {
    const auto* const found = std::ranges::find(sets, number, &CharacterSet::number);
    return found == std::end(sets) ? nullptr : found;
}

CharacterSetMask coveredSets(const FontFace& face) {
    const auto* const table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face.get(), FT_SFNT_OS2));
    const bool isClaimed = table && table->version != 0xFFFF && table->version >= 1 && table->ulCodePageRange1 != 0;
    CharacterSetMask mask = 0;
    for (std::size_t place = 0; place < std::size(sets); ++place) {
        const CharacterSet& set = sets[place];
        const bool isCovered = set.number == platform::SYMBOL_CHARSET ? isSymbolFont(face.get())
                               : isClaimed                            ? (table->ulCodePageRange1 >> set.bit & 1) != 0
                                                                      : hasAll(face.get(), set.typical);
        mask |= isCovered ? CharacterSetMask{1} << place : 0;
    }
    // A font belongs somewhere.
    return mask == 0 ? 1 : mask;
}

} // namespace mox::host
