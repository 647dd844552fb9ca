#include "shell_support.h"

namespace mox::test {

namespace {

using namespace platform;

constexpr std::uint16_t asking = FOF_SILENT | FOF_NOERRORUI;

class ShellQuestionsTest : public ShellTest {
protected:
    void SetUp() override {
        fill({"a", "b", "ro", "sys", "f/a", "f/ro", "t/f/a", "t/f/ro", "t/a", "t/ro"});
        for (const char* name : {"D:\\ro", "D:\\f\\ro", "D:\\t\\f\\ro", "D:\\t\\ro"}) {
            ASSERT_TRUE(kernel32().SetFileAttributesA(name, FILE_ATTRIBUTE_READONLY));
        }
        ASSERT_TRUE(kernel32().SetFileAttributesA("D:\\sys", FILE_ATTRIBUTE_SYSTEM));
    }
};

TEST_F(ShellQuestionsTest, areAskedBeforeAnythingIsLost) {
    const std::string replace = "There is already a file named \"";
    const std::string merge =
        "There is already a folder named \"f\". Files in it with the same names are replaced. Do you want to go on?";
    struct {
        std::uint32_t function;
        const char* from;
        const char* to;
        std::uint16_t flags;
        Names questions;
    } const cases[] = {
        {FO_DELETE, "D:\\a", "", asking, {"Are you sure you want to delete \"a\"?"}},
        {FO_DELETE, "D:\\f\\a|D:\\b", "", asking, {"Are you sure you want to delete these 2 items?"}},
        {FO_DELETE,
         "D:\\ro",
         "",
         asking,
         {"Are you sure you want to delete \"ro\"?", "\"ro\" is a read-only file. Are you sure you want to delete it?"}},
        {FO_DELETE,
         "D:\\sys",
         "",
         asking,
         {"Are you sure you want to delete \"sys\"?", "\"sys\" is a system file. Are you sure you want to delete it?"}},
        {FO_DELETE,
         "D:\\f",
         "",
         asking,
         {"Are you sure you want to delete \"f\"?", "\"ro\" is a read-only file. Are you sure you want to delete it?"}},
        {FO_DELETE,
         "D:\\f",
         "",
         asking | FOF_ALLOWUNDO,
         {"Are you sure you want to move \"f\" to the trash?",
          "\"ro\" is a read-only file. Are you sure you want to delete it?"}},
        {FO_COPY, "D:\\a", "D:\\t", asking, {replace + "a\". Do you want to replace it?"}},
        {FO_MOVE, "D:\\a", "D:\\t", asking, {replace + "a\". Do you want to replace it?"}},
        {FO_COPY,
         "D:\\ro",
         "D:\\t",
         asking,
         {replace + "ro\". Do you want to replace it?", "\"ro\" is a read-only file. Are you sure you want to replace it?"}},
        {FO_COPY, "D:\\f", "D:\\t", asking, {merge, "\"ro\" is a read-only file. Are you sure you want to replace it?"}},
        {FO_MOVE, "D:\\f", "D:\\t", asking, {merge, "\"ro\" is a read-only file. Are you sure you want to replace it?"}},
        {FO_COPY,
         "D:\\a",
         "D:\\new\\deep\\x",
         asking,
         {"The folder \"new\" does not exist. Do you want to create it?",
          "The folder \"deep\" does not exist. Do you want to create it?"}},
        {FO_COPY, "D:\\a", "D:\\new\\deep\\x", asking | FOF_NOCONFIRMMKDIR, {}},
        {FO_COPY, "D:\\a", "D:\\new", asking, {}},
        {FO_MOVE, "D:\\ro", "D:\\new", asking, {}},
        {FO_RENAME, "D:\\ro", "D:\\new", asking, {}},
    };
    std::size_t asked = 0;
    for (const auto& [function, from, to, flags, expected] : cases) {
        // No to each question in turn, then yes to all.
        for (std::size_t yes = 0; yes <= expected.size(); ++yes) {
            SetUp();
            const Names before = tree();
            for (std::size_t i = 0; i < yes; ++i) {
                answer(true);
            }
            const bool isDone = yes == expected.size();
            EXPECT_EQ(operate(function, from, to, flags), isDone ? 0 : 1223) << from << " to " << to;
            Names all = questions();
            all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(asked));
            asked += all.size();
            EXPECT_EQ(
                all, Names(expected.begin(), expected.begin() + static_cast<std::ptrdiff_t>(std::min(yes + 1, expected.size()))));
            if (yes == 0 && !isDone) {
                EXPECT_EQ(tree(), before) << from << " to " << to;
            } else if (isDone) {
                EXPECT_NE(tree(), before) << from << " to " << to;
            }
        }
        SetUp();
        EXPECT_EQ(operate(function, from, to, flags | FOF_NOCONFIRMATION), 0) << from << " to " << to;
        EXPECT_EQ(questions().size(), asked) << from << " to " << to;
    }
}

TEST_F(ShellQuestionsTest, leaveWhatWasDoneBeforeANo) {
    answer(true);
    answer(false);
    EXPECT_EQ(copy("D:\\a|D:\\ro", "D:\\t", asking), 1223);
    EXPECT_EQ(contentsOf(disk() / "t/a"), "a");
    EXPECT_EQ(contentsOf(disk() / "t/ro"), "t/ro");
}

TEST_F(ShellQuestionsTest, showErrorsUnlessTheyAreNotWanted) {
    EXPECT_EQ(copy("D:\\none", "D:\\t", quiet & ~FOF_NOERRORUI), 2);
    const std::vector<host::AskedDialog> asked = machine_->dialogs.asked();
    ASSERT_EQ(asked.size(), 1u);
    EXPECT_EQ(asked[0].kind + " " + asked[0].caption + ": " + asked[0].text,
              "message_box Error Copying File or Folder: Error 2: D:\\none");
    EXPECT_EQ(erase("D:\\a", quiet & ~FOF_NOERRORUI & ~FOF_NOCONFIRMATION), 1223);
    EXPECT_EQ(machine_->dialogs.asked().size(), 2u) << "a no is no error";
}

TEST_F(ShellQuestionsTest, goToThePresenterWithTheOwner) {
    const auto presenter = std::make_shared<NotingPresenter>();
    machine_->dialogs.setPresenter(presenter);
    EXPECT_EQ(erase("D:\\a|D:\\f\\*", asking | FOF_ALLOWUNDO), 0);
    EXPECT_EQ(presenter->shown,
              (Names{"confirm 5 Confirm Multiple File Delete: Are you sure you want to move these 3 items to the trash?",
                     "confirm 5 Confirm File Delete: \"ro\" is a read-only file. Are you sure you want to delete it?"}));
    EXPECT_EQ(presenter->progress, Names{}) << "a silent operation shows none";
}

TEST_F(ShellQuestionsTest, progressIsShownAndCanStop) {
    constexpr std::uint16_t shown = FOF_NOCONFIRMATION | FOF_NOERRORUI;
    struct {
        std::uint32_t function;
        const char* from;
        const char* to;
        std::uint16_t flags;
        Names progress;
    } const cases[] = {
        {FO_COPY, "D:\\t\\f|D:\\a", "D:\\new", shown, {"begin 5 Copying... 4", "0 f", "1 ", "2 ", "3 a", "end"}},
        {FO_MOVE, "D:\\t\\f|D:\\a", "D:\\new", shown, {"begin 5 Moving... 2", "0 f", "1 a", "end"}},
        {FO_DELETE, "D:\\f", "", shown, {"begin 5 Deleting... 3", "0 f", "1 ", "2 ", "end"}},
        {FO_DELETE, "D:\\f|D:\\a", "", shown | FOF_ALLOWUNDO, {"begin 5 Deleting... 2", "0 f", "1 a", "end"}},
    };
    for (const auto& [function, from, to, flags, expected] : cases) {
        SetUp();
        const auto presenter = std::make_shared<NotingPresenter>();
        machine_->dialogs.setPresenter(presenter);
        EXPECT_EQ(operate(function, from, to, flags), 0) << from;
        ASSERT_EQ(presenter->progress.size(), expected.size()) << from;
        for (std::size_t i = 0; i < expected.size(); ++i) { // the order within a folder is the disk's
            EXPECT_TRUE(presenter->progress[i].starts_with(expected[i])) << presenter->progress[i];
        }
        SetUp();
        presenter->stopAt = 0;
        const Names before = tree();
        EXPECT_EQ(operate(function, from, to, flags), 1223) << from;
        std::filesystem::remove(disk() / "new");
        EXPECT_EQ(tree(), before) << from;
    }
}

} // namespace

} // namespace mox::test
