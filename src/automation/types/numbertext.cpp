#include "automation/types/numbertext.h"

#include "automation/types/characters.h"

namespace mox::automation {

namespace {

void appendDigits(ShortText& text, const DecimalDigits& digits, int first, int count) {
    const auto size = static_cast<std::size_t>(count);
    const std::string_view present = digits.text().substr(static_cast<std::size_t>(std::min(first, digits.count())), size);
    text.append(present);
    text.append(size - present.size(), '0');
}

void appendPlain(ShortText& text, const DecimalDigits& digits) {
    if (digits.point > 0) {
        appendDigits(text, digits, 0, digits.point);
    } else {
        text.append('0');
    }
    if (digits.count() > digits.point) {
        text.append('.');
        text.append(static_cast<std::size_t>(std::max(-digits.point, 0)), '0');
        const int first = std::max(digits.point, 0);
        appendDigits(text, digits, first, digits.count() - first);
    }
}

void appendScientific(ShortText& text, const DecimalDigits& digits) {
    appendDigits(text, digits, 0, 1);
    if (digits.count() > 1) {
        text.append('.');
        appendDigits(text, digits, 1, digits.count() - 1);
    }
    const int exponent = digits.point - 1;
    text.append('E');
    text.append(exponent < 0 ? '-' : '+');
    text.appendNumber(std::abs(exponent), 2);
}

ShortText textOf(DecimalDigits digits, int mostDigits, int leastPoint) {
    ShortText text;
    digits.dropTrailingZeros();
    if (digits.count() == 0) {
        text.append('0');
        return text;
    }
    if (digits.negative) {
        text.append('-');
    }
    if (digits.point > mostDigits || digits.point < leastPoint) {
        appendScientific(text, digits);
    } else {
        appendPlain(text, digits);
    }
    return text;
}

/// Reads one number; every step moves on behind what it has taken.
class Reader {
public:
    explicit Reader(std::u16string_view text) : rest_(text) {}

    HRESULT read(ReadNumber& number) {
        skipBlanks();
        if (takePrefix(u'H')) {
            return readPattern(number, 4);
        }
        if (takePrefix(u'O')) {
            return readPattern(number, 3);
        }
        takeAffixes(true);
        const bool hasDigits = readDigits(number.digits) && readExponent(number.digits);
        takeAffixes(false);
        number.digits.negative = negative_;
        return hasDigits && rest_.empty() && !parenthesis_ ? S_OK : DISP_E_TYPEMISMATCH;
    }

private:
    bool take(char16_t character) {
        if (!rest_.starts_with(character)) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }
    void skipBlanks() {
        while (!rest_.empty() && isBlank(rest_.front())) {
            rest_.remove_prefix(1);
        }
    }
    bool takePrefix(char16_t letter) {
        if (rest_.size() < 2 || rest_[0] != u'&' || upperCase(rest_[1]) != letter) {
            return false;
        }
        rest_.remove_prefix(2);
        return true;
    }

    HRESULT readPattern(ReadNumber& number, int bitsPerDigit) {
        bool any = false;
        bool tooLong = false;
        std::uint64_t bits = 0;
        for (; !rest_.empty() && digitOf(rest_.front(), 1 << bitsPerDigit) >= 0; rest_.remove_prefix(1)) {
            any = true;
            tooLong = tooLong || bits >> (64 - bitsPerDigit) != 0;
            bits = bits << bitsPerDigit | static_cast<unsigned>(digitOf(rest_.front(), 1 << bitsPerDigit));
        }
        skipBlanks();
        if (!any || !rest_.empty()) {
            return DISP_E_TYPEMISMATCH;
        }
        number.isPattern = true;
        number.pattern.bits = bits;
        return tooLong ? DISP_E_OVERFLOW : S_OK;
    }

    /// Blanks, one sign, one currency sign and one pair of parentheses, which stands for a minus sign.
    void takeAffixes(bool before) {
        do {
            skipBlanks();
        } while (takeSign() || takeCurrency() || takeParenthesis(before));
    }
    bool takeSign() {
        if (sign_ || !(rest_.starts_with(u'-') || rest_.starts_with(u'+'))) {
            return false;
        }
        sign_ = true;
        negative_ = rest_.front() == u'-';
        rest_.remove_prefix(1);
        return true;
    }
    bool takeCurrency() {
        if (currency_ || !take(u'$')) {
            return false;
        }
        return currency_ = true;
    }
    bool takeParenthesis(bool before) {
        if (before) {
            if (sign_ || !take(u'(')) {
                return false;
            }
            return sign_ = negative_ = parenthesis_ = true;
        }
        if (!parenthesis_ || !take(u')')) {
            return false;
        }
        parenthesis_ = false;
        return true;
    }

    bool readDigits(DecimalDigits& digits) {
        bool any = false;
        bool fraction = false;
        for (; !rest_.empty(); rest_.remove_prefix(1)) {
            const char16_t character = rest_.front();
            if (isDigit(character)) {
                any = true;
                add(digits, character - u'0', fraction);
            } else if (character == u'.' && !fraction) {
                fraction = true;
            } else if (character != u',' || fraction || !any || rest_.size() < 2 || !isDigit(rest_[1])) {
                break;
            }
        }
        return any;
    }
    static void add(DecimalDigits& digits, int digit, bool fraction) {
        if (digits.count() > 0 || digit != 0) {
            digits.append(digit);
            digits.point += fraction ? 0 : 1;
        } else {
            digits.point -= fraction ? 1 : 0;
        }
    }

    bool readExponent(DecimalDigits& digits) {
        if (rest_.empty() || (upperCase(rest_.front()) != u'E' && upperCase(rest_.front()) != u'D')) {
            return true;
        }
        rest_.remove_prefix(1);
        const bool down = take(u'-');
        if (!down) {
            take(u'+');
        }
        constexpr int largest = 100'000'000; // beyond every number, and small enough to calculate with
        bool any = false;
        int exponent = 0;
        for (; !rest_.empty() && isDigit(rest_.front()); rest_.remove_prefix(1)) {
            any = true;
            exponent = std::min(exponent * 10 + (rest_.front() - u'0'), largest);
        }
        digits.point += down ? -exponent : exponent;
        return any;
    }

    std::u16string_view rest_;
    bool sign_ = false;
    bool negative_ = false;
    bool currency_ = false;
    bool parenthesis_ = false;
};

} // namespace

ShortText numberText(const FixedPoint& number) noexcept {
    constexpr int all = 39;
    return textOf(decimalDigits(number), all, -all);
}

ShortText numberText(const RealNumber& number) noexcept {
    // A whole number of so few digits is as quickly written as an integer.
    const auto end = static_cast<double>(static_cast<std::uint64_t>(powerOfTen(number.significant)));
    if (std::fabs(number.value) < end && number.value == std::trunc(number.value)) {
        return numberText(fixedPoint(static_cast<std::int64_t>(number.value)));
    }
    if (std::isfinite(number.value)) {
        constexpr int leastPoint = -3; // down to 0.0001
        return textOf(decimalDigits(number.value, number.significant), number.significant, leastPoint);
    }
    ShortText text;
    text.append(std::signbit(number.value) ? "-1.#" : "1.#");
    text.append(std::isinf(number.value) ? "INF" : std::signbit(number.value) ? "IND" : "QNAN");
    return text;
}

HRESULT readNumber(std::u16string_view text, ReadNumber& number) noexcept {
    return Reader(text).read(number);
}

} // namespace mox::automation
