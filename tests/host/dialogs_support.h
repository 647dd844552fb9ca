// Dialogs in tests.
#pragma once

#include "host/dialogs/dialogs.h"
#include "host/dialogs/presenter.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace mox::test {

/// Answers as it is told, and notes what it was shown.
class NotingPresenter final : public host::DialogPresenter {
public:
    bool confirm(platform::Handle owner, std::string_view caption, std::string_view text) override {
        shown.push_back("confirm " + std::to_string(owner) + " " + std::string(caption) + ": " + std::string(text));
        return yes;
    }
    std::int32_t messageBox(platform::Handle owner, std::string_view text, std::string_view caption,
                            std::uint32_t style) override {
        shown.push_back("box " + std::to_string(owner) + " " + std::string(caption) + ": " + std::string(text) + " " +
                        std::to_string(style));
        return button;
    }
    void begin(platform::Handle owner, std::string_view caption, std::uint64_t steps) override {
        progress.push_back("begin " + std::to_string(owner) + " " + std::string(caption) + " " + std::to_string(steps));
    }
    bool step(std::uint64_t done, std::string_view text) override {
        progress.push_back(std::to_string(done) + " " + std::string(text.substr(text.rfind('/') + 1)));
        return done < stopAt;
    }
    void end() override { progress.push_back("end"); }

    bool yes = true;
    std::int32_t button = 1;
    std::uint64_t stopAt = 1'000'000;
    std::vector<std::string> shown;
    std::vector<std::string> progress;
};

} // namespace mox::test
