// Version, edition and metrics of the system.
#include "support/testmachine.h"

#include <gtest/gtest.h>

namespace mox::test {

namespace {

using namespace platform;

TEST(SystemVersionTest, fillsTheRecordOfTheSizeThatIsAskedFor) {
    host::MachineConfig config;
    config.windows = {6, 0, 6002, 2, "Service Pack 2", 3, 0x12345};
    TestMachine machine(config);
    OSVERSIONINFOEXA record;
    for (const std::uint32_t size : {0u, 147u, 149u, 155u, 157u}) {
        record.dwOSVersionInfoSize = size;
        EXPECT_FALSE(machine->kernel32.GetVersionExA(record)) << size;
        EXPECT_EQ(record.dwMajorVersion, 0u);
    }
    record.dwOSVersionInfoSize = 148;
    EXPECT_TRUE(machine->kernel32.GetVersionExA(record));
    EXPECT_EQ(record.dwMajorVersion, 6u);
    EXPECT_EQ(record.dwBuildNumber, 6002u);
    EXPECT_EQ(record.dwPlatformId, 2u);
    EXPECT_EQ(record.szCSDVersion, "Service Pack 2");
    EXPECT_EQ(record.wServicePackMajor, 0) << "not in the short record";
    EXPECT_EQ(record.wProductType, 0);
    record.dwOSVersionInfoSize = 156;
    EXPECT_TRUE(machine->kernel32.GetVersionExA(record));
    EXPECT_EQ(record.wServicePackMajor, 2);
    EXPECT_EQ(record.wServicePackMinor, 0);
    EXPECT_EQ(record.wSuiteMask, 0x2345);
    EXPECT_EQ(record.wProductType, 3);
}

TEST(SystemVersionTest, knowsTheExtendedRecordOnNewerSystemsOnly) {
    struct Row {
        host::WindowsVersion windows;
        bool isKnown;
        std::uint16_t servicePack = 0;
    };
    const Row rows[] = {
        {{4, 10, 2222, 1, " A "}, false},
        {{3, 51, 0, 2, "Service Pack 6"}, false},
        {{4, 0, 1381, 2, "Service Pack 5"}, false},
        {{4, 0, 1381, 2, "Service Pack 6"}, true, 6},
        {{5, 0, 2195, 2, ""}, true},
        {{5, 1, 2600, 2, "SP 2, v.12"}, true, 12},
        {{5, 1, 2600, 2, "3 packs"}, true, 3},
        {{6, 1, 7601, 2, "Service Pack"}, true},
    };
    for (const Row& row : rows) {
        host::MachineConfig config;
        config.windows = row.windows;
        TestMachine machine(config);
        OSVERSIONINFOEXA record;
        record.dwOSVersionInfoSize = 156;
        EXPECT_EQ(machine->kernel32.GetVersionExA(record), row.isKnown) << row.windows.serviceText;
        EXPECT_EQ(record.wServicePackMajor, row.servicePack) << row.windows.serviceText;
        record.dwOSVersionInfoSize = 148;
        EXPECT_TRUE(machine->kernel32.GetVersionExA(record));
    }
}

TEST(SystemVersionTest, tellsTheProduct) {
    struct Row {
        host::WindowsVersion windows;
        std::optional<std::uint32_t> configured;
        bool isKnown;
        std::uint32_t type;
    };
    const Row rows[] = {
        {{6, 1, 7601, 2, "", 1}, {}, true, 48}, {{6, 0, 6002, 2, "", 1}, {}, true, 6},
        {{6, 2, 9200, 2, "", 1}, {}, true, 48}, {{6, 1, 7601, 2, "", 3}, {}, true, 7},
        {{6, 1, 7601, 2, "", 1}, 0, true, 0},   {{6, 1, 7601, 2, "", 1}, 0xABCDABCD, true, 0xABCDABCD},
        {{5, 2, 3790, 2, "", 3}, 7, false, 0},
    };
    for (const Row& row : rows) {
        host::MachineConfig config;
        config.windows = row.windows;
        config.productInfo = row.configured;
        TestMachine machine(config);
        std::uint32_t type = 99;
        EXPECT_EQ(machine->kernel32.GetProductInfo(row.windows.major, row.windows.minor, 0, 0, type), row.isKnown);
        EXPECT_EQ(type, row.type);
        type = 99;
        EXPECT_FALSE(machine->kernel32.GetProductInfo(5, 2, 0, 0, type)) << "in the name of a system that had none";
        EXPECT_EQ(type, 0u);
    }
}

TEST(SystemVersionTest, hasMetrics) {
    host::MachineConfig config;
    config.metrics = {{87, 1}, {1, 600}, {200, -3}};
    TestMachine machine(config);
    const std::pair<std::int32_t, std::int32_t> rows[] = {{0, 1024}, {1, 600}, {67, 0}, {87, 1}, {89, 0}, {200, -3}, {-1, 0}};
    for (const auto& [index, value] : rows) {
        EXPECT_EQ(machine->user32.GetSystemMetrics(index), value) << index;
    }
}

} // namespace

} // namespace mox::test
