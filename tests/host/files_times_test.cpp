#include "files_support.h"

#include <cstdlib>
#include <ctime>

namespace mox::test {

namespace {

using namespace platform;

constexpr std::uint64_t hour = 36'000'000'000;

/// The process has another time zone for as long as it lives.
class TimeZone {
public:
    explicit TimeZone(const char* name) {
        if (const char* before = std::getenv("TZ")) {
            before_ = before;
        }
        setenv("TZ", name, 1);
        tzset();
    }
    ~TimeZone() {
        before_ ? setenv("TZ", before_->c_str(), 1) : unsetenv("TZ");
        tzset();
    }

private:
    std::optional<std::string> before_;
};

class TimesTest : public FilesTest {};

TEST_F(TimesTest, becomeLocalByThePresentDifference) {
    struct {
        const char* zone;
        std::uint64_t ahead;
    } const zones[] = {
        {"UTC0", 0},
        {"XXX-5:30", 5 * hour + hour / 2},
        {"XXX8", 0 - 8 * hour},
        // Summer time all the year, so that the test knows what holds now.
        {"XXX-1YYY,0/0,J365/25", 2 * hour},
    };
    const std::uint64_t winter = 131'592'000'000'000'000; // in January 2018
    const std::uint64_t summer = winter + 180 * 24 * hour;
    for (const auto& [zone, ahead] : zones) {
        const TimeZone set(zone);
        for (const std::uint64_t time : {winter, summer}) {
            std::uint64_t local = 0;
            std::uint64_t back = 0;
            EXPECT_TRUE(kernel32().FileTimeToLocalFileTime(time, local)) << zone;
            EXPECT_EQ(local, time + ahead) << zone << ' ' << time;
            EXPECT_TRUE(kernel32().LocalFileTimeToFileTime(local, back)) << zone;
            EXPECT_EQ(back, time) << zone << ' ' << time;
        }
    }
}

TEST_F(TimesTest, endAtTheBoundsOfTime) {
    constexpr std::uint64_t last = ~std::uint64_t{0} >> 1;
    struct {
        const char* zone;
        std::uint64_t time;
        bool becomesLocal;
        bool becomesUtc;
    } const cases[] = {
        {"UTC0", 0, true, true},      {"UTC0", last, true, true},  {"UTC0", last + 1, false, false},
        {"XXX-1", 0, true, false},    {"XXX1", 0, false, true},    {"XXX1", hour, true, true},
        {"XXX-1", last, false, true}, {"XXX1", last, true, false}, {"XXX1", ~std::uint64_t{0}, false, false},
    };
    for (const auto& [zone, time, becomesLocal, becomesUtc] : cases) {
        const TimeZone set(zone);
        std::uint64_t result = 42;
        EXPECT_EQ(kernel32().FileTimeToLocalFileTime(time, result), becomesLocal) << zone << ' ' << time;
        EXPECT_EQ(kernel32().LocalFileTimeToFileTime(time, result), becomesUtc) << zone << ' ' << time;
    }
}

TEST_F(TimesTest, comeFromTheCalendar) {
    struct {
        SYSTEMTIME calendar; // year, month, day of week, day, hour, minute, second, milliseconds
        std::uint64_t time;  // 0 after a failure
    } const cases[] = {
        {{1601, 1, 0, 1, 0, 0, 0, 1}, 10'000},
        {{1970, 1, 0, 1, 0, 0, 0, 0}, 116'444'736'000'000'000},
        {{2000, 2, 9, 29, 12, 34, 56, 789}, 125'963'012'967'890'000},
        {{2001, 2, 6, 3, 4, 5, 6, 700}, 126'256'467'067'000'000},
        {{30827, 12, 0, 31, 23, 59, 59, 999}, 9'223'149'887'999'990'000},
        {{1600, 12, 0, 31, 0, 0, 0, 0}, 0},
        {{30828, 1, 0, 1, 0, 0, 0, 0}, 0},
        {{65535, 1, 0, 1, 0, 0, 0, 0}, 0},
        {{2001, 0, 0, 1, 0, 0, 0, 0}, 0},
        {{2001, 13, 0, 1, 0, 0, 0, 0}, 0},
        {{2001, 257, 0, 1, 0, 0, 0, 0}, 0},
        {{2001, 1, 0, 0, 0, 0, 0, 0}, 0},
        {{2001, 1, 0, 257, 0, 0, 0, 0}, 0},
        {{2001, 2, 0, 29, 0, 0, 0, 0}, 0},
        {{1900, 2, 0, 29, 0, 0, 0, 0}, 0},
        {{2001, 4, 0, 31, 0, 0, 0, 0}, 0},
        {{2001, 1, 0, 1, 24, 0, 0, 0}, 0},
        {{2001, 1, 0, 1, 0, 60, 0, 0}, 0},
        {{2001, 1, 0, 1, 0, 0, 60, 0}, 0},
        {{2001, 1, 0, 1, 0, 0, 0, 1000}, 0},
    };
    for (const auto& [calendar, time] : cases) {
        std::uint64_t result = 0;
        EXPECT_EQ(kernel32().SystemTimeToFileTime(calendar, result), time != 0) << calendar.wYear << ' ' << time;
        EXPECT_EQ(result, time) << calendar.wYear;
    }
}

TEST_F(TimesTest, foldersOfTheSystemFitTheirBuffers) {
    struct {
        Operation<std::uint32_t(std::span<char>)>& folder;
        std::string_view path;
    } const cases[] = {{kernel32().GetWindowsDirectoryA, "C:\\Windows"},
                       {kernel32().GetSystemDirectoryA, "C:\\Windows\\System32"}};
    for (const auto& [folder, path] : cases) {
        const auto length = static_cast<std::uint32_t>(path.size());
        std::string buffer(260, '.');
        EXPECT_EQ(folder({}), length + 1);
        EXPECT_EQ(folder(std::span(buffer).first(length)), length + 1);
        EXPECT_EQ(buffer.front(), '.') << "a short buffer is left alone";
        EXPECT_EQ(folder(std::span(buffer).first(length + 1)), length);
        EXPECT_EQ(buffer.substr(0, length + 1), std::string(path) + '\0');
        EXPECT_EQ(attributes(path), FILE_ATTRIBUTE_DIRECTORY);
    }
}

} // namespace

} // namespace mox::test
