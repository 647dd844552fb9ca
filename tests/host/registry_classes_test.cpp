#include "registry_support.h"
#include "support/testmachine.h"

namespace mox::test {

namespace {

using namespace platform;

constexpr std::string_view classes = "Software\\Classes";

std::string inClasses(std::string_view path) {
    return std::string(classes) + "\\" + std::string(path);
}

/// Both branches of the classes, with one class that only one has and one that both have.
class RegistryClassesTest : public testing::Test {
protected:
    RegistryClassesTest() {
        setValue(HKEY_LOCAL_MACHINE, inClasses(".all"), "", REG_SZ, "of all");
        setValue(HKEY_LOCAL_MACHINE, inClasses("Both"), "", REG_SZ, "of all");
        setValue(HKEY_LOCAL_MACHINE, inClasses("Both"), "machine", REG_SZ, "of all");
        setValue(HKEY_LOCAL_MACHINE, inClasses("Both\\Machine"), "", REG_SZ, "of all");
        setValue(HKEY_CURRENT_USER, inClasses("BOTH"), "", REG_SZ, "of the user");
        setValue(HKEY_CURRENT_USER, inClasses("Both\\Aside"), "", REG_SZ, "of the user");
        setValue(HKEY_CURRENT_USER, inClasses("own"), "", REG_SZ, "of the user");
    }

    TestMachine machine_;
};

TEST_F(RegistryClassesTest, showsBothTheUserInFront) {
    EXPECT_EQ(keysOf(HKEY_CLASSES_ROOT, ""), (std::vector<std::string>{".all", "BOTH", "own"}));
    EXPECT_EQ(keysOf(HKEY_CLASSES_ROOT, "both"), (std::vector<std::string>{"Aside", "Machine"}));
    for (const auto& [path, name, text] : std::initializer_list<std::tuple<const char*, const char*, const char*>>{
             {".ALL", "", "of all"},
             {"Both", "", "of the user"},
             {"Both", "machine", "of all"},
             {"Both\\Machine", "", "of all"},
             {"Both\\Aside", "", "of the user"},
             {"own", "", "of the user"},
             {"none", "", ""},
         }) {
        EXPECT_EQ(textOf(HKEY_CLASSES_ROOT, path, name), text) << path;
    }
}

TEST_F(RegistryClassesTest, writesWhereTheKeyIs) {
    setValue(HKEY_CLASSES_ROOT, "Both", "", REG_SZ, "new");
    setValue(HKEY_CLASSES_ROOT, "fresh\\key", "", REG_SZ, "new");
    setValue(HKEY_CLASSES_ROOT, "own", "", REG_SZ, "new");
    EXPECT_EQ(textOf(HKEY_LOCAL_MACHINE, inClasses("Both"), ""), "of all");
    EXPECT_EQ(textOf(HKEY_CURRENT_USER, inClasses("Both"), ""), "new");
    EXPECT_EQ(textOf(HKEY_LOCAL_MACHINE, inClasses("fresh\\key"), ""), "new");
    EXPECT_EQ(textOf(HKEY_CURRENT_USER, inClasses("own"), ""), "new");
    EXPECT_EQ(keysOf(HKEY_CURRENT_USER, classes), (std::vector<std::string>{"BOTH", "own"}));
}

TEST_F(RegistryClassesTest, anOpenKeySeesWhatTheUserAdds) {
    const OpenKey key(HKEY_CLASSES_ROOT, ".all", KEY_ALL_ACCESS);
    ASSERT_EQ(setValue(HKEY_CURRENT_USER, inClasses(".all\\Mine"), "", REG_SZ, "x"), ERROR_SUCCESS);
    EXPECT_EQ(keysOf(key, ""), std::vector<std::string>{"Mine"});
    EXPECT_EQ(advapi32().RegSetValueExA(key, "", REG_SZ, "mine"), ERROR_SUCCESS);
    EXPECT_EQ(textOf(HKEY_LOCAL_MACHINE, inClasses(".all"), ""), "of all");
}

TEST_F(RegistryClassesTest, deletesTheOneInFront) {
    EXPECT_EQ(advapi32().RegDeleteKeyA(HKEY_CLASSES_ROOT, "Both"), ERROR_ACCESS_DENIED); // there is one below
    EXPECT_EQ(advapi32().RegDeleteKeyA(HKEY_CLASSES_ROOT, "Both\\Aside"), ERROR_SUCCESS);
    EXPECT_EQ(advapi32().RegDeleteKeyA(HKEY_CLASSES_ROOT, "Both"), ERROR_SUCCESS);
    EXPECT_EQ(textOf(HKEY_CLASSES_ROOT, "Both", ""), "of all");
    const OpenKey key(HKEY_CLASSES_ROOT, "own", KEY_ALL_ACCESS);
    EXPECT_EQ(advapi32().RegDeleteValueA(key, ""), ERROR_SUCCESS);
    EXPECT_EQ(advapi32().RegDeleteKeyA(key, ""), ERROR_SUCCESS);
    EXPECT_EQ(advapi32().RegSetValueExA(key, "", REG_SZ, "x"), ERROR_KEY_DELETED);
    for (const HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        EXPECT_EQ(advapi32().RegDeleteKeyA(root, classes), ERROR_ACCESS_DENIED);
    }
}

} // namespace

} // namespace mox::test
