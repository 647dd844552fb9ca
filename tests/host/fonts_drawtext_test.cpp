// Text in rectangles, flag by flag. Characters of the font are all 10 wide, lines 19 high.
#include "fonts_support.h"

#include <limits>

namespace mox::test {

namespace {

using namespace platform;

constexpr int lineHeight = 19;

struct DrawTextTest : testing::Test {
    DrawTextTest() { board.select({.height = -16, .face = "Courier New"}); }

    struct Result {
        std::int32_t height = 0;
        RECT area;
        std::string text;
        bool operator==(const Result&) const = default;
    };
    /// With room for the four bytes that a text may grow by.
    Result draw(std::string_view text, RECT area, std::uint32_t format) {
        std::string buffer(text);
        buffer.resize(text.size() + 4, '#');
        Result result;
        result.area = area;
        result.height =
            board.machine->user32.DrawTextA(board.hdc, buffer, static_cast<std::int32_t>(text.size()), result.area, format);
        result.text = buffer.substr(0, buffer.find_first_of(std::string_view("\0#", 2)));
        return result;
    }
    RECT inkOf(std::string_view text, RECT area, std::uint32_t format) {
        board.clear();
        draw(text, area, format);
        return board.ink(true);
    }

    TextBoard board{300, 200};
};

TEST_F(DrawTextTest, measures) {
    struct Case {
        std::string_view text;
        RECT area;
        std::uint32_t format;
        std::int32_t height;
        RECT measured;
    };
    constexpr RECT none{5, 7, 5, 7};
    const Case cases[] = {
        {"", {1, 2, 3, 4}, 0, 0, {1, 2, 1, 2}},
        {"abc", none, 0, 19, {5, 7, 35, 26}},
        {"abc", {5, 7, 500, 600}, 0, 19, {5, 7, 35, 26}},
        {"a&bc", none, 0, 19, {5, 7, 35, 26}},
        {"a&bc", none, DT_NOPREFIX, 19, {5, 7, 45, 26}},
        {"a&&b", none, DT_HIDEPREFIX, 19, {5, 7, 35, 26}},
        {"ab\r\ncdef\ng", none, 0, 57, {5, 7, 45, 64}},
        {"ab\r\n", none, 0, 19, {5, 7, 25, 26}},
        {"ab\r\n\r\n", none, 0, 38, {5, 7, 25, 45}},
        {"\n", none, 0, 19, {5, 7, 5, 26}},
        {"ab\r\ncd", none, DT_SINGLELINE, 19, {5, 7, 45, 26}},
        {"a\tb", none, 0, 19, {5, 7, 25, 26}},
        {"a\tb", none, DT_EXPANDTABS, 19, {5, 7, 95, 26}},
        {"12345678\tb", none, DT_EXPANDTABS, 19, {5, 7, 175, 26}},
        {"one two three", {0, 0, 75, 10}, DT_WORDBREAK, 38, {0, 0, 70, 38}},
        {"one two three", {0, 0, 40, 10}, DT_WORDBREAK, 57, {0, 0, 50, 57}},
        {"one two three", {0, 0, 40, 10}, DT_WORDBREAK | DT_EDITCONTROL, 76, {0, 0, 40, 76}},
        {"one two three", {0, 0, 40, 10}, DT_WORDBREAK | DT_SINGLELINE, 19, {0, 0, 130, 19}},
        {"one two three", {0, 0, 40, 10}, 0, 19, {0, 0, 130, 19}},
        {"abc", {0, 0, 10, 100}, DT_SINGLELINE | DT_VCENTER, 19, {0, 0, 30, 19}},
        {"abcdefgh", {0, 0, 55, 10}, DT_END_ELLIPSIS, 19, {0, 0, 50, 19}},
        {"abcdefgh", {0, 0, 55, 10}, DT_WORD_ELLIPSIS, 19, {0, 0, 50, 19}},
        {"abc\ndef", {0, 0, 100, 10}, DT_END_ELLIPSIS, 38, {0, 0, 30, 38}},
        {"abc", none, DT_EXTERNALLEADING, 19, {5, 7, 35, 26}},
        {"abc", none, DT_INTERNAL, 16, {5, 7, 35, 23}},
        {"&", none, 0, 19, {5, 7, 5, 26}},
    };
    for (const Case& expected : cases) {
        const Result result = draw(expected.text, expected.area, expected.format | DT_CALCRECT);
        EXPECT_EQ(result.height, expected.height) << testing::PrintToString(expected.text) << " " << expected.format;
        EXPECT_EQ(result.area, expected.measured) << testing::PrintToString(expected.text) << " " << expected.format << ": "
                                                  << result.area.right << ", " << result.area.bottom;
        EXPECT_EQ(result.text, expected.text);
    }
    EXPECT_TRUE(board.isClear());
}

TEST_F(DrawTextTest, setsTabStopsByTheirDistance) {
    // The second byte is a number then, whatever flags its bits would be.
    const auto stops = [](std::uint32_t count) { return DT_EXPANDTABS | DT_TABSTOP | count << 8; };
    const RECT wide{0, 0, 300, 100};
    const RECT usual = inkOf("\tH", wide, DT_EXPANDTABS);
    const auto left = [&](std::uint32_t count) { return inkOf("\tH", wide, stops(count)).left - usual.left; };
    EXPECT_EQ(left(8), 0);
    EXPECT_EQ(left(0), 0);
    EXPECT_EQ(left(4), -40); // the bit of DT_CALCRECT
    EXPECT_EQ(left(1), -70);
    EXPECT_EQ(left(20), 120);
    const Result result = draw("\tabc", {0, 0, 50, 50}, stops(0x84)); // neither measured nor shortened
    EXPECT_EQ(result.area, (RECT{0, 0, 50, 50}));
}

TEST_F(DrawTextTest, liesInItsRectangle) {
    const RECT area{20, 10, 220, 90};
    const RECT plain = inkOf("HHH", area, 0);
    struct Case {
        std::uint32_t format;
        int dx;
        int dy;
        std::int32_t height;
    };
    constexpr std::uint32_t single = DT_SINGLELINE;
    const Case cases[] = {
        {DT_CENTER, 85, 0, 19},          {DT_RIGHT, 170, 0, 19},
        {DT_VCENTER, 0, 0, 19}, // single lines only
        {DT_BOTTOM, 0, 0, 19},           {single | DT_VCENTER, 0, 30, 49},
        {single | DT_BOTTOM, 0, 61, 80}, {single | DT_RIGHT | DT_BOTTOM, 170, 61, 80},
    };
    for (const Case& expected : cases) {
        EXPECT_EQ(inkOf("HHH", area, expected.format), (RECT{plain.left + expected.dx, plain.top + expected.dy,
                                                             plain.right + expected.dx, plain.bottom + expected.dy}))
            << expected.format;
        EXPECT_EQ(draw("HHH", area, expected.format).height, expected.height) << expected.format;
    }
    // Each line for itself.
    const RECT lines = inkOf("H\nHHH", area, DT_RIGHT);
    EXPECT_EQ(lines, (RECT{plain.left + 170, plain.top, plain.right + 170, plain.bottom + lineHeight}));
    EXPECT_EQ(board.pixel(lines.left + 1, plain.top + 5), 0xFFFFFFU);
}

TEST_F(DrawTextTest, shortensTheTextInItsBuffer) {
    struct Case {
        std::string_view text;
        RECT area;
        std::uint32_t format;
        std::string_view modified;
    };
    const Case cases[] = {
        {"abcdefgh", {0, 0, 80, 20}, DT_END_ELLIPSIS, "abcdefgh"},
        {"abcdefgh", {0, 0, 79, 20}, DT_END_ELLIPSIS, "abcd..."},
        {"abcdefgh", {0, 0, 10, 20}, DT_END_ELLIPSIS, "..."},
        {"ab", {0, 0, 10, 20}, DT_END_ELLIPSIS, "..."},
        {"a", {0, 0, 1, 20}, DT_END_ELLIPSIS, "..."},
        {"a&bcdefgh", {0, 0, 50, 20}, DT_END_ELLIPSIS, "a&b..."},
        {"a&bcdefgh", {0, 0, 40, 20}, DT_END_ELLIPSIS, "a..."},
        {"a&bcdefgh", {0, 0, 50, 20}, DT_END_ELLIPSIS | DT_NOPREFIX, "a&..."},
        {"abcdefgh", {0, 0, 79, 20}, DT_WORD_ELLIPSIS, "abcdefgh"},
        {"abcdefgh", {0, 0, 79, 20}, DT_END_ELLIPSIS | DT_CALCRECT, "abcd..."},
        {"C:\\one\\two\\name.txt", {0, 0, 160, 20}, DT_PATH_ELLIPSIS, "C:\\o...\\name.txt"},
        {"C:\\one\\two\\name.txt", {0, 0, 60, 20}, DT_PATH_ELLIPSIS, "...txt"},
        {"abcd efgh ijkl", {0, 0, 55, 39}, DT_END_ELLIPSIS | DT_WORDBREAK, "abcd ef..."},
        {"abcd\nef", {0, 0, 100, 20}, DT_END_ELLIPSIS, "abcd..."},
        {"abcd\nefghijkl\nm", {0, 0, 50, 100}, DT_END_ELLIPSIS, "abcd\nefghijkl\nm"}, // only the end is marked
        {"abcdefgh\nefghijkl", {0, 0, 50, 100}, DT_PATH_ELLIPSIS, "a...h\ne...l"},
    };
    for (const Case& expected : cases) {
        EXPECT_EQ(draw(expected.text, expected.area, expected.format | DT_MODIFYSTRING).text, expected.modified)
            << expected.text << " " << expected.format;
        EXPECT_EQ(draw(expected.text, expected.area, expected.format).text, expected.text);
    }
}

TEST_F(DrawTextTest, neverWritesBehindItsBuffer) {
    for (const std::size_t room : {1U, 2U, 3U, 4U, 5U}) {
        std::string buffer = "ab";
        buffer.resize(room, '#');
        std::string memory = buffer + "guard";
        RECT area{0, 0, 10, 20};
        const auto length = static_cast<std::int32_t>(std::min<std::size_t>(room, 2));
        EXPECT_EQ(board.machine->user32.DrawTextA(board.hdc, std::span(memory).first(room), length, area,
                                                  DT_END_ELLIPSIS | DT_MODIFYSTRING),
                  lineHeight);
        EXPECT_EQ(memory.substr(room), "guard");
        EXPECT_EQ(memory.substr(0, room), room == 1 ? "a" : std::string("...\0#", 5).substr(0, room));
    }
}

TEST_F(DrawTextTest, takesLengthsInBytes) {
    const auto draw = [&](std::string text, std::int32_t length) {
        RECT area;
        return board.machine->user32.DrawTextA(board.hdc, text, length, area, DT_CALCRECT) == 0 ? -1 : area.right;
    };
    EXPECT_EQ(draw("abc", 2), 20);
    EXPECT_EQ(draw("abc", 0), -1);
    EXPECT_EQ(draw("abc", 99), 30);
    EXPECT_EQ(draw("abc", -2), -1);
    EXPECT_EQ(draw(std::string("ab\0cd", 5), -1), 20);
    EXPECT_EQ(draw(std::string("ab\0cd", 5), 5), 40);
    EXPECT_EQ(draw("abc", -1), 30);
    RECT area{1, 2, 3, 4};
    std::string text = "abc";
    EXPECT_EQ(board.machine->user32.DrawTextA(4711, text, 3, area, DT_CALCRECT), 0);
    EXPECT_EQ(area, (RECT{1, 2, 3, 4}));
}

TEST_F(DrawTextTest, cutsCharactersOfTwoBytesWhole) {
    host::MachineConfig config;
    config.codePage = 932;
    TestMachine machine(config);
    const Handle hdc = machine->gdi32.CreateCompatibleDC(0);
    std::string text = "\x83\x41\x83\x5C\x83\x42\x83\x43\x83\x44"; // one has a backslash as its second byte
    text.resize(14);
    const std::string whole = text;
    for (int width = 0; width < 120; width += 5) {
        std::string buffer = whole;
        RECT area{0, 0, width, 20};
        machine->user32.DrawTextA(hdc, buffer, 10, area, DT_END_ELLIPSIS | DT_MODIFYSTRING);
        const std::size_t kept = buffer.find("...");
        EXPECT_TRUE(kept == std::string::npos || kept % 2 == 0) << width << " " << testing::PrintToString(buffer);
        EXPECT_EQ(buffer.substr(0, std::min<std::size_t>(kept, 10)), whole.substr(0, std::min<std::size_t>(kept, 10)));
    }
    EXPECT_TRUE(machine->gdi32.DeleteDC(hdc));
}

TEST_F(DrawTextTest, underlinesMnemonics) {
    const RECT area{0, 0, 300, 100};
    const RECT plain = inkOf("HHH", area, 0);
    const RECT marked = inkOf("H&HH", area, 0);
    EXPECT_GT(marked.bottom, plain.bottom);
    EXPECT_EQ(inkOf("H&HH", area, DT_HIDEPREFIX), plain);
    const RECT only = inkOf("H&HH", area, DT_PREFIXONLY);
    EXPECT_EQ(only, (RECT{10, marked.bottom - 1, 20, marked.bottom}));
    EXPECT_EQ(inkOf("H&HH", area, DT_PREFIXONLY | DT_HIDEPREFIX), RECT());
    EXPECT_NE(inkOf("H&HH", area, DT_NOPREFIX), plain);
}

TEST_F(DrawTextTest, isClippedToTheRectangle) {
    const RECT area{10, 10, 45, 20};
    const RECT ink = inkOf("HHHHHHHH\nHHH", area, 0);
    EXPECT_LE(ink.right, 45);
    EXPECT_LE(ink.bottom, 20);
    EXPECT_GT(inkOf("HHHHHHHH", area, DT_NOCLIP).right, 80);
    EXPECT_GT(inkOf("HHHHHHHH\nHHH", area, DT_NOCLIP).bottom, 40);
    // The last line of an edit control is there wholly or not at all.
    const RECT two{0, 0, 100, 37};
    EXPECT_GT(inkOf("HH\nHH", two, 0).bottom, lineHeight);
    EXPECT_LT(inkOf("HH\nHH", two, DT_EDITCONTROL).bottom, lineHeight);
}

TEST_F(DrawTextTest, keepsTurnedTextMeasuredAlongItsLine) {
    board.select({.height = -16, .face = "Courier New"});
    const Result flat = draw("HHHHHHHH", {0, 0, 0, 0}, DT_CALCRECT);
    for (const int angle : {300, 450, 900, 2700}) {
        board.select({.height = -16, .face = "Courier New", .angle = angle});
        const Result turned = draw("HHHHHHHH", {0, 0, 0, 0}, DT_CALCRECT);
        EXPECT_NEAR(turned.area.right, flat.area.right, 5) << angle;
        EXPECT_EQ(turned.area.bottom, flat.area.bottom) << angle;
    }
    // It starts where flat text starts.
    board.select({.height = -16, .face = "Courier New", .angle = 2700});
    const RECT down = inkOf("HHH", {100, 50, 200, 150}, DT_NOCLIP);
    EXPECT_GE(down.top, 50);
    EXPECT_LE(down.right, 100);
    EXPECT_LE(down.left, 100 - 10);
    board.select({.height = -16, .face = "Courier New", .angle = 900});
    EXPECT_LE(inkOf("HHH", {100, 50, 200, 150}, DT_NOCLIP).bottom, 50);
}

TEST_F(DrawTextTest, survivesEveryRectangle) {
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    for (const RECT& area : {RECT{least, least, most, most}, RECT{most, most, least, least}, RECT{most, most, most, most},
                             RECT{0, 0, least, least}, RECT{least, least, least, least}}) {
        for (std::uint32_t bit = 1; bit <= DT_PREFIXONLY; bit <<= 1) {
            for (const std::uint32_t more : {0U, DT_SINGLELINE, DT_WORDBREAK | DT_EDITCONTROL, DT_CALCRECT}) {
                draw("a&b\tcd\r\nefgh ij\\kl", area, bit | more);
            }
        }
    }
}

} // namespace

} // namespace mox::test
