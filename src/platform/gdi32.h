// gdi32: device contexts and what is drawn into them.
#pragma once

#include "platform/gditypes.h"
#include "platform/operation.h"

#include <string_view>
#include <vector>

namespace mox::platform {

/// Called for each font and character set of a listing; 0 ends the listing.
using FontFamilyProcedure = std::function<std::int32_t(const LOGFONTA& font, const TEXTMETRICA& metrics, std::uint32_t fontType)>;

/// Coordinates are in logical units of the device context, which are pixels unless a mapping says otherwise.
struct Gdi32 : SystemLibrary {
    Gdi32() : SystemLibrary("gdi32") {}

    // ---- device contexts

    /// "DISPLAY" is the screen.
    Operation<Handle(std::string_view driver, std::string_view device, std::string_view port,
                     std::span<const std::byte> deviceMode)>
        CreateDCA{*this, "CreateDCA", 0};
    /// A memory context with a monochrome bitmap of one pixel, as that context; 0 stands for the screen.
    Operation<Handle(Handle hdc)> CreateCompatibleDC{*this, "CreateCompatibleDC", 0};
    Operation<bool(Handle hdc)> DeleteDC{*this, "DeleteDC", false, givesBack};
    /// The number of the saved state, from 1; 0 on failure.
    Operation<std::int32_t(Handle hdc)> SaveDC{*this, "SaveDC", 0};
    /// Goes back to a saved state by its number, or below 0 by its distance from the present one.
    Operation<bool(Handle hdc, std::int32_t saved)> RestoreDC{*this, "RestoreDC", false, givesBack};
    Operation<std::int32_t(Handle hdc, std::int32_t index)> GetDeviceCaps{*this, "GetDeviceCaps", 0};

    // ---- objects

    /// The object of the same kind that was selected before; 0 on failure.
    Operation<Handle(Handle hdc, Handle object)> SelectObject{*this, "SelectObject", 0, givesBack};
    /// False for a bitmap that is selected. Stock objects stay; the answer for them is true.
    Operation<bool(Handle object)> DeleteObject{*this, "DeleteObject", false, givesBack};
    /// Fills a BITMAP, LOGPEN, LOGBRUSH or LOGFONTA, by the kind of the object. The number of bytes filled; 0 on failure.
    Operation<std::int32_t(Handle object, std::span<std::byte> record)> GetObjectA{*this, "GetObjectA", 0};
    Operation<Handle(std::int32_t index)> GetStockObject{*this, "GetStockObject", 0};

    Operation<Handle(std::int32_t style, std::int32_t width, COLORREF color)> CreatePen{*this, "CreatePen", 0};
    Operation<Handle(COLORREF color)> CreateSolidBrush{*this, "CreateSolidBrush", 0};
    /// A brush keeps a copy of its pattern.
    Operation<Handle(const LOGBRUSH& brush)> CreateBrushIndirect{*this, "CreateBrushIndirect", 0};

    // ---- bitmaps

    Operation<Handle(Handle hdc, std::int32_t cx, std::int32_t cy)> CreateCompatibleBitmap{*this, "CreateCompatibleBitmap", 0};
    /// `bits` may be empty; the bitmap is then zeroed. Rows from the top down, each at an even number of bytes.
    Operation<Handle(std::int32_t cx, std::int32_t cy, std::uint32_t planes, std::uint32_t bitsPerPixel,
                     std::span<const std::byte> bits)>
        CreateBitmap{*this, "CreateBitmap", 0};
    /// `bits` are the pixels, which live as long as the bitmap.
    Operation<Handle(Handle hdc, const BITMAPINFO& info, std::uint32_t usage, std::byte*& bits)> CreateDIBSection{
        *this, "CreateDIBSection", 0};
    /// Rows of a bitmap, counted from the bottom, in the format of `info`; the number of rows. Without `bits` it only fills in
    /// `info`.
    Operation<std::int32_t(Handle hdc, Handle bitmap, std::uint32_t start, std::uint32_t lines, std::span<std::byte> bits,
                           BITMAPINFO& info, std::uint32_t usage)>
        GetDIBits{*this, "GetDIBits", 0};

    Operation<bool(Handle hdc, std::int32_t x, std::int32_t y, std::int32_t cx, std::int32_t cy, Handle source,
                   std::int32_t xSource, std::int32_t ySource, std::uint32_t rop)>
        BitBlt{*this, "BitBlt", false};
    Operation<bool(Handle hdc, std::int32_t x, std::int32_t y, std::int32_t cx, std::int32_t cy, Handle source,
                   std::int32_t xSource, std::int32_t ySource, std::int32_t cxSource, std::int32_t cySource, std::uint32_t rop)>
        StretchBlt{*this, "StretchBlt", false};
    Operation<std::int32_t(Handle hdc)> GetStretchBltMode{*this, "GetStretchBltMode", 0};
    /// The mode before; 0 on failure.
    Operation<std::int32_t(Handle hdc, std::int32_t mode)> SetStretchBltMode{*this, "SetStretchBltMode", 0};
    /// `CLR_INVALID` outside the surface or the clipping.
    Operation<COLORREF(Handle hdc, std::int32_t x, std::int32_t y)> GetPixel{*this, "GetPixel", CLR_INVALID};
    /// The colour that was really set; `CLR_INVALID` on failure.
    Operation<COLORREF(Handle hdc, std::int32_t x, std::int32_t y, COLORREF color)> SetPixel{*this, "SetPixel", CLR_INVALID};

