#include "registry_support.h"
#include "support/faultsweep.h"
#include "support/testmachine.h"

namespace mox::test {

namespace {

using namespace platform;

constexpr HKEY user = HKEY_CURRENT_USER;

std::string everyByte() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) {
        bytes += static_cast<char>(i);
    }
    return bytes;
}

TEST(RegistryValuesTest, keepTypeAndBytes) {
    const TypedBytes values[] = {
        {REG_NONE, ""},
        {REG_SZ, "without a NUL"},
        {REG_SZ, std::string("with a NUL\0", 11)},
        {REG_SZ, ""},
        {REG_SZ, everyByte()},
        {REG_EXPAND_SZ, "%TEMP%\\\x81\x8D"},
        {REG_BINARY, everyByte()},
        {REG_BINARY, ""},
        {REG_DWORD, std::string("\xFF\0\0\0", 4)},
        {REG_DWORD_BIG_ENDIAN, std::string("\0\0\0\xFF", 4)},
        {REG_LINK, "l"},
        {REG_MULTI_SZ, std::string("one\0two\0\0", 9)},
        {REG_QWORD, "12345678"},
        {0xFFFFFFFF, "of no known type"},
        {REG_BINARY, std::string(100'000, 'x')},
    };
    for (const std::uint32_t codePage : {1252u, 932u}) {
        host::MachineConfig config;
        config.codePage = codePage;
        TestMachine machine(config);
        // As many values as there are, and one that takes them all in turn.
        int number = 0;
        for (const TypedBytes& value : values) {
            for (const std::string& name : {std::to_string(number), std::string("same"), std::string()}) {
                ASSERT_EQ(setValue(user, "Types", name, value.first, value.second), ERROR_SUCCESS);
                EXPECT_EQ(valueOf(user, "Types", name), value) << number << " as " << name;
            }
            ++number;
        }
        number = 0;
        for (const TypedBytes& value : values) {
            EXPECT_EQ(valueOf(user, "Types", std::to_string(number++)), value);
        }
    }
}

TEST(RegistryValuesTest, namesHaveNoCase) {
    TestMachine machine;
    ASSERT_EQ(setValue(user, "Names",
                       "Stra\xDF"
                       "e \xC4",
                       REG_SZ, "a"),
              ERROR_SUCCESS);
    ASSERT_EQ(setValue(user, "Names",
                       "STRA\xDF"
                       "E \xE4",
                       REG_SZ, "b"),
              ERROR_SUCCESS);
    EXPECT_EQ(textOf(user, "Names",
                     "stra\xDF"
                     "e \xE4"),
              "b");
    EXPECT_EQ(valueOf(user, "Names", "strasse \xE4"), std::nullopt);
    EXPECT_EQ(machine->registry.valueNames(user, "Names"), std::vector<std::string>{"Stra\xDF"
                                                                                    "e \xC4"});
    const OpenKey key(user, "Names", KEY_ALL_ACCESS);
    EXPECT_EQ(advapi32().RegDeleteValueA(key, "STRA\xDF"
                                              "E \xC4"),
              ERROR_SUCCESS);
    EXPECT_EQ(advapi32().RegDeleteValueA(key, "STRA\xDF"
                                              "E \xC4"),
              ERROR_FILE_NOT_FOUND);
    EXPECT_TRUE(machine->registry.valueNames(user, "Names").empty());
    EXPECT_EQ(advapi32().RegSetValueExA(key, std::string(16'383, 'n'), REG_SZ, "x"), ERROR_SUCCESS);
    EXPECT_EQ(advapi32().RegSetValueExA(key, std::string(16'384, 'n'), REG_SZ, "x"), ERROR_INVALID_PARAMETER);
}

TEST(RegistryValuesTest, queriesTellTypeAndSize) {
    TestMachine machine;
    ASSERT_EQ(setValue(user, "Query", "v", REG_MULTI_SZ, "12345"), ERROR_SUCCESS);
    const OpenKey key(user, "Query");
    std::uint32_t type = 77;
    std::uint32_t size = 88;
    EXPECT_EQ(advapi32().RegQueryValueExA(key, "none", type, {}, size), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(advapi32().RegQueryValueExA(key, "", type, {}, size), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(type, 77u);
    std::string buffer(4, '#');
    EXPECT_EQ(advapi32().RegQueryValueExA(key, "V", type, buffer, size), ERROR_MORE_DATA);
    EXPECT_EQ(buffer, "####");
    EXPECT_EQ(type, REG_MULTI_SZ);
    EXPECT_EQ(size, 5u);
    buffer.assign(7, '#');
    EXPECT_EQ(advapi32().RegQueryValueExA(key, "V", type, buffer, size), ERROR_SUCCESS);
    EXPECT_EQ(buffer, "12345##");
    EXPECT_EQ(size, 5u);
}

TEST(RegistryValuesTest, anotherMachineOnTheSameHomeSeesThem) {
    TestMachine first;
    ASSERT_EQ(setValue(user, "Shared", "v", REG_SZ, "1"), ERROR_SUCCESS);
    host::MachineConfig config;
    config.home = first.home();
    TestMachine second(config);
    for (const char* text : {"2", "3", "4"}) {
        // Each reads, so that it has the value in memory, before the other one writes.
        EXPECT_NE(textOf(user, "Shared", "v"), text);
        std::uint32_t size = 0;
        std::uint32_t type = 0;
        HKEY key = 0;
        ASSERT_EQ(first->advapi32.RegOpenKeyExA(user, "Shared", KEY_ALL_ACCESS, key), ERROR_SUCCESS);
        ASSERT_EQ(first->advapi32.RegQueryValueExA(key, "v", type, {}, size), ERROR_SUCCESS);
        ASSERT_EQ(first->advapi32.RegSetValueExA(key, "v", REG_SZ, text), ERROR_SUCCESS);
        EXPECT_EQ(textOf(user, "Shared", "v"), text);
        ASSERT_EQ(setValue(user, "Shared", "v", REG_SZ, std::string("longer ") + text), ERROR_SUCCESS);
        ASSERT_EQ(first->advapi32.RegQueryValueExA(key, "v", type, {}, size), ERROR_SUCCESS);
        EXPECT_EQ(size, 8u);
        first->advapi32.RegCloseKey(key);
    }
}

TEST(RegistryValuesTest, failingOperationsLeaveNothingOpen) {
    sweepFaults([](FaultRun& run) {
        HKEY key = 0;
        std::string text;
        std::uint32_t type = 0;
        std::uint32_t size = 0;
        bool isSet = false;
        if (advapi32().RegCreateKeyA(user, "Sweep", key) == ERROR_SUCCESS) {
            isSet = advapi32().RegSetValueExA(key, "v", REG_SZ, "text") == ERROR_SUCCESS;
            if (advapi32().RegQueryValueExA(key, "v", type, {}, size) == ERROR_SUCCESS) {
                text.resize(size);
                text.resize(advapi32().RegQueryValueExA(key, "v", type, text, size) == ERROR_SUCCESS ? size : 0);
            }
            advapi32().RegCloseKey(key);
        }
        EXPECT_TRUE(run.faulted() || (isSet && text == "text"));
        EXPECT_TRUE(text.empty() || isSet);
    });
}

} // namespace

} // namespace mox::test
