#include <mox/abi/functions.h>

#include <gtest/gtest.h>

#include <cstring>
#include <limits>

namespace {

TEST(TaskMemory, GrowsShrinksAndEnds) {
    auto* bytes = static_cast<char*>(CoTaskMemRealloc(nullptr, 4));
    ASSERT_NE(bytes, nullptr);
    std::memcpy(bytes, "abc", 4);
    bytes = static_cast<char*>(CoTaskMemRealloc(bytes, 10000));
    EXPECT_STREQ(bytes, "abc");
    EXPECT_EQ(CoTaskMemRealloc(bytes, 0), nullptr);
    CoTaskMemFree(nullptr);
}

TEST(TaskMemory, NothingHasAnAddressOfItsOwn) {
    for (PVOID (*allocate)() : {+[] { return CoTaskMemAlloc(0); }, +[] { return CoTaskMemRealloc(nullptr, 0); }}) {
        PVOID first = allocate();
        PVOID second = allocate();
        EXPECT_NE(first, nullptr);
        EXPECT_NE(first, second);
        CoTaskMemFree(first);
        CoTaskMemFree(second);
    }
}

} // namespace
