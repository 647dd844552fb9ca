#include "registry_support.h"
#include "support/testmachine.h"

#include <filesystem>
#include <utility>

#include <unistd.h>

namespace mox::test {

namespace {

using namespace platform;

constexpr HKEY user = HKEY_CURRENT_USER;

std::int32_t openStatus(HKEY root, std::string_view path, std::uint32_t access = KEY_READ) {
    HKEY key = 0;
    const std::int32_t status = advapi32().RegOpenKeyExA(root, path, access, key);
    if (status == ERROR_SUCCESS) {
        EXPECT_EQ(advapi32().RegCloseKey(key), ERROR_SUCCESS);
    }
    return status;
}

std::int32_t createStatus(HKEY root, std::string_view path) {
    HKEY key = 0;
    const std::int32_t status = advapi32().RegCreateKeyA(root, path, key);
    if (status == ERROR_SUCCESS) {
        EXPECT_EQ(advapi32().RegCloseKey(key), ERROR_SUCCESS);
    }
    return status;
}

host::MachineConfig lineOf98() {
    host::MachineConfig config;
    config.windows = {4, 10, 2222, 1, "A", 1, 0};
    return config;
}

TEST(RegistryKeysTest, nothingIsMadeBeforeTheFirstUse) {
    TestMachine machine;
    EXPECT_FALSE(std::filesystem::exists(machine.home()));
    EXPECT_EQ(openStatus(user, "Software\\None"), ERROR_FILE_NOT_FOUND);
    EXPECT_TRUE(std::filesystem::exists(machine.home() / "registry.sqlite"));
}

TEST(RegistryKeysTest, keysAreFoundHoweverTheyAreSpelt) {
    TestMachine machine;
    ASSERT_EQ(createStatus(user, "Software\\Z\xFCrich\\One\\Two"), ERROR_SUCCESS);
    for (const auto& [path, expected] : std::initializer_list<std::pair<std::string_view, std::int32_t>>{
             {"Software\\Z\xFCrich\\One\\Two", ERROR_SUCCESS},
             {"SOFTWARE\\z\xDCRICH\\oNE", ERROR_SUCCESS},
             {"Software\\Z\xFCrich\\One\\Two\\", ERROR_SUCCESS},
             {"\\Software\\\\Z\xFCrich", ERROR_SUCCESS},
             {std::string_view("Software\\Z\xFCrich\0\\None", 21), ERROR_SUCCESS},
             {"Software\\Zurich", ERROR_FILE_NOT_FOUND},
             {"Software\\Z\xFCrich\\Two", ERROR_FILE_NOT_FOUND},
             {"Software/Z\xFCrich", ERROR_FILE_NOT_FOUND},
         }) {
        EXPECT_EQ(openStatus(user, path), expected) << path;
    }
}

TEST(RegistryKeysTest, predefinedKeysShowTheSameBranches) {
    TestMachine machine;
    const std::string branch = "S-1-5-21-0-0-0-" + std::to_string(getuid());
    ASSERT_EQ(createStatus(user, "Software\\Mine"), ERROR_SUCCESS);
    ASSERT_EQ(createStatus(HKEY_CURRENT_CONFIG, "Software\\Fonts"), ERROR_SUCCESS);
    EXPECT_EQ(openStatus(HKEY_USERS, branch + "\\software\\mine"), ERROR_SUCCESS);
    EXPECT_EQ(openStatus(HKEY_LOCAL_MACHINE, "System\\CurrentControlSet\\Hardware Profiles\\Current\\Software\\Fonts"),
              ERROR_SUCCESS);
    for (const HKEY root : {HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE, HKEY_USERS, HKEY_PERFORMANCE_DATA,
                            HKEY_CURRENT_CONFIG, HKEY_DYN_DATA}) {
        HKEY opened = 0;
        EXPECT_EQ(advapi32().RegOpenKeyExA(root, "", KEY_READ, opened), ERROR_SUCCESS);
        EXPECT_EQ(opened, root);
        EXPECT_EQ(advapi32().RegCloseKey(root), ERROR_SUCCESS);
        EXPECT_EQ(advapi32().RegDeleteKeyA(root, ""), ERROR_ACCESS_DENIED);
    }
    for (const HKEY root : {HKEY_PERFORMANCE_DATA, HKEY_DYN_DATA}) {
        EXPECT_EQ(keysOf(root, ""), std::vector<std::string>());
        EXPECT_EQ(openStatus(root, "x"), ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(createStatus(root, "x"), ERROR_ACCESS_DENIED);
        EXPECT_EQ(advapi32().RegSetValueExA(root, "x", REG_SZ, "y"), ERROR_ACCESS_DENIED);
    }
    EXPECT_EQ(advapi32().RegDeleteKeyA(HKEY_USERS, branch), ERROR_ACCESS_DENIED);
    EXPECT_EQ(openStatus(user, "Software\\Mine"), ERROR_SUCCESS);
}

TEST(RegistryKeysTest, enumeratesInOrder) {
    TestMachine machine;
    for (const char* name : {"b", "C", "\xE4hre", "a10", "A2", "D"}) {
        ASSERT_EQ(createStatus(user, std::string("List\\") + name), ERROR_SUCCESS);
    }
    EXPECT_EQ(keysOf(user, "list"), (std::vector<std::string>{"a10", "A2", "b", "C", "D", "\xE4hre"}));
    ASSERT_EQ(createStatus(user, "LIST\\B\\below"), ERROR_SUCCESS);
    EXPECT_EQ(keysOf(user, "List"), (std::vector<std::string>{"a10", "A2", "b", "C", "D", "\xE4hre"}));

    const OpenKey list(user, "List");
    std::string buffer(4, '#');
    std::uint32_t length = 77;
    EXPECT_EQ(advapi32().RegEnumKeyExA(list, 0, std::span(buffer).first(3), length), ERROR_MORE_DATA);
    EXPECT_EQ(buffer, "####");
    EXPECT_EQ(advapi32().RegEnumKeyExA(list, 0, buffer, length), ERROR_SUCCESS);
    EXPECT_EQ(length, 3u);
    EXPECT_EQ(buffer, std::string("a10\0", 4));
    EXPECT_EQ(advapi32().RegEnumKeyExA(list, 6, buffer, length), ERROR_NO_MORE_ITEMS);
    // The open key sees what goes and comes.
    EXPECT_EQ(advapi32().RegDeleteKeyA(list, "a10"), ERROR_SUCCESS);
    EXPECT_EQ(advapi32().RegEnumKeyExA(list, 0, buffer, length), ERROR_SUCCESS);
    EXPECT_EQ(buffer.substr(0, length), "A2");
}

TEST(RegistryKeysTest, namesHaveAtMost255Characters) {
    TestMachine machine;
    const std::string longest(255, '\xFC');
    EXPECT_EQ(createStatus(user, "Long\\" + longest + "\\x"), ERROR_SUCCESS);
    EXPECT_EQ(keysOf(user, "Long"), std::vector<std::string>{longest});
    EXPECT_EQ(createStatus(user, "Longer\\" + longest + "x"), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(openStatus(user, "Longer"), ERROR_FILE_NOT_FOUND);
}

TEST(RegistryKeysTest, doubleByteNamesWithABackslashByte) {
    host::MachineConfig config;
    config.codePage = 932;
    TestMachine machine(config);
    ASSERT_EQ(createStatus(user, "\x83\x5C\x83\x5C\\x"), ERROR_SUCCESS); // the second byte of each is that of a backslash
    EXPECT_EQ(keysOf(user, "\x83\x5C\x83\x5C"), std::vector<std::string>{"x"});
}

TEST(RegistryKeysTest, deletionDependsOnTheLineOfTheSystem) {
    for (const bool isNt : {true, false}) {
        TestMachine machine(isNt ? host::MachineConfig{} : lineOf98());
        ASSERT_EQ(setValue(user, "Tree\\Leaf\\Deep", "v", REG_SZ, "x"), ERROR_SUCCESS);
        EXPECT_EQ(advapi32().RegDeleteKeyA(user, "None"), ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(advapi32().RegDeleteKeyA(user, "TREE"), isNt ? ERROR_ACCESS_DENIED : ERROR_SUCCESS);
        EXPECT_EQ(openStatus(user, "Tree\\Leaf\\Deep"), isNt ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(advapi32().RegDeleteKeyA(user, "Tree\\Leaf\\Deep"), isNt ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND);
        EXPECT_EQ(openStatus(user, "Tree"), isNt ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND);
    }
}

TEST(RegistryKeysTest, aDeletedKeyIsGoneForItsHandles) {
    TestMachine machine;
    const OpenKey key = OpenKey::made(user, "Gone\\Key");
    ASSERT_EQ(advapi32().RegSetValueExA(key, "v", REG_SZ, "x"), ERROR_SUCCESS);
    ASSERT_EQ(advapi32().RegDeleteKeyA(key, ""), ERROR_SUCCESS);
    const auto expectGone = [&] {
        std::uint32_t number = 0;
        HKEY opened = 0;
        std::string buffer(10, '\0');
        EXPECT_EQ(advapi32().RegQueryValueExA(key, "v", number, {}, number), ERROR_KEY_DELETED);
        EXPECT_EQ(advapi32().RegSetValueExA(key, "v", REG_SZ, "x"), ERROR_KEY_DELETED);
        EXPECT_EQ(advapi32().RegDeleteValueA(key, "v"), ERROR_KEY_DELETED);
        EXPECT_EQ(advapi32().RegEnumKeyExA(key, 0, buffer, number), ERROR_KEY_DELETED);
        EXPECT_EQ(advapi32().RegCreateKeyA(key, "below", opened), ERROR_KEY_DELETED);
        EXPECT_EQ(advapi32().RegOpenKeyExA(key, "below", KEY_READ, opened), ERROR_KEY_DELETED);
        EXPECT_EQ(advapi32().RegDeleteKeyA(key, ""), ERROR_KEY_DELETED);
    };
    expectGone();
    ASSERT_EQ(createStatus(user, "Gone\\Key"), ERROR_SUCCESS); // another one of the same name
    expectGone();
    EXPECT_EQ(valueOf(user, "Gone\\Key", "v"), std::nullopt);
}

TEST(RegistryKeysTest, refusesWhatIsNoHandle) {
    TestMachine machine;
    HKEY key = 0;
    ASSERT_EQ(advapi32().RegCreateKeyA(user, "Key", key), ERROR_SUCCESS);
    ASSERT_EQ(advapi32().RegCloseKey(key), ERROR_SUCCESS);
    WIN32_FIND_DATAA found;
    const Handle search = kernel32().FindFirstFileA("C:\\*", found);
    for (const HKEY bad : {key, 0, -1, search, static_cast<HKEY>(0x80000007)}) {
        std::uint32_t number = 0;
        HKEY opened = 0;
        EXPECT_EQ(advapi32().RegCloseKey(bad), ERROR_INVALID_HANDLE);
        EXPECT_EQ(advapi32().RegOpenKeyExA(bad, "x", KEY_READ, opened), ERROR_INVALID_HANDLE);
        EXPECT_EQ(advapi32().RegCreateKeyA(bad, "x", opened), ERROR_INVALID_HANDLE);
        EXPECT_EQ(advapi32().RegQueryValueExA(bad, "x", number, {}, number), ERROR_INVALID_HANDLE);
        EXPECT_EQ(advapi32().RegSetValueExA(bad, "x", REG_SZ, ""), ERROR_INVALID_HANDLE);
        EXPECT_EQ(advapi32().RegDeleteKeyA(bad, ""), ERROR_INVALID_HANDLE);
    }
    kernel32().FindClose(search);
}

TEST(RegistryKeysTest, accessIsThatOfTheHandle) {
    TestMachine machine;
    ASSERT_EQ(setValue(user, "Key", "v", REG_SZ, "x"), ERROR_SUCCESS);
    for (const auto& [access, reads, writes] :
         std::initializer_list<std::tuple<std::uint32_t, bool, bool>>{{KEY_READ, true, false},
                                                                      {KEY_ALL_ACCESS, true, true},
                                                                      {KEY_SET_VALUE, false, true},
                                                                      {0, false, false},
                                                                      {0x80000000, true, false},
                                                                      {0x40000000, false, true},
                                                                      {0x02000000, true, true}}) {
        const OpenKey key(user, "Key", access);
        std::uint32_t number = 0;
        std::string buffer(10, '\0');
        EXPECT_EQ(advapi32().RegQueryValueExA(key, "v", number, {}, number), reads ? ERROR_SUCCESS : ERROR_ACCESS_DENIED)
            << access;
        EXPECT_EQ(advapi32().RegEnumKeyExA(key, 0, buffer, number), reads ? ERROR_NO_MORE_ITEMS : ERROR_ACCESS_DENIED) << access;
        EXPECT_EQ(advapi32().RegSetValueExA(key, "w", REG_SZ, "x"), writes ? ERROR_SUCCESS : ERROR_ACCESS_DENIED) << access;
        EXPECT_EQ(advapi32().RegDeleteValueA(key, "none"), writes ? ERROR_FILE_NOT_FOUND : ERROR_ACCESS_DENIED) << access;
    }
}

} // namespace

} // namespace mox::test
