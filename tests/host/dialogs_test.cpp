#include "dialogs_support.h"
#include "support/testmachine.h"

#include "host/dialogs/progress.h"
#include "host/machine/control.h"

#include <mox/values.h>

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace mox::test {

namespace {

using namespace platform;
using nlohmann::json;

constexpr std::uint32_t okCancel = 1;
constexpr std::uint32_t abortRetryIgnore = 2;

TEST(DialogsTest, areDeclinedWithNobodyToAsk) {
    TestMachine machine;
    EXPECT_FALSE(machine->dialogs.confirm(0, "caption", "text"));
    const struct {
        std::uint32_t style;
        std::int32_t button;
    } cases[] = {
        {MB_OK, IDOK},
        {MB_OK | MB_ICONINFORMATION, IDOK},
        {okCancel, IDCANCEL},
        {MB_YESNO | MB_ICONQUESTION, IDCANCEL},
    };
    for (const auto& [style, button] : cases) {
        EXPECT_EQ(user32().MessageBoxA(0, "text", "caption", style), button) << style;
    }
    host::Progress progress(machine->dialogs, 0, "caption", 2);
    EXPECT_TRUE(progress.next("a") && progress.next("b"));
}

TEST(DialogsTest, takeAnswersInTheirOrderBeforeThePresenter) {
    TestMachine machine;
    const auto presenter = std::make_shared<NotingPresenter>();
    presenter->button = IDNO;
    machine->dialogs.setPresenter(presenter);
    machine->dialogs.answer("confirm", {{"yes", false}});
    machine->dialogs.answer("message_box", {{"button", IDYES}});
    machine->dialogs.answer("confirm", {{"yes", true}});
    EXPECT_FALSE(machine->dialogs.confirm(0, "c", "first"));
    EXPECT_TRUE(machine->dialogs.confirm(0, "c", "second"));
    EXPECT_EQ(user32().MessageBoxA(0, "text", "caption", MB_YESNO), IDYES);
    EXPECT_TRUE(presenter->shown.empty());

    presenter->yes = false;
    EXPECT_FALSE(machine->dialogs.confirm(7, "c", "third"));
    EXPECT_EQ(user32().MessageBoxA(8, "t\x80", "c\xE4", MB_YESNO), IDNO);
    EXPECT_EQ(presenter->shown, (std::vector<std::string>{"confirm 7 c: third", "box 8 cä: t€ 4"}));
    machine->dialogs.setPresenter(nullptr);
    EXPECT_EQ(user32().MessageBoxA(0, "text", "caption", MB_YESNO), IDCANCEL);
}

TEST(DialogsTest, useUpAButtonThatTheBoxDoesNotHave) {
    TestMachine machine;
    const struct {
        std::uint32_t style;
        std::int32_t answer, button;
    } cases[] = {
        {MB_YESNO, IDYES, IDYES},
        {MB_YESNO, IDNO, IDNO},
        {MB_YESNO, 1, IDCANCEL},
        {okCancel, IDOK, IDOK},
        {okCancel, IDYES, IDCANCEL},
        {MB_OK, IDCANCEL, IDOK},
        {abortRetryIgnore, 3, 3},
        {abortRetryIgnore, 5, 5},
        {abortRetryIgnore, 6, IDCANCEL},
        {MB_OK | MB_ICONQUESTION, IDOK, IDOK},
        {6, 11, 11},
        {0xF, 1, IDCANCEL},
    };
    for (const auto& [style, answer, button] : cases) {
        machine->dialogs.answer("message_box", {{"button", answer}});
        EXPECT_EQ(user32().MessageBoxA(0, "", "", style), button) << style << ' ' << answer;
    }
    EXPECT_EQ(user32().MessageBoxA(0, "", "", okCancel), IDCANCEL) << "all answers are used up";
}

TEST(DialogsTest, showProgressUntilTheUserStopsIt) {
    TestMachine machine;
    const auto presenter = std::make_shared<NotingPresenter>();
    presenter->stopAt = 1;
    machine->dialogs.setPresenter(presenter);
    {
        host::Progress progress(machine->dialogs, 3, "Working", 5);
        EXPECT_TRUE(progress.next("a"));
        EXPECT_FALSE(progress.next("b"));
        EXPECT_FALSE(progress.next("c")) << "once stopped, it stays so";
    }
    EXPECT_EQ(presenter->progress, (std::vector<std::string>{"begin 3 Working 5", "0 a", "1 b", "end"}));
}

TEST(DialogsTest, keepAThousandOfWhatWasAsked) {
    TestMachine machine;
    std::thread other([&] {
        for (int i = 0; i < 600; ++i) {
            machine->dialogs.confirm(0, "other", "");
        }
    });
    for (int i = 0; i < 600; ++i) {
        machine->dialogs.confirm(0, "this", std::to_string(i));
    }
    other.join();
    machine->dialogs.messageBox(0, "text", "last", MB_OK);
    const std::vector<host::AskedDialog> asked = machine->dialogs.asked();
    ASSERT_EQ(asked.size(), 1000u);
    EXPECT_EQ(asked.back().kind + asked.back().caption + asked.back().text + asked.back().answer,
              R"(message_boxlasttext{"button":1})");
    EXPECT_EQ(asked.front().kind, "confirm");
}

/// The reply, or the text of the error object.
std::string control(const json& request) {
    const String text = String::fromUtf8(request.dump());
    String reply;
    const HRESULT status = MoxControl(text.get(), reply.out());
    Ref<IErrorInfo> error;
    String description;
    if (GetErrorInfo(0, error.out()) == S_OK) {
        error->GetDescription(description.out());
        EXPECT_EQ(status, E_INVALIDARG);
        return description.utf8();
    }
    return reply.utf8();
}

TEST(DialogsTest, areAnsweredAndListedByRequests) {
    TestMachine machine;
    EXPECT_EQ(control({{"do", "answer"}, {"kind", "confirm"}, {"reply", {{"yes", true}}}}), "{}");
    EXPECT_TRUE(machine->dialogs.confirm(0, "cä", "t\"x"));
    EXPECT_EQ(control({{"do", "dialogs"}}),
              R"({"dialogs":[{"answer":{"yes":true},"caption":"cä","kind":"confirm","text":"t\"x"}]})");

    const struct {
        json request;
        const char* error;
    } cases[] = {
        {{{"do", "answer"}}, "the request has no string \"kind\""},
        {{{"do", "answer"}, {"kind", "dance"}, {"reply", json::object()}}, "unknown kind of dialog: dance"},
        {{{"do", "answer"}, {"kind", "confirm"}}, "a reply to confirm needs yes"},
        {{{"do", "answer"}, {"kind", "confirm"}, {"reply", 1}}, "reply: not an object"},
        {{{"do", "answer"}, {"kind", "confirm"}, {"reply", {{"yes", 1}}}}, "yes: not true or false"},
        {{{"do", "answer"}, {"kind", "confirm"}, {"reply", {{"yes", true}, {"no", false}}}},
         "unknown member of a reply to confirm: no"},
        {{{"do", "answer"}, {"kind", "message_box"}, {"reply", {{"button", 12}}}},
         "button: not the identifier of a button, 1 to 11"},
        {{{"do", "answer"}, {"kind", "message_box"}, {"reply", {{"button", 0}}}},
         "button: not the identifier of a button, 1 to 11"},
        {{{"do", "answer"}, {"kind", "message_box"}, {"reply", {{"yes", true}}}},
         "unknown member of a reply to message_box: yes"},
        {{{"do", "answer"}, {"kind", "confirm"}, {"times", 2}}, "unknown member: times"},
        {{{"do", "dialogs"}, {"kind", "confirm"}}, "unknown member: kind"},
    };
    for (const auto& [request, error] : cases) {
        EXPECT_EQ(control(request), error) << request;
    }
    EXPECT_FALSE(machine->dialogs.confirm(0, "", "")) << "nothing that was refused is in the queue";
}

} // namespace

} // namespace mox::test
