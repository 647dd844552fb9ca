#include "host/fonts/ellipsis.h"
#include "host/fonts/mnemonics.h"
#include "host/fonts/textlines.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace mox::test {

namespace {

using namespace host;

/// Every character is 10 wide.
struct Measured {
    explicit Measured(std::u16string_view shown, double tabWidth = 0) : text(shown), advances(shown.size(), 10.0) {
        measured = {text, advances, tabWidth};
    }
    std::u16string text;
    std::vector<double> advances;
    MeasuredText measured;
};

std::vector<std::u16string> shownLines(std::u16string_view text, bool isSingle, WordBreak wordBreak, double width) {
    const Measured measured(text);
    std::vector<std::u16string> lines;
    for (const TextLine& line : breakLines(measured.measured, isSingle, wordBreak, width)) {
        EXPECT_DOUBLE_EQ(line.width, 10.0 * static_cast<double>(line.end - line.begin));
        lines.push_back(measured.text.substr(line.begin, line.end - line.begin));
    }
    return lines;
}

TEST(TextLinesTest, breaksWhereTheTextSaysSo) {
    using Lines = std::vector<std::u16string>;
    EXPECT_EQ(shownLines(u"a\r\nb\nc\rd", false, WordBreak::none, 0), (Lines{u"a", u"b", u"c", u"d"}));
    EXPECT_EQ(shownLines(u"\n\r\n\r", false, WordBreak::none, 0), (Lines{u"", u"", u"", u""}));
    EXPECT_EQ(shownLines(u"a\n\rb", false, WordBreak::none, 0), (Lines{u"a", u"", u"b"}));
    EXPECT_EQ(shownLines(u"a\r\nb", true, WordBreak::none, 0), (Lines{u"a\r\nb"}));
    EXPECT_EQ(shownLines(u"", false, WordBreak::between, 0), (Lines{u""}));
}

TEST(TextLinesTest, breaksBetweenWords) {
    struct Case {
        std::u16string_view text;
        double width;
        WordBreak wordBreak;
        std::vector<std::u16string> lines;
    };
    const Case cases[] = {
        {u"one two three", 130, WordBreak::between, {u"one two three"}},
        {u"one two three", 129, WordBreak::between, {u"one two", u"three"}},
        {u"one two three", 70, WordBreak::between, {u"one two", u"three"}},
        {u"one two three", 69, WordBreak::between, {u"one", u"two", u"three"}},
        {u"one two three", 1, WordBreak::between, {u"one", u"two", u"three"}},
        {u"one two three", 1, WordBreak::none, {u"one two three"}},
        {u"one   two", 40, WordBreak::between, {u"one", u"two"}},
        {u"one two   ", 70, WordBreak::between, {u"one two   "}},
        {u"a verylongword b", 50, WordBreak::between, {u"a", u"verylongword", u"b"}},
        {u"a verylongword b", 50, WordBreak::inside, {u"a", u"veryl", u"ongwo", u"rd b"}},
        {u"abc", 1, WordBreak::inside, {u"a", u"b", u"c"}},
        {u"one\ntwo three", 40, WordBreak::between, {u"one", u"two", u"three"}},
        {u"\u65E5\u672C\u8A9Eab cd", 30, WordBreak::between, {u"\u65E5\u672C\u8A9E", u"ab", u"cd"}},
    };
    for (const Case& expected : cases) {
        EXPECT_EQ(shownLines(expected.text, false, expected.wordBreak, expected.width), expected.lines)
            << testing::PrintToString(expected.text) << " in " << expected.width;
    }
}

TEST(TextLinesTest, expandsTabsFromTheBeginningOfTheLine) {
    const Measured text(u"a\tbc\t\td", 40);
    EXPECT_EQ(text.measured.width(0, 1), 10);
    EXPECT_EQ(text.measured.width(0, 2), 40);
    EXPECT_EQ(text.measured.width(0, 5), 80);
    EXPECT_EQ(text.measured.width(0, 7), 130);
    EXPECT_EQ(text.measured.width(4, 6, 60), 60);
    const Measured full(u"abcd\te", 40); // a stop that is reached is passed
    EXPECT_EQ(full.measured.width(0, 6), 90);
}

TEST(EllipsisTest, leavesOutWhatDoesNotFit) {
    struct Case {
        std::u16string_view text;
        double width;
        EllipsisPlace place;
        std::u16string_view shortened;
    };
    using enum EllipsisPlace;
    const Case cases[] = {
        {u"abcdefgh", 79, end, u"abcd..."},
        {u"abcdefgh", 70, end, u"abcd..."},
        {u"abcdefgh", 40, end, u"a..."},
        {u"abcdefgh", 39, end, u"..."},
        {u"abcdefgh", -5, end, u"..."},
        {u"ab\xD83D\xDE00"
         u"efgh",
         60, end, u"ab..."},
        {u"C:\\folder\\file.txt", 150, path, u"C:\\...\\file.txt"},
        {u"C:\\folder\\file.txt", 160, path, u"C:\\f...\\file.txt"},
        {u"C:\\folder\\file.txt", 120, path, u"...\\file.txt"},
        {u"C:\\folder\\file.txt", 90, path, u"...le.txt"},
        {u"C:\\folder\\file.txt", 10, path, u"..."},
        {u"abcdefghij", 70, path, u"ab...ij"},
        {u"abcdefghij", 80, path, u"ab...hij"},
    };
    for (const Case& expected : cases) {
        const Measured text(expected.text);
        const Shortened cut = shorten(text.measured, {0, text.text.size(), 10.0 * static_cast<double>(text.text.size())},
                                      expected.place, 30, expected.width);
        EXPECT_EQ(text.text.substr(0, cut.cutBegin) + u"..." + text.text.substr(cut.cutEnd), expected.shortened)
            << testing::PrintToString(expected.text) << " in " << expected.width;
    }
}

TEST(MnemonicsTest, takesAmpersandsOut) {
    struct Case {
        std::u16string_view text;
        std::u16string_view shown;
        std::vector<std::size_t> mnemonics;
        std::vector<std::size_t> places;
    };
    const Case cases[] = {
        {u"plain", u"plain", {}, {}},     {u"&File", u"File", {0}, {0, 2, 3, 4, 5}},
        {u"A&B", u"AB", {1}, {0, 1, 3}},  {u"A&&B", u"A&B", {}, {0, 1, 3, 4}},
        {u"&&&x", u"&x", {1}, {0, 2, 4}}, {u"end&", u"end", {}, {0, 1, 2, 4}},
        {u"& b", u" b", {}, {0, 2, 3}},   {u"&", u"", {}, {1}},
    };
    for (const Case& expected : cases) {
        const ShownText shown = readMnemonics(std::u16string(expected.text));
        EXPECT_EQ(shown.text, expected.shown);
        EXPECT_EQ(shown.mnemonics, expected.mnemonics) << testing::PrintToString(expected.text);
        EXPECT_EQ(shown.places, expected.places) << testing::PrintToString(expected.text);
    }
}

} // namespace

} // namespace mox::test
