#include "automation/types/datetext.h"

#include "automation/types/characters.h"
#include "automation/types/varianttime.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <optional>

namespace mox::automation {

namespace {

constexpr std::array<std::u16string_view, 12> months{u"JANUARY", u"FEBRUARY", u"MARCH",     u"APRIL",   u"MAY",      u"JUNE",
                                                     u"JULY",    u"AUGUST",   u"SEPTEMBER", u"OCTOBER", u"NOVEMBER", u"DECEMBER"};
constexpr std::array<std::u16string_view, 7> weekdays{u"SUNDAY",   u"MONDAY", u"TUESDAY", u"WEDNESDAY",
                                                      u"THURSDAY", u"FRIDAY", u"SATURDAY"};
constexpr std::size_t abbreviation = 3;

enum class Kind { end, number, month, weekday, am, pm, timeMark, symbol };

struct Token {
    Kind kind = Kind::end;
    int value = 0;  ///< of a number or a month
    int digits = 0; ///< of a number
    char16_t symbol = 0;

    bool is(char16_t character) const { return kind == Kind::symbol && symbol == character; }
    bool isNumber() const { return kind == Kind::number; }
    bool isHalfOfDay() const { return kind == Kind::am || kind == Kind::pm; }
    bool canOnlyBeYear() const { return digits > 2 || value > 31; }
};

/// Splits a text into numbers, known words and separators.
class Tokens {
public:
    /// False if the text holds anything else.
    bool split(std::u16string_view text) {
        while (true) {
            while (!text.empty() && isBlank(text.front())) {
                text.remove_prefix(1);
            }
            if (text.empty()) {
                return true;
            }
            Token token;
            const std::size_t size = read(text, token);
            if (size == 0 || count_ == tokens_.size()) {
                return false;
            }
            tokens_[count_++] = token;
            text.remove_prefix(size);
        }
    }

    /// The token so many places on; the end repeats itself.
    const Token& peek(std::size_t ahead = 0) const {
        static constexpr Token end;
        return next_ + ahead < count_ ? tokens_[next_ + ahead] : end;
    }
    const Token& take() {
        const Token& token = peek();
        ++next_;
        return token;
    }
    bool takeSymbol(char16_t symbol) {
        const bool found = peek().is(symbol);
        next_ += found ? 1 : 0;
        return found;
    }

private:
    /// Gives the length of the token, 0 if there is none.
    static std::size_t read(std::u16string_view text, Token& token) {
        if (isDigit(text.front())) {
            return readNumber(text, token);
        }
        std::array<char16_t, 16> word;
        std::size_t size = 0;
        while (size < text.size() && size < word.size() && upperCase(text[size]) >= u'A' && upperCase(text[size]) <= u'Z') {
            word[size] = upperCase(text[size]);
            ++size;
        }
        if (size > 0) {
            return readWord({word.data(), size}, token) ? size : 0;
        }
        token.kind = Kind::symbol;
        token.symbol = text.front();
        return std::u16string_view(u"/-:.,").find(token.symbol) != std::u16string_view::npos ? 1 : 0;
    }
    static std::size_t readNumber(std::u16string_view text, Token& token) {
        constexpr int mostDigits = 9;
        token.kind = Kind::number;
        for (; token.digits < static_cast<int>(text.size()) && isDigit(text[static_cast<std::size_t>(token.digits)]);
             ++token.digits) {
            if (token.digits == mostDigits) {
                return 0;
            }
            token.value = token.value * 10 + (text[static_cast<std::size_t>(token.digits)] - u'0');
        }
        return static_cast<std::size_t>(token.digits);
    }
    static bool readWord(std::u16string_view word, Token& token) {
        const auto isNamed = [word](std::u16string_view name) { return word == name || word == name.substr(0, abbreviation); };
        if (const auto* month = std::ranges::find_if(months, isNamed); month != months.end() || word == u"SEPT") {
            token.kind = Kind::month;
            token.value = month != months.end() ? static_cast<int>(month - months.begin()) + 1 : 9;
        } else if (std::ranges::any_of(weekdays, isNamed)) {
            token.kind = Kind::weekday;
        } else if (word == u"AM" || word == u"A") {
            token.kind = Kind::am;
        } else if (word == u"PM" || word == u"P") {
            token.kind = Kind::pm;
        } else if (word == u"T") {
            token.kind = Kind::timeMark;
        } else {
            return false;
        }
        return true;
    }

