// The settings of applications.
#include "support/faultsweep.h"
#include "system/system_support.h"

#include "system/settingskey.h"

namespace mox::test {

namespace {

TEST(SettingsKey, IsBuiltFromPublisherApplicationAndSection) {
    struct Row {
        const char16_t* publisher;
        const char16_t* application;
        const char16_t* section;
        const char16_t* key;
    };
    const Row rows[] = {
        {u"", u"", u"", u"Software"},
        {u"P", u"A", u"S", u"Software\\P\\A\\S"},
        {u"P", u"", u"", u"Software\\P"},
        {u"", u"A", u"", u"Software\\A"},
        {u"", u"", u"S", u"Software\\S"},
        {u"  \\P\\ ", u"\\A\\", u"\\S\\", u"Software\\P\\A\\S"},
        {u"\\\\P\\\\", u"A", u"S", u"Software\\\\P\\\\A\\S"},
        {u"\\", u"\\\\", u"  ", u"Software"},
        {u"P", u"A", u"\\S\\\\", u"Software\\P\\A\\S"}, // of two at the end, one goes twice
        {u"P", u"A", u" \\ S \\ ", u"Software\\P\\A\\ S "},
        {u"P Q", u"A\\B", u"S\\T", u"Software\\P Q\\A\\B\\S\\T"},
        {u"P", u"A", u"\\\\\\", u"Software\\P\\A\\"},
    };
    for (const auto& [publisher, application, section, key] : rows) {
        EXPECT_EQ(server::settingsKey(publisher, application, section), key);
    }
}

class Settings : public RegistryTest {};

TEST_F(Settings, AreSavedAndRead) {
    expectBoth<&moxRegistry::GetSetting>(registry, u"GetSetting", String(u"none"), String(u"P"), String(u"A"), String(u"S"),
                                         String(u"k"), String(u"none"));
    EXPECT_FALSE(hasKey("Software\\P")) << "reading makes nothing";
    EXPECT_EQ(registry.GetSetting(u"P", u"A", u"S", u"k"), u"");

    expectBoth<&moxRegistry::SaveSetting>(registry, u"SaveSetting", True, String(u"P"), String(u" \\A\\"), String(u"S"),
                                          String(u"k"), String(u"\u00E4 \u20AC"));
    EXPECT_EQ(stored("Software\\P\\A\\S", "k"), "1 \xE4 \x80") << "a text without a NUL at its end";
    expectBoth<&moxRegistry::GetSetting>(registry, u"GetSetting", String(u"\u00E4 \u20AC"), String(u"P"), String(u"a"),
                                         String(u"S\\"), String(u"K"), String(u"none"));
    // The name of the value is taken as it is.
    EXPECT_TRUE(bool(registry.SaveSetting(u"P", u"A", u"S", u" \\k\\ ", u"other")));
    EXPECT_EQ(stored("Software\\P\\A\\S", " \\k\\ "), "1 other");
    EXPECT_TRUE(bool(registry.SaveSetting(u"P", u"A", u"S", u"", u"default value")));
    EXPECT_EQ(registry.GetSetting(u"P", u"A", u"S", u""), u"default value");
    EXPECT_TRUE(bool(registry.SaveSetting(u"P", u"A", u"S", u"empty", u"")));
    EXPECT_EQ(registry.GetSetting(u"P", u"A", u"S", u"empty", u"none"), u"");
}

TEST_F(Settings, AreDeleted) {
    for (const char16_t* name : {u"k", u"l"}) {
        ASSERT_TRUE(bool(registry.SaveSetting(u"P", u"A", u"S", name, u"v")));
    }
    EXPECT_EQ(registry.DeleteSetting(u"P", u"A", u"S", u"k"), True);
    EXPECT_EQ(registry.DeleteSetting(u"P", u"A", u"S", u"k"), False);
    EXPECT_EQ(stored("Software\\P\\A\\S", "k"), "-");
    EXPECT_EQ(stored("Software\\P\\A\\S", "l"), "1 v");
    EXPECT_EQ(registry.DeleteSetting(u"P", u"A", u"", u""), False) << "it has a section";
    EXPECT_EQ(registry.DeleteSetting(u"P", u"A", u"S"), True);
    EXPECT_FALSE(hasKey("Software\\P\\A\\S"));
    EXPECT_TRUE(hasKey("Software\\P\\A"));

    expectBoth<&moxRegistry::DeleteSetting>(registry, u"DeleteSetting", True, String(u"Q"), String(u"B"), String(u"missing"),
                                            String());
    EXPECT_TRUE(hasKey("Software\\Q\\B")) << "made on the way";
    EXPECT_FALSE(hasKey("Software\\Q\\B\\missing"));
    EXPECT_EQ(registry.DeleteSetting(u"R", u"B", u"S", u"missing"), False);
    EXPECT_TRUE(hasKey("Software\\R\\B\\S"));
}

TEST_F(Settings, AreListedByTheirSubkeys) {
    Array<String> keys(3, 7);
    Array<String> values{u"before"};
    EXPECT_EQ(registry.EnumSettings(u"P", u"A", u"S", keys, values), 0) << "no such key";
    EXPECT_EQ(elementsOf(keys), (std::vector<String>{u""}));
    EXPECT_EQ(elementsOf(values), (std::vector<String>{u""}));

    ASSERT_TRUE(bool(registry.SaveSetting(u"P", u"A", u"S", u"one", u"1")));
    EXPECT_EQ(registry.EnumSettings(u"P", u"A", u"S", keys, values), 0) << "values are no subkeys";
    EXPECT_EQ(elementsOf(keys), (std::vector<String>{u""}));

    store("Software\\P\\A\\S\\one", "", platform::REG_SZ, "below");
    store("Software\\P\\A\\S\\two", "", platform::REG_SZ, "below");
    const auto check = [&](Long count) {
        EXPECT_EQ(count, 2);
        EXPECT_EQ(keys.lower(), 0);
        EXPECT_EQ(elementsOf(keys), (std::vector<String>{u"one", u"two"}));
        EXPECT_EQ(elementsOf(values), (std::vector<String>{u"1", u""})) << "the value of that name in the key itself";
    };
    check(registry.EnumSettings(u"P", u"A", u"S", keys, values));
    keys = {};
    values = {};
    check(invoke(registry.get(), u"EnumSettings", String(u"P"), String(u"A"), String(u"S"), reference(keys), reference(values))
              .as<Long>());
}

TEST(SettingsUnderFaults, AreNotHalfSavedAfterAFault) {
    sweepFaults([](FaultRun& run) {
        const moxRegistry object{server::create<TRL_OBKR_MOX::_moxRegistry>()};
        Boolean result;
        const Long error = errorOf([&] { result = object.SaveSetting(u"P", u"A", u"S", u"k", u"value"); });
        EXPECT_EQ(error, 0);
        EXPECT_TRUE(bool(result) || run.faulted());
        // Past the operations, which the fault may still lie on.
        std::optional<host::RegistryValue> value;
        run.machine()->registry.value(platform::HKEY_CURRENT_USER, "Software\\P\\A\\S", "k", value);
        EXPECT_EQ(value.has_value(), bool(result));
        if (value) {
            EXPECT_EQ(value->type, platform::REG_SZ);
            EXPECT_EQ(value->data, "value");
        }
    });
}

TEST(SettingsUnderFaults, ReadingGivesTheDefaultAfterAFault) {
    sweepFaults([](FaultRun& run) {
        const moxRegistry object{server::create<TRL_OBKR_MOX::_moxRegistry>()};
        object.SaveSetting(u"P", u"A", u"S", u"k", u"value");
        const bool isSaved = !run.faulted();
        const String value = object.GetSetting(u"P", u"A", u"S", u"k", u"none");
        EXPECT_TRUE(value == u"value" || (run.faulted() && value == u"none")) << value.utf8();
        Array<String> keys;
        Array<String> values;
        EXPECT_LE(object.EnumSettings(u"P", u"A", u"", keys, values), 1);
        EXPECT_TRUE(elementsOf(keys).size() == 1 && (keys[0] == u"S" || (run.faulted() && keys[0] == u""))) << isSaved;
        const Boolean deleted = object.DeleteSetting(u"P", u"A", u"S");
        EXPECT_TRUE(bool(deleted) || run.faulted());
    });
}

} // namespace

} // namespace mox::test
