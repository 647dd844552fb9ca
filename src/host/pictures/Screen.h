#pragma once

#include "MoxRuntime/Screen.h"

namespace mox::runtime {

/// The screen of the present machine.
class Screen final : public Implements<Screen> {
public:
    Single get_Width() const;
    Single get_Height() const;
    Single get_TwipsPerPixelX() const;
    Single get_TwipsPerPixelY() const;
};

} // namespace mox::runtime
