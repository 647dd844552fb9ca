#include "system/registryvalue.h"

#include "automation/objects/errormodes.h"
#include "automation/objects/runtimeerror.h"
#include "core/ansi.h"

#include "platform/kernel32.h"

#include <algorithm>
#include <string_view>

namespace mox::server {

namespace {

using namespace std::string_view_literals;
using platform::advapi32;
using platform::kernel32;

struct ValueFacts {
    std::uint32_t type = platform::REG_NONE;
    std::uint32_t size = 0;
};

ValueFacts factsOf(const RegistryKey& key, const std::string& name) {
    ValueFacts facts;
    if (advapi32().RegQueryValueExA(key.handle(), name, facts.type, {}, facts.size) != platform::ERROR_SUCCESS) {
        return {};
    }
    return facts;
}

/// Reads into a buffer of fixed size. False on failure, also for a value that does not fit.
bool read(const RegistryKey& key, const std::string& name, std::span<char> buffer) {
    std::uint32_t type = platform::REG_NONE;
    std::uint32_t size = 0;
    return advapi32().RegQueryValueExA(key.handle(), name, type, buffer, size) == platform::ERROR_SUCCESS;
}

/// Reads a value that may grow meanwhile.
std::optional<std::string> readAll(const RegistryKey& key, const std::string& name, std::uint32_t expected) {
    constexpr std::size_t most = std::size_t{1} << 30;
    std::string buffer(std::max<std::size_t>(expected, 1), '\0');
    std::uint32_t type = platform::REG_NONE;
    std::uint32_t size = 0;
    std::int32_t answer = advapi32().RegQueryValueExA(key.handle(), name, type, buffer, size);
    while (answer == platform::ERROR_MORE_DATA && buffer.size() < most) {
        buffer.assign(buffer.size() * 2, '\0');
        answer = advapi32().RegQueryValueExA(key.handle(), name, type, buffer, size);
    }
    if (answer != platform::ERROR_SUCCESS) {
        return std::nullopt;
    }
    buffer.resize(std::min<std::size_t>(size, buffer.size()));
    return buffer;
}

std::string hexadecimal(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 2);
    for (const char byte : bytes) {
        text += digits[static_cast<unsigned char>(byte) >> 4];
        text += digits[static_cast<unsigned char>(byte) & 0xF];
    }
    return text;
}

std::string_view toNul(std::string_view text) {
    return text.substr(0, text.find('\0'));
}

/// The text with the variables of the environment in their places; as it is if that fails.
std::string expanded(std::string_view text) {
    const std::uint32_t needed = kernel32().ExpandEnvironmentStringsA(text, {});
    if (needed > 0) {
        std::string buffer(std::size_t{needed} + 1, '\0');
        const std::uint32_t length = kernel32().ExpandEnvironmentStringsA(text, buffer);
        if (length > 0) {
            return std::string(toNul(std::string_view(buffer).substr(0, length)));
        }
    }
    return std::string(text);
}

/// All texts of a list, each but the last with a NUL behind it.
std::string_view listOf(std::string_view block) {
    const std::size_t end = block.rfind("\0\0"sv);
    return end == block.npos ? toNul(block) : block.substr(0, end);
}

std::optional<String> textValue(const RegistryKey& key, const std::string& name, const ValueFacts& facts) {
    const std::optional<std::string> block = readAll(key, name, facts.size);
    if (!block) {
        return std::nullopt;
    }
    switch (facts.type) {
    case platform::REG_EXPAND_SZ:
        return fromAnsi(expanded(toNul(*block)));
    case platform::REG_MULTI_SZ:
        return fromAnsi(listOf(*block));
    default:
        return fromAnsi(toNul(*block));
    }
}

std::optional<String> binaryValue(const RegistryKey& key, const std::string& name, std::uint32_t size) {
    std::string bytes(size, '\0');
    if (size > 0 && !read(key, name, bytes)) {
        return std::nullopt;
    }
    return fromAnsi(hexadecimal(bytes));
}

std::optional<String> numberValue(const RegistryKey& key, const std::string& name, std::uint32_t size) {
    std::string bytes(sizeof(std::uint32_t), '\0');
    if (size == 0 || !read(key, name, bytes)) {
        return std::nullopt;
    }
    std::ranges::reverse(bytes); // stored with the low byte in front
    return fromAnsi(hexadecimal(bytes));
}

} // namespace

std::optional<String> readAsText(const RegistryKey& key, const String& name) {
    const std::string ansiName = toAnsi(name);
    const ValueFacts facts = factsOf(key, ansiName);
    switch (facts.type) {
    case platform::REG_SZ:
    case platform::REG_EXPAND_SZ:
    case platform::REG_MULTI_SZ:
        return textValue(key, ansiName, facts);
    case platform::REG_BINARY:
        return binaryValue(key, ansiName, facts.size);
    case platform::REG_DWORD:
        return numberValue(key, ansiName, facts.size);
    case platform::REG_LINK:
        return String();
    default:
        return std::nullopt;
    }
}

std::string readBytes(const RegistryKey& key, const String& name) {
    const std::string ansiName = toAnsi(name);
    const ValueFacts facts = factsOf(key, ansiName);
    std::string bytes(facts.type == platform::REG_BINARY ? facts.size : 0, '\0');
    return !bytes.empty() && read(key, ansiName, bytes) ? bytes : std::string();
}

String registryText(REG_ROOTKEY root, const String& path, const String& name, const String& otherwise) noexcept {
    std::optional<String> text;
    trapAndLeave([&] {
        if (const RegistryKey key = RegistryKey::open(root, path)) {
            text = readAsText(key, name);
        }
    });
    return text ? std::move(*text) : otherwise;
}

std::string registryBytes(REG_ROOTKEY root, const String& path, const String& name) noexcept {
    std::string bytes;
    trapAndLeave([&] {
        if (const RegistryKey key = RegistryKey::open(root, path)) {
            bytes = readBytes(key, name);
        }
    });
    return bytes;
}

} // namespace mox::server
