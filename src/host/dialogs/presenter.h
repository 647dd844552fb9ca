// Whoever shows dialogs.
#pragma once

#include "automation/objects/export.h"
#include "platform/types.h"

#include <cstdint>
#include <string_view>

namespace mox::host {

/// Shows dialogs to the user. Texts are UTF-8. The calls come on the thread that asks, and may come on several at once.
class MOX_API DialogPresenter {
public:
    DialogPresenter() = default;
    virtual ~DialogPresenter() = default;
    DialogPresenter(const DialogPresenter&) = delete;
    DialogPresenter& operator=(const DialogPresenter&) = delete;

    /// A question that is answered by yes or no; true for yes.
    virtual bool confirm(platform::Handle owner, std::string_view caption, std::string_view text) = 0;
    /// A message box; gives the identifier of the button.
    virtual std::int32_t messageBox(platform::Handle owner, std::string_view text, std::string_view caption,
                                    std::uint32_t style) = 0;

    // A work that takes long: `begin`, any number of `step`, `end`, all on one thread.

    /// `steps`: how many there will be.
    virtual void begin(platform::Handle owner, std::string_view caption, std::uint64_t steps) = 0;
    /// `done` steps are behind; `text` is what comes now. False if the user wants the work to stop.
    virtual bool step(std::uint64_t done, std::string_view text) = 0;
    virtual void end() = 0;
};

} // namespace mox::host
