#include <mox/abi/functions.h>
#include <mox/abi/interfaces.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace mox;

namespace {

constexpr GUID sample{0x01234567, 0x89AB, 0xCDEF, {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF}};
constexpr std::u16string_view sampleText = u"{01234567-89AB-CDEF-0123-456789ABCDEF}";

TEST(Guid, TextNeedsRoomFor39Characters) {
    char16_t text[40];
    std::fill(std::begin(text), std::end(text), u'?');
    EXPECT_EQ(StringFromGUID2(sample, text, 38), 0);
    EXPECT_EQ(text[0], u'?');
    EXPECT_EQ(StringFromGUID2(sample, text, 39), 39);
    EXPECT_EQ(std::u16string_view(text), sampleText);
    EXPECT_EQ(text[39], u'?');
    EXPECT_EQ(StringFromGUID2(sample, nullptr, 39), 0);
    EXPECT_EQ(StringFromGUID2(sample, text, -1), 0);
}

TEST(Guid, TextInTaskMemory) {
    for (HRESULT (*textOf)(const GUID&, LPOLESTR*) : {StringFromCLSID, StringFromIID}) {
        LPOLESTR text = nullptr;
        ASSERT_EQ(textOf(sample, &text), S_OK);
        EXPECT_EQ(std::u16string_view(text), sampleText);
        CoTaskMemFree(text);
        EXPECT_EQ(textOf(sample, nullptr), E_INVALIDARG);
    }
}

TEST(Guid, ReadsAnyCase) {
    for (const char16_t* text : {u"{01234567-89AB-CDEF-0123-456789ABCDEF}", u"{01234567-89ab-cdef-0123-456789aBcDeF}"}) {
        GUID id{};
        EXPECT_EQ(CLSIDFromString(text, &id), S_OK);
        EXPECT_EQ(id, sample);
        id = GUID{};
        EXPECT_EQ(IIDFromString(text, &id), S_OK);
        EXPECT_TRUE(IsEqualGUID(id, sample));
    }
}

TEST(Guid, RefusesBadText) {
    const char16_t* cases[] = {
        u"{01234567-89AB-CDEF-0123-456789ABCDEF",       u"{01234567-89AB-CDEF-0123-456789ABCDEF} ",
        u"{01234567-89AB-CDEF-0123-456789ABCDEG}",      u"{01234567089AB-CDEF-0123-456789ABCDEF}",
        u"{0123456-789AB-CDEF-0123-456789ABCDEF}",      u"{}",
        u"{01234567-89AB-CDEF-0123-456789ABCDE\u0660}", u"{01234567-89AB-CDEF-0123456789ABCDEF}",
    };
    for (const char16_t* text : cases) {
        GUID id = sample;
        EXPECT_EQ(CLSIDFromString(text, &id), CO_E_CLASSSTRING);
        EXPECT_EQ(id, GUID_NULL);
        id = sample;
        EXPECT_EQ(IIDFromString(text, &id), CO_E_IIDSTRING);
        EXPECT_EQ(id, GUID_NULL);
    }
    GUID id = sample;
    EXPECT_EQ(IIDFromString(u"Name.Of.Class", &id), CO_E_IIDSTRING);
    EXPECT_EQ(CLSIDFromString(u"", &id), CO_E_CLASSSTRING);
    EXPECT_EQ(CLSIDFromString(u"No.Such.Class.Anywhere", &id), CO_E_CLASSSTRING);
    EXPECT_EQ(id, GUID_NULL);
}

TEST(Guid, NoTextIsNoIdentifier) {
    GUID id = sample;
    EXPECT_EQ(CLSIDFromString(nullptr, &id), S_OK);
    EXPECT_EQ(id, GUID_NULL);
    id = sample;
    EXPECT_EQ(IIDFromString(nullptr, &id), S_OK);
    EXPECT_EQ(id, GUID_NULL);
    EXPECT_EQ(CLSIDFromString(sampleText.data(), nullptr), E_INVALIDARG);
    EXPECT_EQ(IIDFromString(sampleText.data(), nullptr), E_INVALIDARG);
}

TEST(Guid, NewOnesAreRandomAndMarkedSo) {
    std::set<GUID> seen;
    std::uint32_t ones = 0;
    std::uint32_t zeros = 0;
    for (int count = 0; count < 200; ++count) {
        GUID id{};
        ASSERT_EQ(CoCreateGuid(&id), S_OK);
        EXPECT_EQ(id.Data3 >> 12, 4) << "version";
        EXPECT_EQ(id.Data4[0] >> 6, 2) << "variant";
        EXPECT_TRUE(seen.insert(id).second);
        ones |= id.Data1;
        zeros |= ~id.Data1;
    }
    EXPECT_EQ(ones, 0xFFFFFFFFu) << "every bit is sometimes set";
    EXPECT_EQ(zeros, 0xFFFFFFFFu) << "every bit is sometimes clear";
    EXPECT_EQ(CoCreateGuid(nullptr), E_INVALIDARG);
}

} // namespace