    std::array<Token, 24> tokens_;
    std::size_t count_ = 0;
    std::size_t next_ = 0;
};

int presentYear() {
    const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
    std::tm parts{};
    localtime_r(&now, &parts);
    return parts.tm_year + 1900;
}

std::optional<double> dayOf(int year, int month, int day) {
    if (month > 12 || day > 31) {
        return std::nullopt;
    }
    SYSTEMTIME parts{};
    parts.wYear = static_cast<WORD>(year);
    parts.wMonth = static_cast<WORD>(month);
    parts.wDay = static_cast<WORD>(day);
    return dateOf(parts);
}

/// As it stands there, or in the century from 1930 on.
int yearOf(const Token& number) {
    if (number.digits > 2) {
        return number.digits == 3 || number.digits == 4 ? number.value : 0;
    }
    return number.value + (number.value < 30 ? 2000 : 1900);
}

/// Reads a date and a time of day from the tokens of a text.
class Reader {
public:
    explicit Reader(Tokens& tokens) : tokens_(tokens) {}

    std::optional<double> read() {
        while (tokens_.peek().kind != Kind::end) {
            if (!(atTime() ? !time_ && readTime() : !day_ && readDay())) {
                return std::nullopt;
            }
        }
        if (!day_ && !time_) {
            return std::nullopt;
        }
        return withTime(day_.value_or(0), time_.value_or(0));
    }

private:
    bool atTime() const { return tokens_.peek().isNumber() && (tokens_.peek(1).is(u':') || tokens_.peek(1).isHalfOfDay()); }

    bool readTime() {
        const int written = tokens_.take().value;
        int minute = 0;
        double second = 0;
        if (tokens_.takeSymbol(u':')) {
            if (!readSexagesimal(minute)) {
                return false;
            }
            if (tokens_.takeSymbol(u':') && !readSecond(second)) {
                return false;
            }
        }
        const std::optional<int> hour = readHalfOfDay(written);
        if (!hour) {
            return false;
        }
        constexpr double secondsOfDay = 86'400;
        time_ = (*hour * 3600 + minute * 60 + second) / secondsOfDay;
        return true;
    }
    bool readSexagesimal(int& value) {
        const Token& number = tokens_.take();
        value = number.value;
        return number.isNumber() && number.digits <= 2 && value < 60;
    }
    bool readSecond(double& second) {
        int whole = 0;
        if (!readSexagesimal(whole)) {
            return false;
        }
        second = whole;
        if (tokens_.takeSymbol(u'.')) {
            const Token& fraction = tokens_.take();
            if (!fraction.isNumber()) {
                return false;
            }
            second += fraction.value / std::pow(10.0, fraction.digits);
        }
        return true;
    }
    /// The hour from 0 to 23 of the one that was written and of the half of the day, if that follows.
    std::optional<int> readHalfOfDay(int written) {
        if (!tokens_.peek().isHalfOfDay()) {
            return written < 24 ? std::optional(written) : std::nullopt;
        }
        const bool afternoon = tokens_.take().kind == Kind::pm;
        return written <= 12 ? std::optional(written % 12 + (afternoon ? 12 : 0)) : std::nullopt;
    }

    bool readDay() {
        if (tokens_.peek().kind == Kind::weekday) {
            tokens_.take();
            tokens_.takeSymbol(u',');
        }
        const bool numeric = tokens_.peek().isNumber() && atSlash(1) && tokens_.peek(2).isNumber();
        day_ = numeric ? readNumericDay() : readNamedDay();
        if (!day_) {
            return false;
        }
        if (tokens_.takeSymbol(u',') || tokens_.peek().kind == Kind::timeMark) {
            if (tokens_.peek().kind == Kind::timeMark) {
                tokens_.take();
            }
            return atTime();
        }
        return true;
    }
    bool atSlash(std::size_t ahead) const { return tokens_.peek(ahead).is(u'/') || tokens_.peek(ahead).is(u'-'); }

