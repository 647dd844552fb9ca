// What the drawing classes share: pictures from handles and contexts, copies with transparency, contexts for one call.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include "platform/gditypes.h"

#include <mox/values.h>

namespace mox::server {

using namespace TRL_OBKR_MOX;
using MoxRuntime::IPictureDisp;
using platform::Handle;

/// A memory context for one call, compatible with another one, with an object selected that it does not own.
class MemoryContext {
public:
    MemoryContext(Handle compatibleWith, Handle object);
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    /// Selects the old object back.
    ~MemoryContext();

    Handle handle() const noexcept { return handle_; }

private:
    const Handle handle_;
    const Handle before_;
};

/// A bitmap of its own in a memory context, for one call.
class MemoryBitmap {
public:
    /// As the pixels of `compatibleWith`.
    MemoryBitmap(Handle compatibleWith, Long cx, Long cy);
    /// With one bit a pixel.
    static MemoryBitmap monochrome(Handle compatibleWith, Long cx, Long cy);
    ~MemoryBitmap();
    MemoryBitmap(const MemoryBitmap&) = delete;
    MemoryBitmap& operator=(const MemoryBitmap&) = delete;

    Handle handle() const noexcept { return context_; }
    /// Ends the context and gives the bitmap to the caller.
    Handle take();

private:
    struct Made {
        Handle context = 0;
        Handle bitmap = 0;
    };
    explicit MemoryBitmap(Made made);

    void endContext() noexcept;

    Handle context_;
    Handle bitmap_;
    const Handle before_;
};

/// A target's stretch mode while something is stretched: as good as the system has it, or another one.
class StretchMode {
public:
    explicit StretchMode(Handle hdc);
    StretchMode(Handle hdc, Long mode);
    StretchMode(const StretchMode&) = delete;
    StretchMode& operator=(const StretchMode&) = delete;
    ~StretchMode();

private:
    const Handle hdc_;
    const Long before_;
};

/// The best mode that the system has.
Long bestStretchMode();

namespace modDrawing {

/// A picture that owns the handle, or Nothing. The handle then stays the caller's.
Ref<IPictureDisp> PictureFromHandle(Handle hHandle, Long hPal, bool bIcon);
/// A picture with a copy of that part of a context.
Ref<IPictureDisp> PictureFromDC(Handle hDC, Long X, Long Y, Long CX, Long CY);

/// Draws a part of a bitmap picture, stretched where the sizes differ. False after an error, and for other pictures.
Boolean BlitBitmap(IPictureDisp* objPicture, Handle hDC, Long X, Long Y, Long CX, Long CY, Long xSrc, Long ySrc, Long cxSrc,
                   Long cySrc, Boolean bTransparent, Long TransparentColor);
/// Mixes a part of a context into another one. `AlphaTransparency` is 0 for opaque, 255 for invisible. Errors are silent.
void AlphaBlit(Handle hDC, Long X, Long Y, Long CX, Long CY, Handle hDCSrc, Long xSrc, Long ySrc, Long cxSrc, Long cySrc,
               Byte AlphaTransparency, Boolean bTransparent, Long TransparentColor);

} // namespace modDrawing

/// The size in pixels in which a picture is drawn if nobody asks for another one.
Size naturalSize(IPictureDisp* picture);

} // namespace mox::server
