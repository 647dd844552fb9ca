#include "core/numberreading.h"

#include "automation/objects/runtimeerror.h"

#include <gtest/gtest.h>

namespace mox::test {

namespace {

TEST(NumberReading, TakesTheNumberAtTheStart) {
    struct Row {
        std::u16string_view text;
        Double value;
    };
    const Row rows[] = {
        {u"", 0},
        {u"abc", 0},
        {u"12", 12},
        {u"  1 2\t3\n4x5", 1234},
        {u"\r12", 0},
        {u"12\r3", 12},
        {u"-5", -5},
        {u"- 5", -5},
        {u"+5", 5},
        {u"--5", 0},
        {u"1.5", 1.5},
        {u".5", 0.5},
        {u"5.", 5},
        {u".", 0},
        {u"1.5.3", 1.5},
        {u"1,5", 1},
        {u"1E3", 1000},
        {u"1e+3", 1000},
        {u"1D-2", 0.01},
        {u"2 E 2", 200},
        {u"1E", 1},
        {u"1Ex", 1},
        {u"1E+", 1},
        {u"E5", 0},
        {u"1e-400", 0},
        {u"0e999", 0},
        {u"&HFF", 255},
        {u"&hffff", -1},
        {u"&H8000", -32768},
        {u"&H0FFFF", 65535},
        {u"&HFFFFFFFF", -1},
        {u"&H 1 F", 31},
        {u"&HG", 0},
        {u"&", 0},
        {u"&O17", 15},
        {u"&o177777", -1},
        {u"&O8", 0},
        {u"&O0177777", 65535},
        {u"& H10", 16},
        {u"123456789012345678901234567890", 1.2345678901234568e29},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(server::Val(row.text), row.value) << utf8FromUtf16(row.text);
    }
    for (const std::u16string_view tooLarge : {u"1e309", u"-1e309", u"1e400x", u"&H100000000"}) {
        try {
            server::Val(tooLarge);
            ADD_FAILURE() << utf8FromUtf16(tooLarge);
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number(), errOverflow);
        }
    }
}

} // namespace
} // namespace mox::test
