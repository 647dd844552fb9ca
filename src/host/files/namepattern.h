// Patterns of names with wildcards.
#pragma once

#include "automation/objects/export.h"

#include <string>
#include <string_view>
#include <vector>

namespace mox::host {

/// A pattern as the find functions of DOS and Windows have it. `*` stands for any characters; `?` for one, or for none in front
/// of a dot and at the end of the name. A dot in front of a wildcard may be missing at the end of the name: `*.*` is everything,
/// `a.*` also finds `a`.
/// `*.` at the end finds names without an extension. Case does not count.
class MOX_API NamePattern {
public:
    /// `pattern`: UTF-8.
    explicit NamePattern(std::string_view pattern);

    /// `name`: in upper case. The second one is for ASCII alone.
    bool matches(std::u32string_view name) const noexcept;
    bool matches(std::string_view name) const noexcept;
    /// True for a pattern that every name matches.
    bool matchesAll() const noexcept { return tokens_.size() == 1 && tokens_.front().kind == Kind::any; }

    static bool hasWildcards(std::string_view text) noexcept { return text.find_first_of("*?") != std::string_view::npos; }

private:
    enum class Kind { character, any, one, dotOrEnd, restWithoutDot };
    struct Token {
        Kind kind;
        char32_t character = 0;
    };

    template <class Character> bool matchesText(std::basic_string_view<Character> name) const noexcept;

    std::vector<Token> tokens_;
};

} // namespace mox::host
