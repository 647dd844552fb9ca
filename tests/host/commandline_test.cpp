#include "host/processes/commandline.h"

#include <gtest/gtest.h>

namespace mox::test {

namespace {

using Texts = std::vector<std::string>;

TEST(CommandLineTest, splitsArguments) {
    const std::pair<std::string_view, Texts> rows[] = {
        {"", {}},
        {" \t ", {}},
        {" /a\t/b ", {"/a", "/b"}},
        {R"("a b" c)", {"a b", "c"}},
        {R"(a" b"c)", {"a bc"}},
        {R"("" x)", {"", "x"}},
        {R"("open end)", {"open end"}},
        {R"(C:\a\b\ "C:\a b\\" x)", {R"(C:\a\b\)", R"(C:\a b\)", "x"}},
        {R"(\"a\" \\"b c\\" \\\"d)", {R"("a")", R"(\b c\)", R"(\"d)"}},
        {R"("a""b" c"""d")", {R"(a"b)", R"(c"d)"}},
        {R"(a\\b\)", {R"(a\\b\)"}},
    };
    for (const auto& [text, expected] : rows) {
        EXPECT_EQ(host::splitArguments(text), expected) << text;
    }
}

TEST(CommandLineTest, hasReadings) {
    const std::pair<std::string_view, Texts> rows[] = {
        {"", {}},
        {"  ", {}},
        {"a", {"a|"}},
        {"  a  /x  ", {"a|  /x  ", "a  /x|  "}},
        {R"(C:\My Own\a.exe /x)", {R"(C:\My| Own\a.exe /x)", R"(C:\My Own\a.exe| /x)", R"(C:\My Own\a.exe /x|)"}},
        {R"("C:\My Own\a.exe" /x)", {R"(C:\My Own\a.exe| /x)"}},
        {R"("C:\a b")", {R"(C:\a b|)"}},
        {R"("open end)", {"open end|"}},
        {R"("")", {"|"}},
        {std::string_view("a\0b c", 5), {"a|"}},
    };
    for (const auto& [text, expected] : rows) {
        Texts readings;
        for (const auto& [program, arguments] : host::readingsOf(text)) {
            readings.push_back(program + "|" + std::string(arguments));
        }
        EXPECT_EQ(readings, expected) << text;
    }
}

} // namespace

} // namespace mox::test
