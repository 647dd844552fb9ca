#include "host/registry/profile.h"

#include "host/registry/registry.h"

#include "platform/advapi32.h"

#include <algorithm>
#include <optional>
#include <string>

namespace mox::host {

namespace {

std::optional<std::string> textOf(Registry& registry, const std::string& section, std::string_view name) {
    std::optional<RegistryValue> value;
    registry.value(platform::HKEY_CURRENT_USER, section, name, value);
    if (!value || value->type != platform::REG_SZ) {
        return std::nullopt;
    }
    return value->data.substr(0, value->data.find('\0'));
}

/// Without the pair of quotation marks around it, which does not count.
std::string_view unquoted(std::string_view text) {
    const bool isQuoted = text.size() > 1 && text.front() == text.back() && (text.front() == '"' || text.front() == '\'');
    return isQuoted ? text.substr(1, text.size() - 2) : text;
}

std::uint32_t deliver(std::string_view text, std::span<char> buffer) {
    const std::size_t length = std::min(text.size(), buffer.size() - 1);
    *std::copy_n(text.begin(), length, buffer.begin()) = '\0';
    return static_cast<std::uint32_t>(length);
}

/// Names with a NUL behind each and one more at the end; what does not fit is cut in front of the two.
std::uint32_t deliverNames(const std::string& names, std::span<char> buffer) {
    if (names.size() < buffer.size()) {
        std::ranges::copy(names, buffer.begin());
        buffer[names.size()] = '\0';
        return static_cast<std::uint32_t>(names.size());
    }
    const std::size_t length = buffer.size() < 2 ? 0 : buffer.size() - 2;
    std::fill(std::copy_n(names.begin(), length, buffer.begin()), buffer.end(), '\0');
    return static_cast<std::uint32_t>(length);
}

} // namespace

std::uint32_t profileString(Registry& registry, std::string_view section, const char* key, std::string_view otherwise,
                            std::span<char> buffer) {
    if (buffer.empty()) {
        return 0;
    }
    const bool isSection = !section.empty() && section.find('\\') == std::string_view::npos;
    const std::string path = "Software\\Microsoft\\Windows NT\\CurrentVersion\\" + std::string(section);
    if (key) {
        const std::optional<std::string> text = isSection ? textOf(registry, path, key) : std::nullopt;
        const std::string_view stripped = otherwise.substr(0, otherwise.find_last_not_of(' ') + 1);
        return deliver(text ? unquoted(*text) : stripped, buffer);
    }
    std::string names;
    if (isSection) {
        for (const std::string& name : registry.valueNames(platform::HKEY_CURRENT_USER, path)) {
            if (!name.empty() && textOf(registry, path, name)) {
                names.append(name).push_back('\0');
            }
        }
    }
    return deliverNames(names, buffer);
}

} // namespace mox::host
