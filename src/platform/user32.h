// user32: messages, timers, message boxes; windows as far as one draws them; text in rectangles, icons, colours of the system.
#pragma once

#include "platform/gditypes.h"
#include "platform/operation.h"

namespace mox::platform {

inline constexpr std::uint32_t MB_OK = 0x0;
inline constexpr std::uint32_t MB_ICONINFORMATION = 0x40;
inline constexpr std::int32_t IDOK = 1;
inline constexpr std::int32_t IDCANCEL = 2;

inline constexpr std::uint32_t MB_YESNO = 0x4;
inline constexpr std::uint32_t MB_ICONQUESTION = 0x20;
inline constexpr std::int32_t IDYES = 6;
inline constexpr std::int32_t IDNO = 7;

// Metrics of the system.
inline constexpr std::int32_t SM_CXICON = 11;
inline constexpr std::int32_t SM_CYICON = 12;
inline constexpr std::int32_t SM_CXSMICON = 49;
inline constexpr std::int32_t SM_CYSMICON = 50;
inline constexpr std::int32_t SM_CLEANBOOT = 67;
inline constexpr std::int32_t SM_MEDIACENTER = 87;
inline constexpr std::int32_t SM_SERVERR2 = 89;

// Formats of DrawTextA.
inline constexpr std::uint32_t DT_CENTER = 0x1;
inline constexpr std::uint32_t DT_RIGHT = 0x2;
inline constexpr std::uint32_t DT_VCENTER = 0x4;
inline constexpr std::uint32_t DT_BOTTOM = 0x8;
inline constexpr std::uint32_t DT_WORDBREAK = 0x10;
inline constexpr std::uint32_t DT_SINGLELINE = 0x20;
inline constexpr std::uint32_t DT_EXPANDTABS = 0x40;
/// Bits 8 to 15 are then the distance of the tab stops in characters.
inline constexpr std::uint32_t DT_TABSTOP = 0x80;
inline constexpr std::uint32_t DT_NOCLIP = 0x100;
inline constexpr std::uint32_t DT_EXTERNALLEADING = 0x200;
inline constexpr std::uint32_t DT_CALCRECT = 0x400;
inline constexpr std::uint32_t DT_NOPREFIX = 0x800;
inline constexpr std::uint32_t DT_INTERNAL = 0x1000;
inline constexpr std::uint32_t DT_EDITCONTROL = 0x2000;
inline constexpr std::uint32_t DT_PATH_ELLIPSIS = 0x4000;
inline constexpr std::uint32_t DT_END_ELLIPSIS = 0x8000;
inline constexpr std::uint32_t DT_MODIFYSTRING = 0x10000;
inline constexpr std::uint32_t DT_WORD_ELLIPSIS = 0x40000;
inline constexpr std::uint32_t DT_HIDEPREFIX = 0x100000;
inline constexpr std::uint32_t DT_PREFIXONLY = 0x200000;

/// GetDCEx: the whole window, with its frame and caption.
inline constexpr std::uint32_t DCX_WINDOW = 1;

// DrawIconEx.
inline constexpr std::uint32_t DI_MASK = 1;
inline constexpr std::uint32_t DI_IMAGE = 2;
inline constexpr std::uint32_t DI_NORMAL = 3;
/// A size of 0 stands for that of the system's icons.
inline constexpr std::uint32_t DI_DEFAULTSIZE = 8;

// Icons of the system.
inline constexpr std::uint32_t IDI_APPLICATION = 32512;
inline constexpr std::uint32_t IDI_HAND = 32513;
inline constexpr std::uint32_t IDI_QUESTION = 32514;
inline constexpr std::uint32_t IDI_EXCLAMATION = 32515;
inline constexpr std::uint32_t IDI_ASTERISK = 32516;
inline constexpr std::uint32_t IDI_WINLOGO = 32517;
/// From version 6.0 of the system on.
inline constexpr std::uint32_t IDI_SHIELD = 32518;

// SystemParametersInfoA.
inline constexpr std::uint32_t SPI_GETICONTITLELOGFONT = 31;
inline constexpr std::uint32_t SPI_GETNONCLIENTMETRICS = 41;

/// Sizes in pixels and fonts of frames, captions, menus and messages.
struct NONCLIENTMETRICSA {
    std::uint32_t cbSize = 340;
    std::int32_t iBorderWidth = 0;
    std::int32_t iScrollWidth = 0;
    std::int32_t iScrollHeight = 0;
    std::int32_t iCaptionWidth = 0;
    std::int32_t iCaptionHeight = 0;
    LOGFONTA lfCaptionFont{};
    std::int32_t iSmCaptionWidth = 0;
    std::int32_t iSmCaptionHeight = 0;
    LOGFONTA lfSmCaptionFont{};
    std::int32_t iMenuWidth = 0;
    std::int32_t iMenuHeight = 0;
    LOGFONTA lfMenuFont{};
    LOGFONTA lfStatusFont{};
    LOGFONTA lfMessageFont{};
};
static_assert(sizeof(NONCLIENTMETRICSA) == 340);

/// What an icon is made of.
struct ICONINFO {
    bool fIcon = true;
    std::int32_t xHotspot = 0;
    std::int32_t yHotspot = 0;
    /// Monochrome, set where the icon lets the ground through; twice as high, with the image below, if there is no `hbmColor`.
    Handle hbmMask = 0;
    Handle hbmColor = 0;
};

/// Called when a timer is due, with its number and the time stamp of the message in milliseconds.
using TimerProcedure = std::function<void(std::uint32_t timer, std::uint32_t time)>;

struct User32 : SystemLibrary {
    User32() : SystemLibrary("user32") {}

