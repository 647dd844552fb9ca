#include "drawing/moxFontEnumeration.h"

namespace mox::server {

const modMoxHub::FontEntry& moxFontEnumeration::entry(Long index) const {
    static const modMoxHub::FontEntry none;
    return index >= 0 && index < static_cast<Long>(fonts_.size()) ? fonts_[static_cast<std::size_t>(index)] : none;
}

moX_FONT_FAMILY moxFontEnumeration::get_Family(Long Index) {
    return static_cast<moX_FONT_FAMILY>(entry(Index).Family);
}

String moxFontEnumeration::get_Name(Long Index) {
    return entry(Index).Name;
}

moX_FONT_PITCH moxFontEnumeration::get_Pitch(Long Index) {
    return static_cast<moX_FONT_PITCH>(entry(Index).Pitch);
}

Boolean moxFontEnumeration::get_Symbol(Long Index) {
    return entry(Index).Symbol;
}

void moxFontEnumeration::Enumerate(platform::Handle hDC) {
    if (isListed_ && hDC == listedContext_) {
        return;
    }
    if (modMoxHub::EnumerateFonts(fonts_, hDC, u"") == 0) {
        fonts_.clear();
    }
    listedContext_ = hDC;
    isListed_ = true;
}

} // namespace mox::server
