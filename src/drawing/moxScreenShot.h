#pragma once

#include "TRL_OBKR_MOX/moxScreenShot.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;
using MoxRuntime::IPictureDisp;

/// Copies of the screen and of windows. What fails on the way shows in the copy only.
class moxScreenShot final : public Implements<moxScreenShot> {
public:
    Ref<_moxOffscreenBuffer> OffscreenBufferFromDesktop(Long X, Long Y, Long CX, Long CY);
    Ref<_moxOffscreenBuffer> OffscreenBufferFromWindow(Long hWnd);
    Ref<IPictureDisp> PictureFromWindow(Long hWnd);
    Ref<IPictureDisp> PictureFromDesktop(Long X, Long Y, Long CX, Long CY);
};

} // namespace mox::server
