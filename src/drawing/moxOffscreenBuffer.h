#pragma once

#include "TRL_OBKR_MOX/moxOffscreenBuffer.h"

#include "platform/types.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;
using MoxRuntime::IPictureDisp;
using MoxRuntime::OLE_COLOR;

/// A bitmap in a memory context. Both belong to the buffer, also while clients draw.
class moxOffscreenBuffer final : public Implements<moxOffscreenBuffer> {
public:
    ~moxOffscreenBuffer() override;

    /// Nothing is repainted before the next `Cls`.
    void put_BackColor(OLE_COLOR value) { BackColor = value; }
    OLE_COLOR get_BackColor() { return BackColor; }
    void Cls();
    Ref<IPictureDisp> CreateOlePicture(Long& xSrc, Long& ySrc, Long& cxSrc, Long& cySrc);
    Long get_CX() { return CX; }
    Long get_CY() { return CY; }
    /// Frees the old bitmap first, so that its content is lost even on failure; the sizes and the colour then stay.
    Boolean Init(Long newCX, Long newCY, OLE_COLOR newBackColor);
    Long get_hBmp() { return hBmp; }
    Long get_hDC() { return hDC; }
    void Render(Long& target, Long& X, Long& Y, Long& targetCX, Long& targetCY, Long& xSrc, Long& ySrc, Long& cxSrc, Long& cySrc);

private:
    void free() noexcept;

    platform::Handle hDC = 0;
    platform::Handle hBmp = 0;
    platform::Handle oldBitmap_ = 0;
    Long CX = 16;
    Long CY = 16;
    OLE_COLOR BackColor = 0xFFFFFF;
};

} // namespace mox::server
