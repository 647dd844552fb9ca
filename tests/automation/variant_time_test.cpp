#include "types_support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace mox;
using namespace mox::test;

namespace {

SYSTEMTIME parts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int milliseconds = 0) {
    const auto word = [](int value) { return static_cast<WORD>(value); };
    return {word(year), word(month), 0, word(day), word(hour), word(minute), word(second), word(milliseconds)};
}

std::string show(const SYSTEMTIME& time) {
    std::ostringstream text;
    text << time.wYear << '-' << time.wMonth << '-' << time.wDay << ' ' << time.wHour << ':' << time.wMinute << ':'
         << time.wSecond << '.' << time.wMilliseconds << " day " << time.wDayOfWeek;
    return text.str();
}

TEST(VariantTime, DaysCountFromTheEndOf1899) {
    const struct {
        SYSTEMTIME time;
        double days;
    } cases[] = {
        {parts(1899, 12, 30), 0},
        {parts(1899, 12, 31), 1},
        {parts(1900, 1, 1), 2},
        {parts(1900, 2, 28), 60}, // 1900 was no leap year
        {parts(1900, 3, 1), 61},
        {parts(1970, 1, 1), 25569},
        {parts(2000, 2, 29), 36585},
        {parts(2001, 1, 31, 15, 4, 5), 36922 + 54245 / 86400.0},
        {parts(2001, 1, 31, 0, 0, 0, 1), 36922 + 1 / 86400000.0},
        {parts(1899, 12, 30, 18), 0.75},
        {parts(1899, 12, 29), -1},
        {parts(1899, 12, 29, 18), -1.75}, // the fraction counts forward from the day
        {parts(1899, 12, 28, 6), -2.25},
        {parts(100, 1, 1), -657434},
        {parts(9999, 12, 31, 23, 59, 59), 2958465 + 86399 / 86400.0},
    };
    for (const auto& [time, days] : cases) {
        double result = -99;
        EXPECT_EQ(SystemTimeToVariantTime(&time, &result), 1) << show(time);
        EXPECT_EQ(result, days) << show(time);
    }
}

TEST(VariantTime, RefusesDaysThatAreInNoCalendar) {
    const SYSTEMTIME cases[] = {
        parts(99, 12, 31),           parts(0, 1, 1),
        parts(10000, 1, 1),          parts(2001, 0, 1),
        parts(2001, 13, 1),          parts(2001, 1, 0),
        parts(2001, 1, 32),          parts(2001, 2, 29),
        parts(1900, 2, 29),          parts(2001, 4, 31),
        parts(2001, 257, 1),         parts(2001, 1, 257),
        parts(2001, 1, 1, 24),       parts(2001, 1, 1, 0, 60),
        parts(65535, 1, 1),          parts(32868, 1, 1),
        parts(2001, 1, 1, 0, 0, 60), parts(2001, 1, 1, 0, 0, 0, 1000),
    };
    for (const SYSTEMTIME& time : cases) {
        double result = 5;
        EXPECT_EQ(SystemTimeToVariantTime(&time, &result), 0) << show(time);
    }
    const SYSTEMTIME good = parts(2001, 1, 1);
    double result = 0;
    EXPECT_EQ(SystemTimeToVariantTime(nullptr, &result), 0);
    EXPECT_EQ(SystemTimeToVariantTime(&good, nullptr), 0);
}

TEST(VariantTime, PartsAreWholeSeconds) {
    const struct {
        double days;
        const char* expected;
    } cases[] = {
        {0, "1899-12-30 0:0:0.0 day 6"},
        {-0.25, "1899-12-30 6:0:0.0 day 6"},
        {-1.25, "1899-12-29 6:0:0.0 day 5"},
        {36922.75, "2001-1-31 18:0:0.0 day 3"},
        {36922 + 0.6 / 86400, "2001-1-31 0:0:1.0 day 3"},
        {36922 + 0.4 / 86400, "2001-1-31 0:0:0.0 day 3"},
        {36922 + 86399.6 / 86400, "2001-2-1 0:0:0.0 day 4"},
        {-1 - 86399.6 / 86400, "1899-12-30 0:0:0.0 day 6"},
        {-657434 - 0.5, "100-1-1 12:0:0.0 day 5"},
        {2958465 + 86399.9 / 86400, "9999-12-31 23:59:59.0 day 5"},
    };
    for (const auto& [days, expected] : cases) {
        SYSTEMTIME time{};
        EXPECT_EQ(VariantTimeToSystemTime(days, &time), 1) << expected;
        EXPECT_EQ(show(time), expected);
    }
}

TEST(VariantTime, RefusesWhatIsOutOfRange) {
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double days : {-657435.0, 2958466.0, 1e300, -1e300, infinity, -infinity, std::nan("")}) {
        SYSTEMTIME time{};
        EXPECT_EQ(VariantTimeToSystemTime(days, &time), 0) << days;
    }
    EXPECT_EQ(VariantTimeToSystemTime(0, nullptr), 0);
}

TEST(VariantTime, EveryDayComesBack) {
    for (int day = -657434; day <= 2958465; day += 11) {
        const double fraction = std::abs(day % 86400) / 86400.0;
        const double days = day < 0 ? day - fraction : day + fraction;
        SYSTEMTIME time{};
        double again = 0;
        ASSERT_EQ(VariantTimeToSystemTime(days, &time), 1) << days;
        ASSERT_EQ(SystemTimeToVariantTime(&time, &again), 1) << days;
        ASSERT_EQ(again, days);
    }
}

} // namespace
