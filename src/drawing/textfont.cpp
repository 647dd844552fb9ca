#include "drawing/textfont.h"

#include "core/ansi.h"
#include "core/systemage.h"

#include "platform/gdi32.h"

namespace mox::server {

using namespace platform;

std::uint32_t textQuality(Boolean useClearType) {
    return useClearType && isSystemAtLeast(TRL_OBKR_MOX::os_XP) ? CLEARTYPE_QUALITY : DEFAULT_QUALITY;
}

void TextFont::select(const FontRequest& request) {
    font_ = gdi32().CreateFontA(-request.characterHeight, 0, request.escapement, 0, request.isBold ? FW_BOLD : FW_NORMAL,
                                request.isItalic ? 1 : 0, request.isUnderlined ? 1 : 0, request.isStruckOut ? 1 : 0,
                                DEFAULT_CHARSET, 0, 0, request.quality, 0, toAnsi(request.name));
    if (font_ != 0) {
        before_ = gdi32().SelectObject(hdc_, font_);
    }
}

TextFont::~TextFont() {
    if (font_ != 0) {
        gdi32().SelectObject(hdc_, before_);
        gdi32().DeleteObject(font_);
    }
}

} // namespace mox::server
