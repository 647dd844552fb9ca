#include <mox/values/string.h>

#include <gtest/gtest.h>

#include <cstring>

using namespace mox;

namespace {

constexpr UINT tooManyBytes = 0x7FFFFFF1;

std::u16string_view viewOf(BSTR text) {
    return {text, SysStringLen(text)};
}

TEST(Bstr, CarriesItsLengthBeforeTheTextAndEndsWithNul) {
    const struct {
        std::u16string_view text;
    } cases[] = {{u""}, {u"a"}, {u"twenty characters ..."}, {std::u16string_view(u"a\0b", 3)}};
    for (const auto& [text] : cases) {
        BSTR string = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        ASSERT_NE(string, nullptr);
        UINT prefix = 0;
        std::memcpy(&prefix, reinterpret_cast<char*>(string) - 4, 4);
        EXPECT_EQ(prefix, text.size() * 2);
        EXPECT_EQ(SysStringByteLen(string), text.size() * 2);
        EXPECT_EQ(viewOf(string), text);
        EXPECT_EQ(string[text.size()], 0);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(string) % 8, 0u);
        SysFreeString(string);
    }
}

TEST(Bstr, ByteLengthsMayBeOdd) {
    for (const UINT length : {0u, 1u, 2u, 7u}) {
        BSTR string = SysAllocStringByteLen("abcdefg", length);
        EXPECT_EQ(SysStringByteLen(string), length);
        EXPECT_EQ(SysStringLen(string), length / 2);
        EXPECT_EQ(std::memcmp(string, "abcdefg", length), 0);
        const auto* bytes = reinterpret_cast<const char*>(string);
        EXPECT_EQ(std::string_view(bytes + length, 2), std::string_view("\0\0", 2));
        EXPECT_EQ(string[(length + 1) / 2], 0) << "a reader of characters meets NUL too";
        SysFreeString(string);
    }
}

TEST(Bstr, NullCountsAsEmpty) {
    EXPECT_EQ(SysAllocString(nullptr), nullptr);
    EXPECT_EQ(SysStringLen(nullptr), 0u);
    EXPECT_EQ(SysStringByteLen(nullptr), 0u);
    SysFreeString(nullptr);
    String blank = String::attach(SysAllocStringLen(nullptr, 3));
    EXPECT_EQ(blank.size(), 3u);
    EXPECT_EQ(blank.data()[3], 0);
}

TEST(Bstr, RefusesWhatIsTooLong) {
    EXPECT_EQ(SysAllocStringLen(nullptr, tooManyBytes / 2 + 1), nullptr);
    EXPECT_EQ(SysAllocStringLen(nullptr, 0x80000000), nullptr) << "twice the length is 0 in 32 bits";
    EXPECT_EQ(SysAllocStringLen(nullptr, 0xFFFFFFFF), nullptr);
    EXPECT_EQ(SysAllocStringByteLen(nullptr, tooManyBytes), nullptr);
    EXPECT_EQ(SysAllocStringByteLen(nullptr, 0xFFFFFFFF), nullptr);
    BSTR kept = SysAllocString(u"kept");
    EXPECT_EQ(SysReAllocStringLen(&kept, u"x", 0x80000000), 0);
    EXPECT_EQ(viewOf(kept), u"kept");
    SysFreeString(kept);
}

TEST(Bstr, ReallocationTakesPartsOfTheOldText) {
    BSTR string = SysAllocString(u"abcdef");
    EXPECT_EQ(SysReAllocString(&string, string + 4), 1);
    EXPECT_EQ(viewOf(string), u"ef");
    EXPECT_EQ(SysReAllocStringLen(&string, string + 1, 1), 1);
    EXPECT_EQ(viewOf(string), u"f");
    EXPECT_EQ(SysReAllocStringLen(&string, u"a\0c", 3), 1);
    EXPECT_EQ(viewOf(string), std::u16string_view(u"a\0c", 3));
    EXPECT_EQ(SysReAllocStringLen(&string, nullptr, 2), 1) << "without a text, what there is stays";
    EXPECT_EQ(viewOf(string), std::u16string_view(u"a\0", 2));
    EXPECT_EQ(SysReAllocStringLen(&string, nullptr, 1000), 1);
    EXPECT_EQ(viewOf(string).substr(0, 1), u"a");
    EXPECT_EQ(SysStringLen(string), 1000u);
    EXPECT_EQ(string[1000], 0);
    EXPECT_EQ(SysReAllocString(&string, nullptr), 1);
    EXPECT_EQ(string, nullptr);
    EXPECT_EQ(SysReAllocStringLen(&string, nullptr, 4), 1) << "from nothing";
    EXPECT_EQ(SysStringLen(string), 4u);
    EXPECT_EQ(SysReAllocString(nullptr, u"x"), 0);
    EXPECT_EQ(SysReAllocStringLen(nullptr, u"x", 1), 0);
    SysFreeString(string);
}

} // namespace
