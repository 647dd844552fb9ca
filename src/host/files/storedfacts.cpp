#include "host/files/storedfacts.h"

#include <sys/xattr.h>

#include <algorithm>
#include <array>
#include <charconv>

namespace mox::host {

namespace {

constexpr std::string_view prefix = "0x";

template <class Number> std::optional<Number> takeHexadecimal(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    if (!text.starts_with(prefix)) {
        return std::nullopt;
    }
    Number number = 0;
    const auto [end, error] = std::from_chars(text.data() + prefix.size(), text.data() + text.size(), number, 16);
    if (error != std::errc()) {
        return std::nullopt;
    }
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return number;
}

template <class Number> std::string hexadecimal(Number number) {
    std::array<char, 2 * sizeof number> digits;
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16);
    return std::string(prefix).append(digits.data(), end);
}

/// `get`: as getxattr behind the name.
template <class Get> StoredFacts readBy(Get get) {
    std::array<char, 256> buffer;
    const ssize_t length = get(buffer.data(), buffer.size());
    return length > 0 ? StoredFacts::parse({buffer.data(), static_cast<std::size_t>(length)}) : StoredFacts();
}

} // namespace

StoredFacts StoredFacts::parse(std::string_view text) {
    StoredFacts stored;
    stored.attributes = takeHexadecimal<std::uint32_t>(text);
    if (stored.attributes) {
        stored.created = takeHexadecimal<std::uint64_t>(text);
    }
    return stored;
}

std::string StoredFacts::text() const {
    return hexadecimal(attributes.value_or(0)) + (created ? " " + hexadecimal(*created) : "");
}

StoredFacts StoredFacts::read(const std::string& path) {
    return readBy([&](char* buffer, std::size_t size) { return getxattr(path.c_str(), attributeName, buffer, size); });
}

StoredFacts StoredFacts::read(int file) {
    return readBy([&](char* buffer, std::size_t size) { return fgetxattr(file, attributeName, buffer, size); });
}

bool StoredFacts::write(const std::string& path) const {
    const std::string value = text();
    return !attributes || setxattr(path.c_str(), attributeName, value.data(), value.size(), 0) == 0;
}

bool StoredFacts::write(int file) const {
    const std::string value = text();
    return !attributes || fsetxattr(file, attributeName, value.data(), value.size(), 0) == 0;
}

} // namespace mox::host
