#include "types_support.h"

#include <gtest/gtest.h>

#include <ctime>

using namespace mox;
using namespace mox::test;

namespace {

constexpr double january31 = 36922; // 2001
constexpr double afternoon = (15 * 3600 + 4 * 60 + 5) / 86400.0;

std::string shownDate(double days) {
    return show(test::date(days));
}

TEST(DateText, IsWrittenInTheOrderOfTheUnitedStates) {
    const struct {
        double days;
        const char* text;
    } cases[] = {
        {january31, "1/31/2001"},
        {january31 + afternoon, "1/31/2001 3:04:05 PM"},
        {january31 + 0.5, "1/31/2001 12:00:00 PM"},
        {january31 + 1 / 86400.0, "1/31/2001 12:00:01 AM"},
        {january31 + 0.3 / 86400.0, "1/31/2001"},
        {0, "12:00:00 AM"},
        {afternoon, "3:04:05 PM"},
        {-0.25, "6:00:00 AM"},
        {-1.25, "12/29/1899 6:00:00 AM"},
        {-657434, "1/1/100"},
        {2958465, "12/31/9999"},
    };
    for (const auto& [days, text] : cases) {
        EXPECT_EQ(converted(test::date(days), VT_BSTR), std::string("BSTR ") + text);
    }
    EXPECT_EQ(converted(test::date(-657435), VT_BSTR), "overflow");
    EXPECT_EQ(converted(test::date(1e9), VT_BSTR), "overflow");
}

TEST(DateText, IsReadInManyForms) {
    const struct {
        const char16_t* text;
        double days;
    } cases[] = {
        {u"1/31/2001", january31},
        {u"  01/31/2001  ", january31},
        {u"1/31/01", january31},
        {u"1-31-2001", january31},
        {u"31/1/2001", january31}, // only this way round a date
        {u"2001-01-31", january31},
        {u"2001/1/31", january31},
        {u"2001-01-31T15:04:05", january31 + afternoon},
        {u"2001-01-31 15:04:05.000", january31 + afternoon},
        {u"Jan 31, 2001", january31},
        {u"JANUARY 31 2001", january31},
        {u"january 31, 2001 3:04:05 pm", january31 + afternoon},
        {u"31 January 2001", january31},
        {u"31-Jan-2001", january31},
        {u"31.Jan.2001", january31},
        {u"31Jan01", january31},
        {u"2001 Jan 31", january31},
        {u"Wednesday, January 31, 2001", january31},
        {u"Wed Jan 31 2001", january31},
        {u"Sept 1, 2001", 37135},
        {u"Jan 2001", 36892},
        {u"1/2001", 36892},
        {u"2001/1", 36892},
        {u"1/31/2001 3:04:05 PM", january31 + afternoon},
        {u"1/31/2001, 3:04:05PM", january31 + afternoon},
        {u"3:04:05 PM 1/31/2001", january31 + afternoon},
        {u"3:04:05 p Jan 31 2001", january31 + afternoon},
        {u"15:04:05", afternoon},
        {u"3:04:05pm", afternoon},
        {u"12:00:00 AM", 0},
        {u"12:00 PM", 0.5},
        {u"6 AM", 0.25},
        {u"0:30", 0.5 / 24},
        {u"12:30 am", 0.5 / 24},
        {u"12/29/1899 6:00", -1.25},
        {u"1/1/100", -657434},
        {u"12/31/9999", 2958465},
        {u"2/29/2000", 36585},
        {u"1/1/29", 47119},    // 2029
        {u"1/1/30", 10959},    // 1930
        {u"1/1/0", 36526},     // 2000
        {u"36922.5", 36922.5}, // a number is the date itself
        {u"-1.25", -1.25},
    };
    for (const auto& [text, days] : cases) {
        EXPECT_EQ(converted(Variant(text), VT_DATE), shownDate(days)) << utf8FromUtf16(text);
    }
}

TEST(DateText, AMissingYearIsThePresentOne) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    const std::string year = std::to_string(local.tm_year + 1900);
    for (const char16_t* text : {u"3/15", u"15/3", u"March 15", u"15 Mar", u"Mar-15"}) {
        Variant date;
        const Variant source(text);
        ASSERT_EQ(VariantChangeType(&date, &source, 0, VT_DATE), S_OK);
        EXPECT_EQ(converted(date, VT_BSTR), "BSTR 3/15/" + year) << utf8FromUtf16(text);
    }
}

TEST(DateText, RefusesWhatIsNoDate) {
    const char16_t* cases[] = {
        u"",
        u" ",
        u"tomorrow",
        u"13/32/2001",
        u"2/29/2001",
        u"2001-13-01",
        u"2001-02-30",
        u"1/31/99999",
        u"1/31/2001/5",
        u"1/31/",
        u"/1/31",
        u"1//31",
        u"24:00",
        u"12:60",
        u"12:00:60",
        u"12:",
        u":30",
        u"13 PM",
        u"13:00 PM",
        u"12:00 AM AM",
        u"12:00 12:00",
        u"Jan",
        u"Jan 32 2001",
        u"Jan Feb 2001",
        u"Monday",
        u"Jan 1 2 3",
        u"1/1/2001 T",
        u"T12:00",
        u"1/2/0099",
        u"65537/1/2001",
        u"1/65537/2001",
        u"1,234/5",
        u"2001-01-31T",
        u"1/31/2001,",
        u"Janu 5 2001",
        u"1/31/2001x",
        u"12:00:00.",
        u"2001-01-31T15:04:05Z",
        u"99999999999/1/1",
        u"1/1/2001 1/1/2001",
        u"\u0661/1/2001",
    };
    for (const char16_t* text : cases) {
        EXPECT_EQ(converted(Variant(text), VT_DATE), "mismatch") << utf8FromUtf16(text);
    }
    EXPECT_EQ(converted(Variant(u"1e9"), VT_DATE), "overflow");
}

} // namespace
