// The dialogs of a machine.
#pragma once

#include "automation/objects/export.h"
#include "host/dialogs/presenter.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mox::host {

/// A dialog that was asked.
struct AskedDialog {
    std::string kind;
    std::string caption;
    std::string text;
    /// What came of it: a reply of its kind in JSON.
    std::string answer;
};

/// Asks whoever sits in front of the machine. An answer that was given ahead comes first, then the presenter; with neither, a
/// question is declined at once. What was asked can be read afterwards. Texts are UTF-8. Any thread may use it.
class MOX_API Dialogs {
public:
    Dialogs();
    ~Dialogs();
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;

    /// Who shows dialogs from now on; null: nobody.
    void setPresenter(std::shared_ptr<DialogPresenter> presenter);
    std::shared_ptr<DialogPresenter> presenter() const;

    /// Answers the next dialog of a kind that has no answer yet. Throws `ControlError` for a reply that does not fit the kind.
    void answer(std::string_view kind, const nlohmann::json& reply);
    /// The last dialogs that were asked, a thousand at most, oldest first.
    std::vector<AskedDialog> asked() const;

    /// A question; true for yes, false also with nobody to ask.
    bool confirm(platform::Handle owner, std::string_view caption, std::string_view text);
    /// A message box; gives the identifier of the button. With nobody to ask that is IDOK if the box has no other button, else
    /// IDCANCEL. An answer ahead with a button that the box does not have is used up and counts for nothing.
    std::int32_t messageBox(platform::Handle owner, std::string_view text, std::string_view caption, std::uint32_t style);

private:
    struct State;

    /// Takes the answer that was given ahead.
    std::optional<nlohmann::json> take(std::string_view kind);
    void note(std::string_view kind, std::string_view caption, std::string_view text, const nlohmann::json& answer);

    const std::unique_ptr<State> state_;
};

} // namespace mox::host