    /// Shows a message and waits for the answer. A machine without anybody to ask answers at once with IDCANCEL, or IDOK where
    /// there is no choice.
    Operation<std::int32_t(Handle owner, std::string_view text, std::string_view caption, std::uint32_t style)> MessageBoxA{
        *this, "MessageBoxA", 0};

    /// A size or setting of the system by its `SM_` number; 0 for one that is not known.
    Operation<std::int32_t(std::int32_t index)> GetSystemMetrics{*this, "GetSystemMetrics", 0};

    /// A timer of the calling thread; `procedure` runs from its message loop every `milliseconds`. The number is unique among the
    /// running timers of the thread; 0 on failure.
    Operation<std::uint32_t(Handle window, std::uint32_t id, std::uint32_t milliseconds, TimerProcedure procedure)> SetTimer{
        *this, "SetTimer", 0};
    Operation<bool(Handle window, std::uint32_t timer)> KillTimer{*this, "KillTimer", false};

    // ---- windows and their contexts

    Operation<Handle()> GetDesktopWindow{*this, "GetDesktopWindow", 0};
    Operation<bool(Handle window, RECT& area)> GetWindowRect{*this, "GetWindowRect", false};
    /// The context of a window's inside; 0 stands for the screen.
    Operation<Handle(Handle window)> GetDC{*this, "GetDC", 0};
    Operation<Handle(Handle window, Handle region, std::uint32_t flags)> GetDCEx{*this, "GetDCEx", 0};
    Operation<bool(Handle window, Handle hdc)> ReleaseDC{*this, "ReleaseDC", false, givesBack};

    // ---- drawing

    /// A colour of the system by its index, 0 to 30; 0 for others.
    Operation<COLORREF(std::int32_t index)> GetSysColor{*this, "GetSysColor", 0};
    Operation<bool(std::uint32_t action, std::uint32_t parameter, std::span<std::byte> record, std::uint32_t update)>
        SystemParametersInfoA{*this, "SystemParametersInfoA", false};
    Operation<bool(RECT& area, std::int32_t dx, std::int32_t dy)> OffsetRect{*this, "OffsetRect", false};
    Operation<bool(Handle hdc, const RECT& area, Handle brush)> FillRect{*this, "FillRect", false};
    /// Draws the first `length` bytes of `buffer` in a rectangle, or measures them into it. With `DT_MODIFYSTRING` the shortened
    /// text is written back, which can be four bytes longer and then ends with a NUL. The height of the text; 0 on failure.
    Operation<std::int32_t(Handle hdc, std::span<char> buffer, std::int32_t length, RECT& area, std::uint32_t format)> DrawTextA{
        *this, "DrawTextA", 0};

    // ---- icons

    /// One of the system's own, by its resource number, if `module` is 0. It is shared: destroying it does nothing.
    Operation<Handle(Handle module, std::uint32_t resource)> LoadIconA{*this, "LoadIconA", 0};
    Operation<bool(Handle icon)> DestroyIcon{*this, "DestroyIcon", false, givesBack};
    /// Keeps copies of both bitmaps.
    Operation<Handle(const ICONINFO& info)> CreateIconIndirect{*this, "CreateIconIndirect", 0};
    /// Gives new bitmaps, which belong to the caller.
    Operation<bool(Handle icon, ICONINFO& info)> GetIconInfo{*this, "GetIconInfo", false};
    Operation<bool(Handle hdc, std::int32_t x, std::int32_t y, Handle icon, std::int32_t cx, std::int32_t cy, std::uint32_t step,
                   Handle brush, std::uint32_t flags)>
        DrawIconEx{*this, "DrawIconEx", false};
};

/// Of the present machine.
MOX_API User32& user32();

} // namespace mox::platform
