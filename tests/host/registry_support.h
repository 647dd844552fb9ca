// Short words for tests of the registry.
#pragma once

#include "platform/advapi32.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mox::test {

using platform::HKEY;

/// A key that is open as long as it lives.
class OpenKey {
public:
    /// Opens a key that has to exist.
    OpenKey(HKEY parent, std::string_view path, std::uint32_t access = platform::KEY_READ) {
        EXPECT_EQ(platform::advapi32().RegOpenKeyExA(parent, path, access, key_), platform::ERROR_SUCCESS) << path;
    }
    ~OpenKey() { platform::advapi32().RegCloseKey(key_); }
    OpenKey(const OpenKey&) = delete;
    OpenKey& operator=(const OpenKey&) = delete;
    operator HKEY() const noexcept { return key_; }

    static OpenKey made(HKEY parent, std::string_view path) {
        HKEY key = 0;
        EXPECT_EQ(platform::advapi32().RegCreateKeyA(parent, path, key), platform::ERROR_SUCCESS) << path;
        return OpenKey(key);
    }

private:
    explicit OpenKey(HKEY key) noexcept : key_(key) {}
    HKEY key_ = 0;
};

using TypedBytes = std::pair<std::uint32_t, std::string>;

inline std::int32_t setValue(HKEY root, std::string_view path, std::string_view name, std::uint32_t type, std::string_view data) {
    HKEY key = 0;
    const std::int32_t status = platform::advapi32().RegCreateKeyA(root, path, key);
    if (status != platform::ERROR_SUCCESS) {
        return status;
    }
    const std::int32_t answer = platform::advapi32().RegSetValueExA(key, name, type, data);
    platform::advapi32().RegCloseKey(key);
    return answer;
}

/// Reads as programs do: first the size, then the bytes.
inline std::optional<TypedBytes> valueOf(HKEY root, std::string_view path, std::string_view name) {
    HKEY key = 0;
    std::optional<TypedBytes> result;
    if (platform::advapi32().RegOpenKeyExA(root, path, platform::KEY_READ, key) != platform::ERROR_SUCCESS) {
        return result;
    }
    std::uint32_t type = 0;
    std::uint32_t size = 0;
    if (platform::advapi32().RegQueryValueExA(key, name, type, {}, size) == platform::ERROR_SUCCESS) {
        std::string data(size, '\0');
        EXPECT_EQ(platform::advapi32().RegQueryValueExA(key, name, type, data, size), platform::ERROR_SUCCESS) << name;
        EXPECT_EQ(size, data.size());
        result = {type, data};
    }
    platform::advapi32().RegCloseKey(key);
    return result;
}

/// A text without its final NUL; empty if there is no such value.
inline std::string textOf(HKEY root, std::string_view path, std::string_view name) {
    const std::optional<TypedBytes> value = valueOf(root, path, name);
    return value ? value->second.substr(0, value->second.find('\0')) : "";
}

inline std::vector<std::string> keysOf(HKEY root, std::string_view path) {
    const OpenKey key(root, path);
    std::vector<std::string> names;
    std::string buffer(256, '\0');
    std::uint32_t length = 0;
    while (platform::advapi32().RegEnumKeyExA(key, static_cast<std::uint32_t>(names.size()), buffer, length) ==
           platform::ERROR_SUCCESS) {
        names.emplace_back(buffer.c_str(), length);
    }
    return names;
}

} // namespace mox::test
