// Names of files, as the disk has them: bytes, read as UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace mox::host {

/// True if two names differ at most in the case of their letters, by the simple case folding of Unicode. Bytes that are no UTF-8
/// are equal to themselves only.
bool equalWithoutCase(std::string_view first, std::string_view second) noexcept;

/// A name with the case of its letters folded: equal for names that are equal without regard to case.
std::string foldCase(std::string_view name);

/// The upper-case characters of a name: what names are ordered by and patterns are compared with. A byte that is no UTF-8 becomes
/// a lone surrogate.
std::u32string upperCase(std::string_view name);

/// True for the characters that no name of a drive can have: control characters, separators, the colon, wildcards and the other
/// reserved ones.
constexpr bool isReserved(char c) noexcept {
    return static_cast<unsigned char>(c) < 0x20 || std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
}

/// A name without the dots and blanks at its end, which do not count.
std::string_view withoutTrailingDots(std::string_view name) noexcept;

} // namespace mox::host