    // ---- modes and colours; the answer is what was set before, 0 or `CLR_INVALID` on failure

    Operation<std::int32_t(Handle hdc)> GetROP2{*this, "GetROP2", 0};
    Operation<std::int32_t(Handle hdc, std::int32_t mode)> SetROP2{*this, "SetROP2", 0};
    Operation<std::int32_t(Handle hdc)> GetBkMode{*this, "GetBkMode", 0};
    Operation<std::int32_t(Handle hdc, std::int32_t mode)> SetBkMode{*this, "SetBkMode", 0};
    Operation<COLORREF(Handle hdc)> GetBkColor{*this, "GetBkColor", CLR_INVALID};
    Operation<COLORREF(Handle hdc, COLORREF color)> SetBkColor{*this, "SetBkColor", CLR_INVALID};
    Operation<COLORREF(Handle hdc)> GetTextColor{*this, "GetTextColor", CLR_INVALID};
    Operation<COLORREF(Handle hdc, COLORREF color)> SetTextColor{*this, "SetTextColor", CLR_INVALID};
    Operation<bool(Handle hdc, std::int32_t x, std::int32_t y, POINT& before)> SetBrushOrgEx{*this, "SetBrushOrgEx", false};

    // ---- lines and areas

    Operation<bool(Handle hdc, std::int32_t x, std::int32_t y, POINT& before)> MoveToEx{*this, "MoveToEx", false};
    Operation<bool(Handle hdc, POINT& position)> GetCurrentPositionEx{*this, "GetCurrentPositionEx", false};
    /// Draws up to, but without, the end, which becomes the current position.
    Operation<bool(Handle hdc, std::int32_t x, std::int32_t y)> LineTo{*this, "LineTo", false};
    /// The right and the lower edge are left out.
    Operation<bool(Handle hdc, std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom)> Rectangle{
        *this, "Rectangle", false};

    // ---- text

    Operation<Handle(std::int32_t height, std::int32_t width, std::int32_t escapement, std::int32_t orientation,
                     std::int32_t weight, std::uint32_t italic, std::uint32_t underline, std::uint32_t strikeOut,
                     std::uint32_t charSet, std::uint32_t outPrecision, std::uint32_t clipPrecision, std::uint32_t quality,
                     std::uint32_t pitchAndFamily, std::string_view faceName)>
        CreateFontA{*this, "CreateFontA", 0};
    Operation<bool(Handle hdc, std::int32_t x, std::int32_t y, std::string_view text)> TextOutA{*this, "TextOutA", false};
    /// The size of a line of text without its angle, in logical units.
    Operation<bool(Handle hdc, std::string_view text, SIZE& size)> GetTextExtentPoint32A{*this, "GetTextExtentPoint32A", false};
    Operation<bool(Handle hdc, TEXTMETRICA& metrics)> GetTextMetricsA{*this, "GetTextMetricsA", false};
    /// Lists fonts by face name and character set of `font`: an empty name stands for one font of each name, `DEFAULT_CHARSET`
    /// for all character sets. The last answer of the procedure.
    Operation<std::int32_t(Handle hdc, const LOGFONTA& font, FontFamilyProcedure procedure)> EnumFontFamiliesExA{
        *this, "EnumFontFamiliesExA", 0};

    // ---- metafiles

    /// A context that records. `frame` in hundredths of a millimetre; an empty one is found from what is drawn.
    Operation<Handle(Handle reference, std::string_view file, const RECT& frame, std::string_view description)>
        CreateEnhMetaFileA{*this, "CreateEnhMetaFileA", 0};
    /// Ends the recording and its context.
    Operation<Handle(Handle hdc)> CloseEnhMetaFile{*this, "CloseEnhMetaFile", 0};
    /// Plays into a rectangle; the frame of the metafile is its picture. True if every record was played.
    Operation<bool(Handle hdc, Handle metafile, const RECT& area)> PlayEnhMetaFile{*this, "PlayEnhMetaFile", false};
    Operation<bool(Handle metafile)> DeleteEnhMetaFile{*this, "DeleteEnhMetaFile", false, givesBack};
    /// Copies the records into `bits`, or tells their size if it is empty; 0 on failure.
    Operation<std::uint32_t(Handle metafile, std::span<std::byte> bits)> GetEnhMetaFileBits{*this, "GetEnhMetaFileBits", 0};
    Operation<Handle(std::span<const std::byte> bits)> SetEnhMetaFileBits{*this, "SetEnhMetaFileBits", 0};
    /// The same of old-style metafiles.
    Operation<std::uint32_t(Handle metafile, std::span<std::byte> bits)> GetMetaFileBitsEx{*this, "GetMetaFileBitsEx", 0};
    Operation<Handle(std::span<const std::byte> bits)> SetMetaFileBitsEx{*this, "SetMetaFileBitsEx", 0};
    Operation<bool(Handle metafile)> DeleteMetaFile{*this, "DeleteMetaFile", false, givesBack};
    /// Converts an old-style metafile. The size of its picture is that of the reference device, 0 for the screen.
    Operation<Handle(std::span<const std::byte> bits, Handle reference)> SetWinMetaFileBits{*this, "SetWinMetaFileBits", 0};
};

/// Of the present machine.
MOX_API Gdi32& gdi32();

} // namespace mox::platform
