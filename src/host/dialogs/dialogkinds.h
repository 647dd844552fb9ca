// The kinds of dialogs that can be answered ahead.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>
#include <string_view>

namespace mox::host {

inline constexpr std::string_view confirmDialog = "confirm";
inline constexpr std::string_view messageBoxDialog = "message_box";

/// Checks the reply to a dialog of a kind: a JSON object with the members of that kind, no more and no fewer.
///
///     confirm        {"yes": true or false}
///     message_box    {"button": identifier of a button, 1 to 11}
///
/// Throws `ControlError` that says what is wrong, also for an unknown kind.
void checkReply(std::string_view kind, const nlohmann::json& reply);

} // namespace mox::host