    std::optional<double> readNumericDay() {
        const Token first = tokens_.take();
        tokens_.take();
        const Token second = tokens_.take();
        if (atSlash(0) && tokens_.peek(1).isNumber()) {
            tokens_.take();
            const Token third = tokens_.take();
            return first.canOnlyBeYear() ? dayOf(yearOf(first), second.value, third.value)
                                         : monthAndDay(first.value, second.value, yearOf(third));
        }
        if (first.canOnlyBeYear()) {
            return dayOf(yearOf(first), second.value, 1);
        }
        if (second.canOnlyBeYear()) {
            return dayOf(yearOf(second), first.value, 1);
        }
        return monthAndDay(first.value, second.value, presentYear());
    }
    static std::optional<double> monthAndDay(int first, int second, int year) {
        const std::optional<double> day = dayOf(year, first, second);
        return day ? day : dayOf(year, second, first);
    }

    /// A month by its name, and one or two numbers before or behind it.
    std::optional<double> readNamedDay() {
        int month = 0;
        std::array<Token, 2> numbers;
        std::size_t count = 0;
        for (bool more = true; more; more = skipSeparator()) {
            const Token& token = tokens_.peek();
            if (token.kind == Kind::month && month == 0) {
                month = token.value;
            } else if (token.isNumber() && !atTime() && count < numbers.size()) {
                numbers[count++] = token;
            } else {
                break;
            }
            tokens_.take();
        }
        if (month == 0 || count == 0) {
            return std::nullopt;
        }
        const auto [first, second] = numbers;
        if (count == 1) {
            return first.canOnlyBeYear() ? dayOf(yearOf(first), month, 1) : dayOf(presentYear(), month, first.value);
        }
        return first.canOnlyBeYear() ? dayOf(yearOf(first), month, second.value) : dayOf(yearOf(second), month, first.value);
    }
    /// Takes what may stand between the parts of a day, if another part follows.
    bool skipSeparator() {
        const Token& token = tokens_.peek();
        if (token.kind != Kind::symbol || token.symbol == u':') {
            return token.kind == Kind::month || token.isNumber();
        }
        const Token& next = tokens_.peek(1);
        if (next.kind != Kind::month && !(next.isNumber() && !tokens_.peek(2).is(u':') && !tokens_.peek(2).isHalfOfDay())) {
            return false;
        }
        tokens_.take();
        return true;
    }

    Tokens& tokens_;
    std::optional<double> day_;
    std::optional<double> time_;
};

} // namespace

ShortText dateText(double date) noexcept {
    ShortText text;
    const std::optional<SYSTEMTIME> parts = partsOf(date);
    if (!parts) {
        return text;
    }
    const bool hasTime = parts->wHour != 0 || parts->wMinute != 0 || parts->wSecond != 0;
    const bool hasDay = *dayOf(parts->wYear, parts->wMonth, parts->wDay) != 0;
    if (hasDay) {
        text.appendNumber(parts->wMonth);
        text.append('/');
        text.appendNumber(parts->wDay);
        text.append('/');
        text.appendNumber(parts->wYear);
    }
    if (hasDay && hasTime) {
        text.append(' ');
    }
    if (hasTime || !hasDay) {
        text.appendNumber((parts->wHour + 11) % 12 + 1);
        text.append(':');
        text.appendNumber(parts->wMinute, 2);
        text.append(':');
        text.appendNumber(parts->wSecond, 2);
        text.append(parts->wHour < 12 ? " AM" : " PM");
    }
    return text;
}

HRESULT readDate(std::u16string_view text, double& date) noexcept {
    Tokens tokens;
    const std::optional<double> value = tokens.split(text) ? Reader(tokens).read() : std::nullopt;
    date = value.value_or(0);
    return value ? S_OK : DISP_E_TYPEMISMATCH;
}

} // namespace mox::automation
