// Keys and values of the registry.
#include "support/faultsweep.h"
#include "system/system_support.h"

#include <cstdlib>

namespace mox::test {

namespace {

using namespace std::string_literals;
using platform::REG_BINARY;
using platform::REG_DWORD;
using platform::REG_DWORD_BIG_ENDIAN;
using platform::REG_EXPAND_SZ;
using platform::REG_LINK;
using platform::REG_MULTI_SZ;
using platform::REG_NONE;
using platform::REG_QWORD;
using platform::REG_SZ;

class Registry : public RegistryTest {
protected:
    String read(const char16_t* name) { return registry.extGetKeyValue(HKEY_CURRENT_USER, u"Software\\T", name, u"otherwise"); }
};

TEST_F(Registry, ValuesAreTexts) {
    ASSERT_EQ(setenv("MOX_TEST_VALUE", "value", 1), 0);
    struct Row {
        std::uint32_t type;
        std::string data;
        std::u16string text;
    };
    const std::u16string otherwise = u"otherwise";
    const Row rows[] = {
        {REG_NONE, "abc", otherwise},
        {REG_SZ, "abc\0"s, u"abc"},
        {REG_SZ, "abc", u"abc"},
        {REG_SZ, "ab\0cd\0"s, u"ab"},
        {REG_SZ, "", u""},
        {REG_SZ, "\xE4\x80", u"\u00E4\u20AC"},
        {REG_SZ, "%MOX_TEST_VALUE%", u"%MOX_TEST_VALUE%"},
        {REG_SZ, std::string(5000, 'x'), std::u16string(5000, u'x')},
        {REG_EXPAND_SZ, "<%MOX_TEST_VALUE%>\0"s, u"<value>"},
        {REG_EXPAND_SZ, "%mox_none%\0%MOX_TEST_VALUE%"s, u"%mox_none%"},
        {REG_EXPAND_SZ, "", u""},
        {REG_BINARY, "\x01\xAB"s, u"01AB"},
        {REG_BINARY, "\0\xFF"s, u"00FF"},
        {REG_BINARY, "", u""},
        {REG_DWORD, "\xFF\0\0\0"s, u"000000FF"},
        {REG_DWORD, "\x78\x56\x34\xF2", u"F2345678"},
        {REG_DWORD, "\x01\x02", u"00000201"},
        {REG_DWORD, "", otherwise},
        {REG_DWORD, "12345", otherwise},
        {REG_DWORD_BIG_ENDIAN, "\0\0\0\xFF"s, otherwise},
        {REG_LINK, "abc", u""},
        {REG_MULTI_SZ, "one\0two\0\0"s, u"one\0two"s},
        {REG_MULTI_SZ, "one\0\0two\0\0"s, u"one\0\0two"s},
        {REG_MULTI_SZ, "one\0\0two\0"s, u"one"},
        {REG_MULTI_SZ, "one\0two\0"s, u"one"},
        {REG_MULTI_SZ, "one\0\0\0"s, u"one\0"s},
        {REG_MULTI_SZ, "\0\0"s, u""},
        {REG_MULTI_SZ, "", u""},
        {8, "abc", otherwise},
        {REG_QWORD, "12345678", otherwise},
    };
    for (const auto& [type, data, text] : rows) {
        SCOPED_TRACE(type);
        store("Software\\T", "v", type, data);
        expectBoth<&moxRegistry::extGetKeyValue>(registry, u"extGetKeyValue", String(text), HKEY_CURRENT_USER,
                                                 String(u"Software\\T"), String(u"v"), String(otherwise));
    }
    unsetenv("MOX_TEST_VALUE");
    EXPECT_EQ(read(u"missing"), otherwise);
    EXPECT_EQ(registry.extGetKeyValue(HKEY_CURRENT_USER, u"Software\\missing", u"v", u"otherwise"), otherwise);
    EXPECT_EQ(registry.extGetKeyValue(static_cast<REG_ROOTKEY>(5), u"Software\\T", u"v", u"otherwise"), otherwise);
    EXPECT_EQ(registry.extGetKeyValue(HKEY_CURRENT_USER, u"Software\\T", u"missing"), u"");
}

TEST_F(Registry, ValuesThatGrowWhileTheyAreReadAreReadWhole) {
    store("Software\\T", "v", REG_MULTI_SZ, "a\0\0"s);
    const auto replacement = api.RegQueryValueExA.replace(
        [](platform::HKEY, std::string_view, std::uint32_t& type, std::span<char> data, std::uint32_t& size) {
            const std::string value = "one\0two\0three\0\0"s;
            type = REG_MULTI_SZ;
            size = static_cast<std::uint32_t>(data.empty() ? 3 : value.size());
            if (!data.empty() && data.size() < value.size()) {
                return platform::ERROR_MORE_DATA;
            }
            std::ranges::copy(data.empty() ? "" : value, data.begin());
            return platform::ERROR_SUCCESS;
        });
    EXPECT_EQ(read(u"v"), u"one\0two\0three"s);
}

TEST_F(Registry, VariablesStayIfTheyCannotBeReplaced) {
    store("Software\\T", "v", REG_EXPAND_SZ, "%PATH%\0x"s);
    machine->kernel32.ExpandEnvironmentStringsA.fail(1);
    EXPECT_EQ(read(u"v"), u"%PATH%");
}

TEST_F(Registry, BytesAreReadFromBinaryValuesOnly) {
    struct Row {
        std::uint32_t type;
        std::string data;
        std::vector<Byte> bytes;
    };
    const std::vector<Byte> before{9, 9};
    const Row rows[] = {
        {REG_BINARY, "\x01\0\xFF"s, {1, 0, 255}},
        {REG_BINARY, "x", {'x'}},
        {REG_BINARY, "", before},
        {REG_SZ, "abc", before},
        {REG_DWORD, "1234", before},
    };
    for (const auto& [type, data, bytes] : rows) {
        store("Software\\T", "v", type, data);
        const Long count = bytes == before ? 0 : static_cast<Long>(bytes.size());
        Array<Byte> array{Byte{9}, Byte{9}};
        EXPECT_EQ(registry.extGetKeyValueBytes(HKEY_CURRENT_USER, u"Software\\T", u"v", array), count);
        EXPECT_EQ(elementsOf(array), bytes);
        EXPECT_EQ(array.lower(), 0);
        Array<Byte> other{Byte{9}, Byte{9}};
        EXPECT_EQ(invoke(registry.get(), u"extGetKeyValueBytes", Long{HKEY_CURRENT_USER}, String(u"Software\\T"), String(u"v"),
                         reference(other))
                      .as<Long>(),
                  count);
        EXPECT_EQ(elementsOf(other), bytes);
    }
    Array<Byte> array;
    EXPECT_EQ(registry.extGetKeyValueBytes(HKEY_CURRENT_USER, u"Software\\T", u"missing", array), 0);
    EXPECT_EQ(registry.extGetKeyValueBytes(HKEY_CURRENT_USER, u"Software\\missing", u"v", array), 0);
    EXPECT_EQ(array.get(), nullptr);
}

TEST_F(Registry, BytesAreStored) {
    const auto bounded = [](Long lower, Long upper) {
        Array<Byte> array(lower, upper);
        for (Long i = lower; i <= upper; ++i) {
            array[i] = static_cast<Byte>('a' + i);
        }
        return array;
    };
    struct Row {
        Array<Byte> array;
        bool result;
        const char* stored;
    };
    Row rows[] = {
        {bounded(0, 2), true, "3 abc"}, {bounded(-2, 1), true, "3 ab"}, // from element 0 on
        {bounded(-5, -1), false, "-"},  {bounded(0, -1), false, "-"},   {bounded(1, 3), false, "-"}, {{}, false, "-"},
    };
    for (auto& [array, result, expected] : rows) {
        SCOPED_TRACE(std::to_string(array.lower()) + " to " + std::to_string(array.upper()));
        EXPECT_EQ(registry.extSetKeyValueBytes(HKEY_CURRENT_USER, u"Software\\B", u"v", array), Boolean(result));
        EXPECT_EQ(stored("Software\\B", "v"), expected);
        EXPECT_TRUE(hasKey("Software\\B")) << "made in any case";
        EXPECT_EQ(invoke(registry.get(), u"extSetKeyValueBytes", Long{HKEY_CURRENT_USER}, String(u"Software\\B"), String(u"v"),
                         reference(array))
                      .as<Boolean>(),
                  Boolean(result));
        EXPECT_EQ(registry.extDeleteKey(HKEY_CURRENT_USER, u"Software\\B"), True);
    }
}

TEST_F(Registry, NumbersAndTextsAreStored) {
    for (const auto& [number, text] : {std::pair<Long, std::string>{255, "4 \xFF\0\0\0"s}, {-2, "4 \xFE\xFF\xFF\xFF"}}) {
        expectBoth<&moxRegistry::extSetKeyValueDWord>(registry, u"extSetKeyValueDWord", True, HKEY_CURRENT_USER,
                                                      String(u"Software\\N\\M"), String(u"v"), number);
        EXPECT_EQ(stored("Software\\N\\M", "v"), text);
    }
    for (const auto& [text, bytes] :
         {std::pair<String, std::string>{u"text", "1 text"}, {u"", "1 "}, {u"\u20AC\u4E2D", "1 \x80?"}}) {
        expectBoth<&moxRegistry::extSetKeyValueString>(registry, u"extSetKeyValueString", True, HKEY_CURRENT_USER,
                                                       String(u"Software\\N\\M"), String(u"v"), text);
        EXPECT_EQ(stored("Software\\N\\M", "v"), bytes);
    }
    EXPECT_EQ(registry.extSetKeyValueString(static_cast<REG_ROOTKEY>(5), u"x", u"v", u"t"), False);
    EXPECT_EQ(registry.extSetKeyValueDWord(static_cast<REG_ROOTKEY>(5), u"x", u"v", 1), False);
}

struct RegistryOfTwoBytes : RegistryTest {
    static host::MachineConfig japanese() {
        host::MachineConfig config;
        config.codePage = 932;
        return config;
    }
    RegistryOfTwoBytes() : RegistryTest(japanese()) {}
};

TEST_F(RegistryOfTwoBytes, TextsHaveAsManyBytesAsCharacters) {
    EXPECT_EQ(registry.extSetKeyValueString(HKEY_CURRENT_USER, u"Software\\T", u"v", u"\u3042\u3044"), True);
    EXPECT_EQ(stored("Software\\T", "v"), "1 \x82\xA0");
    EXPECT_EQ(registry.extGetKeyValue(HKEY_CURRENT_USER, u"Software\\T", u"v", u""), u"\u3042");
}

TEST_F(Registry, KeysAreDeleted) {
    store("Software\\K\\Sub", "v", REG_SZ, "x");
    expectBoth<&moxRegistry::extDeleteKey>(registry, u"extDeleteKey", False, HKEY_CURRENT_USER, String(u"Software\\K"));
    expectBoth<&moxRegistry::extDeleteKey>(registry, u"extDeleteKey", True, HKEY_CURRENT_USER, String(u"Software\\K\\Sub"));
    EXPECT_FALSE(hasKey("Software\\K\\Sub"));
    EXPECT_EQ(registry.extDeleteKey(HKEY_CURRENT_USER, u"Software\\New\\Missing"), True);
    EXPECT_TRUE(hasKey("Software\\New"));
    EXPECT_FALSE(hasKey("Software\\New\\Missing"));
    EXPECT_EQ(registry.extDeleteKey(static_cast<REG_ROOTKEY>(5), u"x"), False);
}

TEST_F(Registry, ValuesAreDeleted) {
    store("Software\\K", "v", REG_SZ, "x");
    store("Software\\K", "", REG_SZ, "default");
    struct Row {
        const char16_t* path;
        const char16_t* name;
        Boolean result;
    };
    const Row rows[] = {{u"Software\\K", u"v", True},
                        {u"Software\\K", u"v", False},
                        {u"Software\\K", u"", False},
                        {u"Software\\Fresh", u"v", False}};
    for (const auto& [path, name, result] : rows) {
        EXPECT_EQ(registry.extDeleteKeyValue(HKEY_CURRENT_USER, path, name), result) << String(path).utf8();
    }
    EXPECT_EQ(stored("Software\\K", ""), "1 default");
    EXPECT_TRUE(hasKey("Software\\Fresh"));
}

TEST_F(Registry, KeysAreListed) {
    Array<String> names(5, 6);
    EXPECT_EQ(registry.extEnumKeys(HKEY_CURRENT_USER, u"Software\\E", names), 0);
    EXPECT_EQ(names.lower(), 5) << "left as it was";
    store("Software\\E", "v", REG_SZ, "x");
    EXPECT_EQ(registry.extEnumKeys(HKEY_CURRENT_USER, u"Software\\E", names), 0);
    EXPECT_EQ(names.lower(), 0);
    EXPECT_EQ(elementsOf(names), (std::vector<String>{u""}));
    const std::string longest(255, 'n');
    for (const std::string& name : {"a"s, "b \xE4"s, longest}) {
        store("Software\\E\\" + name, "", REG_SZ, "");
    }
    const std::vector<String> expected{u"a", u"b \u00E4", String::fromUtf8(longest)};
    EXPECT_EQ(registry.extEnumKeys(HKEY_CURRENT_USER, u"Software\\E", names), 3);
    EXPECT_EQ(elementsOf(names), expected);
    Array<String> other;
    EXPECT_EQ(
        invoke(registry.get(), u"extEnumKeys", Long{HKEY_CURRENT_USER}, String(u"Software\\E"), reference(other)).as<Long>(), 3);
    EXPECT_EQ(elementsOf(other), expected);
}

TEST_F(Registry, AListEndsWhereAKeyCannotBeHad) {
    for (const char* name : {"Software\\E\\a", "Software\\E\\b"}) {
        store(name, "", REG_SZ, "");
    }
    const auto body = [](platform::HKEY, std::uint32_t index, std::span<char> name, std::uint32_t& length) {
        std::ranges::fill(name.first(3), 'x');
        length = 3;
        return index < 1 ? platform::ERROR_SUCCESS : platform::ERROR_ACCESS_DENIED;
    };
    const auto replacement = api.RegEnumKeyExA.replace(body);
    Array<String> names;
    EXPECT_EQ(registry.extEnumKeys(HKEY_CURRENT_USER, u"Software\\E", names), 1);
    EXPECT_EQ(elementsOf(names), (std::vector<String>{u"xxx"}));
}

TEST_F(Registry, LockedArraysStayAsTheyAre) {
    store("Software\\E\\a", "", REG_SZ, "");
    store("Software\\E", "v", REG_BINARY, "abc");
    Array<String> names{u"x", u"y"};
    Array<Byte> bytes{Byte{7}};
    ASSERT_EQ(SafeArrayLock(names.get()), S_OK);
    ASSERT_EQ(SafeArrayLock(bytes.get()), S_OK);
    EXPECT_EQ(registry.extEnumKeys(HKEY_CURRENT_USER, u"Software\\E", names), 0);
    EXPECT_EQ(registry.extGetKeyValueBytes(HKEY_CURRENT_USER, u"Software\\E", u"v", bytes), 0);
    Array<String> values;
    EXPECT_EQ(errorOf([&] { registry.EnumSettings(u"", u"E", u"", names, values); }), 10);
    SafeArrayUnlock(names.get());
    SafeArrayUnlock(bytes.get());
    EXPECT_EQ(elementsOf(names), (std::vector<String>{u"x", u"y"}));
    EXPECT_EQ(elementsOf(bytes), (std::vector<Byte>{7}));
}

TEST(RegistryUnderFaults, EveryFaultLeavesItsMark) {
    sweepFaults([](FaultRun& run) {
        const moxRegistry object{server::create<TRL_OBKR_MOX::_moxRegistry>()};
        Array<Byte> bytes{Byte{1}, Byte{2}};
        const Boolean stored = object.extSetKeyValueBytes(HKEY_CURRENT_USER, u"Software\\F", u"v", bytes);
        EXPECT_TRUE(bool(stored) || run.faulted());
        Array<Byte> read;
        const Long count = object.extGetKeyValueBytes(HKEY_CURRENT_USER, u"Software\\F", u"v", read);
        EXPECT_TRUE((count == 2 && elementsOf(read) == elementsOf(bytes)) || (run.faulted() && count == 0 && read.empty()));
        EXPECT_TRUE(bool(object.extSetKeyValueDWord(HKEY_CURRENT_USER, u"Software\\F\\G", u"n", 7)) || run.faulted());
        const String number = object.extGetKeyValue(HKEY_CURRENT_USER, u"Software\\F\\G", u"n", u"none");
        EXPECT_TRUE(number == u"00000007" || (run.faulted() && number == u"none"));
        EXPECT_TRUE(bool(object.extDeleteKeyValue(HKEY_CURRENT_USER, u"Software\\F\\G", u"n")) || run.faulted());
    });
}

} // namespace

} // namespace mox::test
