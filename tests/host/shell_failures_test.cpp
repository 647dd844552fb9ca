// What a disk refuses.
#include "shell_support.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace mox::test {

namespace {

using namespace platform;

class ShellFailuresTest : public OtherDiskTest {
protected:
    void SetUp() override {
        if (hasOtherDisk()) {
            OtherDiskTest::SetUp();
        }
    }

    /// As somebody who may not write where the test may not: the rights of nobody for a superuser.
    int asNobody(const std::function<int()>& body) {
        return inChild([&] {
            constexpr uid_t nobody = 65534;
            return geteuid() == 0 && (setegid(nobody) != 0 || seteuid(nobody) != 0) ? 99 : body();
        });
    }
    void openFor(const std::filesystem::path& path) { // the way to the disk is open to all
        std::filesystem::permissions(path, std::filesystem::perms{0777});
    }
};

TEST_F(ShellFailuresTest, withoutRightsNothingIsTouched) {
    fill({"closed/a", "closed/sub/b", "open/c", "open/locked/d"});
    openFor(disk());
    openFor(disk() / "open");
    openFor(disk() / "open/c");
    struct {
        std::uint32_t function;
        const char* from;
        const char* to;
    } const cases[] = {
        {FO_DELETE, "D:\\closed\\a", ""},
        {FO_DELETE, "D:\\closed\\*", ""},
        {FO_DELETE, "D:\\closed\\sub", ""},
        {FO_COPY, "D:\\open\\c", "D:\\closed"},
        {FO_MOVE, "D:\\open\\c", "D:\\closed"},
        {FO_MOVE, "D:\\closed\\a", "D:\\open"},
        {FO_RENAME, "D:\\closed\\a", "D:\\closed\\z"},
        {FO_COPY, "D:\\open\\c", "D:\\closed\\new\\deep\\x"},
        {FO_DELETE, "D:\\open\\locked", ""},
    };
    const Names before = tree();
    for (const auto& [function, from, to] : cases) {
        for (const std::uint16_t flags : {quiet, static_cast<std::uint16_t>(quiet | FOF_ALLOWUNDO)}) {
            EXPECT_EQ(asNobody([&] { return operate(function, from, to, flags); }), 5) << from << " to " << to;
            EXPECT_EQ(tree(), before) << from << " to " << to;
        }
    }
    std::filesystem::permissions(disk() / "closed", std::filesystem::perms::none);
    EXPECT_EQ(asNobody([&] { return copy("D:\\closed", "D:\\open"); }), 5);
    EXPECT_EQ(asNobody([&] { return erase("D:\\closed\\*"); }), 5);
    std::filesystem::permissions(disk() / "closed", std::filesystem::perms{0755});
    EXPECT_EQ(tree(), before) << "no folder without its contents";
}

TEST_F(ShellFailuresTest, aFullDiskLeavesNoHalfFile) {
    makeFile("f/a", "small");
    makeFile("f/big", std::string(200'000, 'x'));
    makeFile("t/big", "old");
    const auto onFullDisk = [&](const std::function<int()>& body) {
        return inChild([&] {
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{100'000, 100'000};
            return setrlimit(RLIMIT_FSIZE, &limit) != 0 ? 99 : body();
        });
    };
    const std::string big = "big " + std::string(200'000, 'x');
    EXPECT_EQ(onFullDisk([&] { return copy("D:\\f\\big", "D:\\new"); }), 112);
    EXPECT_EQ(onFullDisk([&] { return copy("D:\\f\\big", "D:\\t"); }), 112);
    EXPECT_TRUE(tree() == (Names{"f/", "f/a small", "f/" + big, "t/", "t/big old"}));
    if (other_) {
        EXPECT_EQ(onFullDisk([&] { return move("D:\\f", otherPath("")); }), 112);
        EXPECT_TRUE(treeOf(disk() / "f") == (Names{"a small", big})) << "the source is whole";
        EXPECT_FALSE(std::filesystem::exists(other() / "f/big"));
    }
}

/// Takes a file away before its turn.
class VanishingPresenter final : public host::DialogPresenter {
public:
    explicit VanishingPresenter(std::filesystem::path file) : file_(std::move(file)) {}
    bool confirm(Handle, std::string_view, std::string_view) override { return true; }
    std::int32_t messageBox(Handle, std::string_view, std::string_view, std::uint32_t) override { return IDOK; }
    void begin(Handle, std::string_view, std::uint64_t) override {}
    bool step(std::uint64_t, std::string_view) override {
        std::filesystem::remove(file_);
        return true;
    }
    void end() override {}

private:
    std::filesystem::path file_;
};

TEST_F(ShellFailuresTest, aSourceThatVanishesEndsTheOperation) {
    constexpr std::uint16_t shown = FOF_NOCONFIRMATION | FOF_NOERRORUI;
    for (const std::uint32_t function : {FO_COPY, FO_MOVE, FO_DELETE}) {
        fill({"a", "b", "c", "t/"});
        machine_->dialogs.setPresenter(std::make_shared<VanishingPresenter>(disk() / "b"));
        EXPECT_EQ(operate(function, "D:\\a|D:\\b|D:\\c", function == FO_DELETE ? "" : "D:\\t", shown), 2) << function;
        EXPECT_EQ(contentsOf(disk() / "c"), "c") << function;
        EXPECT_EQ(treeOf(disk() / "t"), function == FO_DELETE ? Names{} : Names{"a a"}) << function;
    }
}

TEST_F(ShellFailuresTest, pipesAreMovedButNotCopied) {
    fill({"t/"});
    ASSERT_EQ(mkfifo((disk() / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(copy("D:\\pipe", "D:\\t"), 50);
    EXPECT_EQ(move("D:\\pipe", "D:\\t"), 0);
    EXPECT_EQ(erase("D:\\t\\pipe"), 0);
}

} // namespace

} // namespace mox::test
