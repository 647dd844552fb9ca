// Every operation under the shared procedures fails in turn.
#include "modmoxhub_support.h"

#include "support/faultsweep.h"

#include "automation/objects/runtimeerror.h"
#include "platform/kernel32.h"
#include "platform/shell32.h"

#include <algorithm>

namespace mox::test {

namespace {

using namespace server::modMoxHub;

std::filesystem::path systemDrive(FaultRun& run) {
    return run.machine()->files.drives().at('C');
}

bool hasTemporaryFiles(FaultRun& run) {
    std::error_code error;
    return !std::filesystem::is_empty(systemDrive(run) / "Temp", error) && !error;
}

/// The desktop's answer is the test's; it can fail like any other operation.
void giveProgram(FaultRun& run, std::string_view program) {
    run.machine()->shell32.FindExecutableA = [program](std::string_view, std::string_view, std::span<char> place) {
        *std::ranges::copy(program, place.begin()).out = '\0';
        return 42;
    };
}

TEST(ModMoxHubFaultsTest, GetShortPath) {
    sweepFaults([](FaultRun& run) {
        // The one procedure that lets an error through.
        try {
            const String path = GetShortPath(u"C:\\WINDOWS\\Fonts");
            EXPECT_TRUE(path == u"C:\\Windows\\Fonts" || (run.faulted() && path.empty())) << path.utf8();
        } catch (const RuntimeError& error) {
            EXPECT_TRUE(run.faulted());
            EXPECT_EQ(error.number(), errOutOfMemory);
        }
    });
}

TEST(ModMoxHubFaultsTest, FileExists) {
    sweepFaults([](FaultRun& run) {
        EXPECT_TRUE(FileExists(u"C:\\Windows\\Fonts") == True || run.faulted());
        EXPECT_EQ(FileExists(u"C:\\Windows\\missing"), False);
    });
}

TEST(ModMoxHubFaultsTest, FolderExists) {
    sweepFaults([](FaultRun& run) {
        EXPECT_TRUE(FolderExists(u"C:\\Windows") == True || run.faulted());
        EXPECT_TRUE(FolderExists(u"C") == True || run.faulted());
        EXPECT_EQ(FolderExists(u"C:\\missing"), False);
        EXPECT_EQ(FolderExists(u"Q"), False);
    });
}

TEST(ModMoxHubFaultsTest, CreateFolderTree) {
    sweepFaults([](FaultRun& run) {
        const Boolean result = CreateFolderTree(u"C:\\Temp\\a\\b");
        const bool isMade = std::filesystem::is_directory(systemDrive(run) / "Temp/a/b");
        EXPECT_TRUE(result == True ? isMade : run.faulted());
    });
}

TEST(ModMoxHubFaultsTest, CreateTempName) {
    sweepFaults([](FaultRun& run) {
        const String name = CreateTempName(u"~", u"tmp", String(), True);
        if (name.empty()) {
            EXPECT_TRUE(run.faulted());
            EXPECT_FALSE(hasTemporaryFiles(run)) << "no file without its name";
        } else {
            const auto place = run.machine()->files.resolve(name.utf8());
            EXPECT_TRUE(place && std::filesystem::exists(*place)) << name.utf8();
            EXPECT_TRUE(run.faulted() || name.view().starts_with(u"C:\\Temp\\~")) << name.utf8();
        }
    });
}

TEST(ModMoxHubFaultsTest, GetExeOfFile) {
    sweepFaults([](FaultRun& run) {
        giveProgram(run, "C:\\WINDOWS");
        const String program = GetExeOfFile(u"C:\\x.txt", False);
        EXPECT_TRUE(program == u"C:\\WINDOWS" || (run.faulted() && program.empty())) << program.utf8();
        const String shortProgram = GetExeOfFile(u"C:\\x.txt", True);
        EXPECT_TRUE(shortProgram == u"C:\\Windows" || (run.faulted() && shortProgram.empty())) << shortProgram.utf8();
    });
}

TEST(ModMoxHubFaultsTest, GetExeOfExtension) {
    sweepFaults([](FaultRun& run) {
        giveProgram(run, "C:\\Windows");
        const String program = GetExeOfExtension(u"txt");
        EXPECT_TRUE(program == u"C:\\Windows" || (run.faulted() && program.empty())) << program.utf8();
        EXPECT_TRUE(run.faulted() || !hasTemporaryFiles(run));
    });
}

TEST(ModMoxHubFaultsTest, GetDiskSpace) {
    sweepFaults([](FaultRun& run) {
        Double total = 0;
        Double used = 0;
        Double free = 0;
        Double available = -1;
        if (GetDiskSpace(u"C", total, used, free, available) == True) {
            EXPECT_GT(total, 0);
            EXPECT_LE(free, total);
            EXPECT_TRUE(available >= 0 || run.faulted());
        } else {
            EXPECT_TRUE(run.faulted());
            EXPECT_EQ(total + used + free + available, -1);
        }
    });
}

} // namespace

} // namespace mox::test
