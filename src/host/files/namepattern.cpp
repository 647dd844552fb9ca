#include "host/files/namepattern.h"

#include "host/files/names.h"

namespace mox::host {

NamePattern::NamePattern(std::string_view pattern) {
    if (pattern == "*.*") {
        pattern = "*";
    }
    const bool endsWithoutExtension = pattern.ends_with("*.");
    const std::u32string text =
        upperCase(endsWithoutExtension ? pattern.substr(0, pattern.size() - 1) : withoutTrailingDots(pattern));
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool beforeWildcard = i + 1 < text.size() && (text[i + 1] == U'*' || text[i + 1] == U'?');
        switch (text[i]) {
        case U'*':
            tokens_.push_back({Kind::any});
            break;
        case U'?':
            tokens_.push_back({Kind::one});
            break;
        case U'.':
            tokens_.push_back(beforeWildcard ? Token{Kind::dotOrEnd} : Token{Kind::character, U'.'});
            break;
        default:
            tokens_.push_back({Kind::character, text[i]});
        }
    }
    if (endsWithoutExtension) {
        tokens_.back() = {Kind::restWithoutDot};
    }
}

template <class Character> bool NamePattern::matchesText(std::basic_string_view<Character> name) const noexcept {
    // Only `any` leaves a choice, and what is between two of them ends the earlier the earlier it begins: so the last one passed
    // is the only one that it can help to widen.
    constexpr std::size_t none = ~std::size_t{0};
    std::size_t n = 0;
    std::size_t t = 0;
    std::size_t lastAny = none;
    std::size_t anyEnd = 0;
    for (;;) {
        const bool atEnd = n == name.size();
        if (t == tokens_.size()) {
            if (atEnd) {
                return true;
            }
        } else {
            const Token& token = tokens_[t];
            const bool atDot = !atEnd && static_cast<char32_t>(name[n]) == U'.';
            bool passed = false;
            switch (token.kind) {
            case Kind::character:
                passed = !atEnd && static_cast<char32_t>(name[n]) == token.character;
                n += passed ? 1 : 0;
                break;
            case Kind::one:
                passed = true;
                n += atEnd || atDot ? 0 : 1;
                break;
            case Kind::dotOrEnd:
                passed = atEnd || atDot;
                n += atDot ? 1 : 0;
                break;
            case Kind::any:
                passed = true;
                lastAny = t;
                anyEnd = n;
                break;
            case Kind::restWithoutDot:
                passed = name.find(Character('.'), n) == name.npos;
                n = passed ? name.size() : n;
                break;
            }
            if (passed) {
                ++t;
                continue;
            }
        }
        if (lastAny == none || anyEnd == name.size()) {
            return false;
        }
        n = ++anyEnd;
        t = lastAny + 1;
    }
}

bool NamePattern::matches(std::u32string_view name) const noexcept {
    return matchesText(name);
}

bool NamePattern::matches(std::string_view name) const noexcept {
    return matchesText(name);
}

} // namespace mox::host
