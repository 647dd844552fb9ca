#include "host/dialogs/dialogs.h"

#include "host/dialogs/dialogkinds.h"

#include "platform/user32.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <utility>

namespace mox::host {

using nlohmann::json;

namespace {

constexpr std::size_t mostAsked = 1000;

/// True if a message box of that style has the button.
bool hasButton(std::uint32_t style, std::int32_t button) {
    // By the style: bit n for the button n.
    constexpr auto set = [](auto... buttons) { return ((1U << buttons) | ...); };
    constexpr std::array<unsigned, 7> buttonsOfStyle{
        set(1), set(1, 2), set(3, 4, 5), set(2, 6, 7), set(6, 7), set(2, 4), set(2, 10, 11),
    };
    constexpr std::uint32_t kind = 0xF;
    const std::uint32_t index = style & kind;
    return index < buttonsOfStyle.size() && button > 0 && button < 32 && ((buttonsOfStyle[index] >> button) & 1U) != 0;
}

std::int32_t buttonOfNobody(std::uint32_t style) {
    constexpr std::uint32_t kind = 0xF;
    return (style & kind) == platform::MB_OK ? platform::IDOK : platform::IDCANCEL;
}

} // namespace

struct Dialogs::State {
    std::mutex guard;
    std::shared_ptr<DialogPresenter> presenter;
    std::map<std::string, std::deque<json>, std::less<>> answers;
    std::deque<AskedDialog> asked;
};

Dialogs::Dialogs() : state_(std::make_unique<State>()) {}

Dialogs::~Dialogs() = default;

void Dialogs::setPresenter(std::shared_ptr<DialogPresenter> presenter) {
    const std::lock_guard lock(state_->guard);
    state_->presenter.swap(presenter);
}

std::shared_ptr<DialogPresenter> Dialogs::presenter() const {
    const std::lock_guard lock(state_->guard);
    return state_->presenter;
}

void Dialogs::answer(std::string_view kind, const json& reply) {
    checkReply(kind, reply);
    const std::lock_guard lock(state_->guard);
    state_->answers[std::string(kind)].push_back(reply);
}

std::vector<AskedDialog> Dialogs::asked() const {
    const std::lock_guard lock(state_->guard);
    return {state_->asked.begin(), state_->asked.end()};
}

bool Dialogs::confirm(platform::Handle owner, std::string_view caption, std::string_view text) {
    bool yes = false;
    if (const std::optional<json> reply = take(confirmDialog)) {
        yes = reply->at("yes").get<bool>();
    } else if (const std::shared_ptr<DialogPresenter> shown = presenter()) {
        yes = shown->confirm(owner, caption, text);
    }
    note(confirmDialog, caption, text, {{"yes", yes}});
    return yes;
}

std::int32_t Dialogs::messageBox(platform::Handle owner, std::string_view text, std::string_view caption, std::uint32_t style) {
    std::int32_t button = buttonOfNobody(style);
    if (const std::optional<json> reply = take(messageBoxDialog)) {
        const auto wanted = reply->at("button").get<std::int32_t>();
        button = hasButton(style, wanted) ? wanted : button;
    } else if (const std::shared_ptr<DialogPresenter> shown = presenter()) {
        button = shown->messageBox(owner, text, caption, style);
    }
    note(messageBoxDialog, caption, text, {{"button", button}});
    return button;
}

std::optional<json> Dialogs::take(std::string_view kind) {
    const std::lock_guard lock(state_->guard);
    const auto answers = state_->answers.find(kind);
    if (answers == state_->answers.end() || answers->second.empty()) {
        return std::nullopt;
    }
    json reply = std::move(answers->second.front());
    answers->second.pop_front();
    return reply;
}

void Dialogs::note(std::string_view kind, std::string_view caption, std::string_view text, const json& answer) {
    AskedDialog dialog{std::string(kind), std::string(caption), std::string(text), answer.dump()};
    const std::lock_guard lock(state_->guard);
    state_->asked.push_back(std::move(dialog));
    if (state_->asked.size() > mostAsked) {
        state_->asked.pop_front();
    }
}

} // namespace mox::host
