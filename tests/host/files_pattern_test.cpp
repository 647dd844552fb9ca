#include "host/files/namepattern.h"

#include <gtest/gtest.h>

#include <string>

namespace mox::test {

namespace {

TEST(NamePatternTest, matchesAsTheFindFunctionsDo) {
    struct {
        const char* pattern;
        const char32_t* name;
        bool matches;
    } const cases[] = {
        // Everything, with or without a dot.
        {"*", U"README", true},
        {"*.*", U"README", true},
        {"*.*", U"README.TXT", true},
        {"*.*", U"..", true},
        {"*", U"A.B.C", true},
        {"**", U"", true},
        // `*.` is what has no extension.
        {"*.", U"README", true},
        {"*.", U"README.TXT", false},
        {"*.", U"A.B.C", false},
        {"r*.", U"README", true},
        {"r*.", U"R.EADME", false},
        {"*.*.", U"README.TXT", true},
        {"*.*.", U"README", true},
        // Any characters, also over dots, also none.
        {"*.txt", U"README.TXT", true},
        {"*.txt", U"A.B.TXT", true},
        {"*.txt", U".TXT", true},
        {"*.txt", U"TXT", false},
        {"*.txt", U"README.TXTX", false},
        {"a*b*c", U"ABC", true},
        {"a*b*c", U"AXXBYYC", true},
        {"a*b*c", U"AXXBYYCD", false},
        {"a*b*c", U"ACB", false},
        {"*a*a*b", U"AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAB", true},
        {"*ab", U"AAB", true},
        {"*??a", U"XXXA", true},
        // One character, or none in front of a dot and at the end.
        {"?", U"A", true},
        {"?", U"AB", false},
        {"???", U"A", true},
        {"???", U"ABC", true},
        {"???", U"ABCD", false},
        {"a?c", U"ABC", true},
        {"a?c", U"AC", false},
        {"a?c", U"A.C", false},
        {"????.txt", U"A.TXT", true},
        {"????.txt", U"ABCDE.TXT", false},
        {"?.?", U"A", true},
        {"?.?", U"A.B", true},
        {"?.?", U"A.BC", false},
        {"a?b?", U"AXB", true},
        // A dot in front of a wildcard may be missing at the end.
        {"readme.*", U"README", true},
        {"readme.*", U"README.TXT", true},
        {"readme.*", U"README1", false},
        {"readme.???", U"README", true},
        {"readme.???", U"README.MD", true},
        {"readme.???", U"README.HTML", false},
        {"readme.t*", U"README", false},
        // Dots and blanks at the end of a pattern do not count.
        {"read?e. ", U"README", true},
        {"read?e...", U"README", true},
        // Other letters than those of ASCII.
        {"\xC3\xBC*", U"\u00DCBER", true},
        {"\xE6\x97\xA5?.txt", U"\u65E5\u672C.TXT", true},
        {"?.txt", U"\U0001F600.TXT", true},
    };
    for (const auto& [pattern, name, matches] : cases) {
        EXPECT_EQ(host::NamePattern(pattern).matches(name), matches)
            << pattern << " and " << testing::PrintToString(std::u32string(name));
    }
}

TEST(NamePatternTest, takesNoLongTimeForManyWildcards) {
    std::string pattern;
    for (int i = 0; i < 100; ++i) {
        pattern += "*a";
    }
    // Trying every choice would take longer than anybody waits.
    EXPECT_FALSE(host::NamePattern(pattern + "b").matches(std::u32string(250, U'A')));
    EXPECT_TRUE(host::NamePattern(pattern).matches(std::u32string(250, U'A')));
}

} // namespace

} // namespace mox::test
