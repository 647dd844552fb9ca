#include "host/files/shortnames.h"

#include "host/files/names.h"

#include <mox/values.h>

#include <algorithm>
#include <cstdint>
#include <unordered_set>

namespace mox::host {

namespace {

constexpr std::string_view digits = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::size_t hashLength = 6;
constexpr std::uint64_t hashCount = 36ull * 36 * 36 * 36 * 36 * 36;
// X12345~6.EXT
constexpr std::size_t tildePosition = 6;
constexpr std::size_t longestStem = 8;
constexpr std::size_t longestExtension = 3;

bool isAscii(std::string_view text) noexcept {
    return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

char asciiUpper(char c) noexcept {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
}

std::string asciiUpper(std::string_view text) {
    std::string upper(text);
    std::ranges::transform(upper, upper.begin(), [](char c) { return asciiUpper(c); });
    return upper;
}

bool isLetterOrDigit(char c) noexcept {
    return digits.find(asciiUpper(c)) != std::string_view::npos;
}

bool isAllowedInShort(char c) noexcept {
    return static_cast<unsigned char>(c) > 0x20 && c != 0x7F &&
           std::string_view("\\/:*?\"<>|+,;=[].").find(c) == std::string_view::npos;
}

/// 64 bits FNV-1a. The names on the disks of our users depend on it: it must never change.
std::uint64_t hashOf(std::string_view name) noexcept {
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (const char c : name) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
    }
    return hash ^ (hash >> 32);
}

std::string extensionOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    std::string extension;
    if (dot != std::string_view::npos && dot > 0) {
        for (const char c : name.substr(dot + 1)) {
            if (isAllowedInShort(c) && static_cast<unsigned char>(c) < 0x80 && extension.size() < longestExtension) {
                extension += asciiUpper(c);
            }
        }
    }
    return extension.empty() ? extension : "." + extension;
}

std::string makeShort(std::string_view name, std::uint64_t number) {
    const auto first = std::ranges::find_if(name, isLetterOrDigit);
    std::string made(1, first == name.end() ? '_' : asciiUpper(*first));
    std::string hash(hashLength, '0');
    for (std::size_t i = hashLength; i-- > 0; number /= digits.size()) {
        hash[i] = digits[number % digits.size()];
    }
    made += hash;
    made.insert(tildePosition, 1, '~');
    return made + extensionOf(name);
}

} // namespace

bool canBeWritten(std::string_view name, const CodePage& codePage) {
    if (std::ranges::any_of(name, isReserved)) {
        return false;
    }
    if (isAscii(name)) {
        return true;
    }
    // Bytes that are no UTF-8 become a character that no code page holds.
    return codePage.holds(utf16FromUtf8(name));
}

bool isShort(std::string_view name, const CodePage& codePage) {
    constexpr std::size_t longest = longestStem + 1 + longestExtension;
    constexpr std::size_t longestCharacter = 4;
    if (name.size() > longest * longestCharacter || !canBeWritten(name, codePage)) {
        return false;
    }
    const std::string bytes = isAscii(name) ? std::string(name) : codePage.fromUtf8(name);
    const std::size_t dot = bytes.find('.');
    const std::size_t stem = std::min(dot, bytes.size());
    const std::size_t extension = bytes.size() - stem;
    return stem >= 1 && stem <= longestStem && extension != 1 && extension <= 1 + longestExtension &&
           std::ranges::count(name, '.') <= 1 &&
           std::ranges::all_of(name, [](char c) { return c == '.' || isAllowedInShort(c); });
}

bool looksMade(std::string_view text) noexcept {
    const std::string_view stem = text.substr(0, text.find('.'));
    return stem.size() == longestStem && stem[tildePosition] == '~';
}

ShortNames::ShortNames(std::vector<std::string> names, const CodePage& codePage) {
    std::ranges::sort(names);
    std::unordered_set<std::string> taken;
    for (const std::string& name : names) {
        if (looksMade(name)) {
            taken.insert(asciiUpper(name));
        }
    }
    for (const std::string& name : names) {
        if (isShort(name, codePage)) {
            continue;
        }
        std::uint64_t number = hashOf(name) % hashCount;
        std::string shortName = makeShort(name, number);
        while (!taken.insert(shortName).second) {
            number = (number + 1) % hashCount;
            shortName = makeShort(name, number);
        }
        made_.emplace(name, std::move(shortName));
    }
}

const std::string& ShortNames::of(const std::string& name) const {
    static const std::string none;
    const auto found = made_.find(name);
    return found == made_.end() ? none : found->second;
}

std::string ShortNames::find(std::string_view shortName) const {
    const std::string sought = asciiUpper(shortName);
    const auto found = std::ranges::find(made_, sought, [](const auto& entry) -> const std::string& { return entry.second; });
    return found == made_.end() ? std::string() : found->first;
}

} // namespace mox::host
