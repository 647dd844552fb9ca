// Message boxes.
#pragma once

#include "automation/objects/export.h"
#include "platform/types.h"

#include <cstdint>
#include <functional>
#include <string_view>

namespace mox::host {

/// Asks whoever sits in front of the machine.
class MOX_API MessageBoxes {
public:
    /// Shows a box and waits; gives the identifier of the button. Texts are bytes of the code page.
    using Presenter =
        std::function<std::int32_t(platform::Handle owner, std::string_view text, std::string_view caption, std::uint32_t style)>;

    /// Set before the machine is used. Empty: nobody is there to answer.
    Presenter presenter;

    /// The presenter's answer. With nobody there, IDOK if the box has no other button, else IDCANCEL.
    std::int32_t show(platform::Handle owner, std::string_view text, std::string_view caption, std::uint32_t style) const;
};

} // namespace mox::host
