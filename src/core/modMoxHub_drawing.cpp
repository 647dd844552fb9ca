// Icons of the shell, and lists of fonts.
#include "core/modMoxHub.h"

#include "automation/objects/errormodes.h"
#include "core/ansi.h"
#include "core/classes.h"

#include "platform/comctl32.h"
#include "platform/gdi32.h"
#include "platform/shell32.h"
#include "platform/user32.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace mox::server::modMoxHub {

using namespace platform;

namespace {

std::u16string iconPath(std::u16string_view path) {
    std::u16string result(path);
    if (result.size() == 1) {
        result += u":\\";
    } else if (result.size() == 2 && result[1] == u':') {
        result += u'\\';
    }
    return result;
}

std::uint32_t iconFlags(MOX_FS_ICONSIZE size, MOX_FS_ICONSTATE state) {
    const bool isOpen = state >= ICONSTATE_OPEN_NORMAL && state <= ICONSTATE_OPEN_SELECTED;
    return SHGFI_SYSICONINDEX | SHGFI_ICON | SHGFI_SHELLICONSIZE | (size == ICON_16 ? SHGFI_SMALLICON : SHGFI_LARGEICON) |
           (isOpen ? SHGFI_OPENICON : 0);
}

std::uint32_t iconStyle(MOX_FS_ICONSTATE state) {
    switch (state) {
    case ICONSTATE_FOCUS:
    case ICONSTATE_OPEN_FOCUS:
        return ILD_TRANSPARENT | ILD_BLEND25;
    case ICONSTATE_SELECTED:
    case ICONSTATE_OPEN_SELECTED:
        return ILD_TRANSPARENT | ILD_BLEND50;
    default:
        return ILD_TRANSPARENT;
    }
}

/// The module's list: only the last one that was made.
struct FontList {
    std::vector<FontEntry> fonts;
};

Long pitchOf(std::uint8_t pitchAndFamily) {
    return (pitchAndFamily & FIXED_PITCH) != 0 ? 1 : (pitchAndFamily & VARIABLE_PITCH) != 0 ? 2 : 0;
}

Long familyOf(std::uint8_t pitchAndFamily) {
    const auto has = [&](std::uint8_t bits) { return (pitchAndFamily & bits) == bits; };
    if (has(FF_DECORATIVE)) {
        return 5;
    }
    if (has(FF_SCRIPT)) {
        return 4;
    }
    if (has(FF_MODERN)) {
        return 3;
    }
    if (has(FF_SWISS)) {
        return 2;
    }
    return has(FF_ROMAN) ? 1 : 0;
}

/// A field without a NUL has no name in it.
String faceName(const LOGFONTA& font) {
    const std::string_view field(font.lfFaceName.data(), font.lfFaceName.size());
    const std::size_t end = field.find('\0');
    return end == field.npos ? String() : fromAnsi(field.substr(0, end));
}

std::int32_t EnumFontFamExProc(std::vector<FontEntry>& fonts, const LOGFONTA& font) {
    FontEntry entry{faceName(font), pitchOf(font.lfPitchAndFamily), familyOf(font.lfPitchAndFamily),
                    font.lfCharSet == SYMBOL_CHARSET};
    if (fonts.empty() || fonts.back().Name != entry.Name) {
        fonts.push_back(std::move(entry));
    }
    return 1;
}

/// A context of the screen where none is given.
class ListingContext {
public:
    explicit ListingContext(Handle given)
        : own_(given == 0 ? gdi32().CreateCompatibleDC(0) : 0), handle_(given == 0 ? own_ : given) {}
    ListingContext(const ListingContext&) = delete;
    ListingContext& operator=(const ListingContext&) = delete;
    ~ListingContext() {
        if (own_ != 0) {
            gdi32().DeleteDC(own_);
        }
    }

    Handle handle() const noexcept { return handle_; }

private:
    const Handle own_;
    const Handle handle_;
};

} // namespace

Boolean DrawShellIcon(Long hDC, Long X, Long Y, const String& sPath, MOX_FS_ICONSIZE Size, MOX_FS_ICONSTATE State) {
    Boolean result = False;
    Handle icon = 0;
    trapAndLeave([&] {
        SHFILEINFOA info;
        const std::uint32_t list = shell32().SHGetFileInfoA(toAnsi(iconPath(sPath)), 0, info, iconFlags(Size, State));
        icon = info.hIcon;
        if (list != 0) {
            result = comctl32().ImageList_Draw(static_cast<Handle>(list), info.iIcon, hDC, X, Y, iconStyle(State));
        }
    });
    if (icon != 0) {
        user32().DestroyIcon(icon);
    }
    return result;
}

Long EnumerateFonts(std::vector<FontEntry>& Fonts, Long hDC, const String& sFaceName) {
    auto& list = moduleState<FontList>().fonts;
    LOGFONTA wanted;
    wanted.lfCharSet = DEFAULT_CHARSET;
    const std::string name = toAnsi(sFaceName);
    std::copy_n(name.data(), std::min(name.size(), wanted.lfFaceName.size()), wanted.lfFaceName.data());
    list.clear();
    {
        const ListingContext context(hDC);
        gdi32().EnumFontFamiliesExA(context.handle(), wanted, [&](const LOGFONTA& font, const TEXTMETRICA&, std::uint32_t) {
            return EnumFontFamExProc(list, font);
        });
    }
    if (list.empty()) {
        Fonts.assign(1, {});
        return 0;
    }
    std::ranges::sort(list, {}, [](const FontEntry& entry) { return entry.Name.view(); });
    Fonts = list;
    return static_cast<Long>(Fonts.size());
}

} // namespace mox::server::modMoxHub
