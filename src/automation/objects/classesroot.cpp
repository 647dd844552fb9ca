#include "automation/objects/classesroot.h"

#include "automation/types/guid.h"

#include "platform/kernel32.h"

#include <algorithm>
#include <array>

namespace mox::automation {

namespace {

using namespace platform;

enum class Subkeys { none, some, unknown };

Subkeys subkeysOf(HKEY key) {
    std::array<char, 512> name{};
    auto length = static_cast<std::uint32_t>(name.size());
    switch (advapi32().RegEnumKeyExA(key, 0, name, length)) {
    case ERROR_NO_MORE_ITEMS:
        return Subkeys::none;
    case ERROR_SUCCESS:
    case ERROR_MORE_DATA:
        return Subkeys::some;
    default:
        return Subkeys::unknown;
    }
}

bool isGone(std::int32_t answer) {
    return answer == ERROR_SUCCESS || answer == ERROR_FILE_NOT_FOUND;
}

} // namespace

std::string ansiFrom(std::u16string_view text) {
    std::string bytes(text.size() * 2, '\0');
    const std::int32_t count = text.empty() ? 0 : kernel32().WideCharToMultiByte(CP_ACP, text, bytes);
    bytes.resize(static_cast<std::size_t>(std::max(count, 0)));
    return bytes;
}

std::u16string utf16FromAnsi(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    const std::int32_t count = bytes.empty() ? 0 : kernel32().MultiByteToWideChar(CP_ACP, bytes, text);
    text.resize(static_cast<std::size_t>(std::max(count, 0)));
    return text;
}

std::string ansiFrom(REFGUID id) {
    const GuidText text = guidText(id);
    std::string bytes;
    std::ranges::transform(text, std::back_inserter(bytes), [](char16_t c) { return static_cast<char>(c); });
    return bytes;
}

ClassesKey::~ClassesKey() {
    advapi32().RegCloseKey(key_);
}

bool enterEntry(const ClassesEntry& entry) {
    HKEY opened = 0;
    if (advapi32().RegCreateKeyA(HKEY_CLASSES_ROOT, entry.path, opened) != ERROR_SUCCESS) {
        return false;
    }
    const ClassesKey key(opened);
    return std::ranges::all_of(entry.values, [&](const auto& value) {
        const std::string_view withNul(value.second.c_str(), value.second.size() + 1);
        return advapi32().RegSetValueExA(key.handle(), value.first, REG_SZ, withNul) == ERROR_SUCCESS;
    });
}

bool removeEntry(const ClassesEntry& entry) {
    HKEY opened = 0;
    const std::int32_t answer = advapi32().RegOpenKeyExA(HKEY_CLASSES_ROOT, entry.path, KEY_ALL_ACCESS, opened);
    if (answer != ERROR_SUCCESS) {
        return isGone(answer);
    }
    const ClassesKey key(opened);
    switch (subkeysOf(key.handle())) {
    case Subkeys::none:
        return isGone(advapi32().RegDeleteKeyA(HKEY_CLASSES_ROOT, entry.path));
    case Subkeys::some:
        return std::ranges::all_of(
            entry.values, [&](const auto& value) { return isGone(advapi32().RegDeleteValueA(key.handle(), value.first)); });
    default:
        return false;
    }
}

std::optional<std::string> readEntry(const std::string& path) {
    HKEY opened = 0;
    if (advapi32().RegOpenKeyExA(HKEY_CLASSES_ROOT, path, KEY_READ, opened) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    const ClassesKey key(opened);
    std::uint32_t type = REG_NONE;
    std::uint32_t size = 0;
    if (advapi32().RegQueryValueExA(key.handle(), "", type, {}, size) != ERROR_SUCCESS || type != REG_SZ) {
        return std::nullopt;
    }
    std::string text(std::size_t{size} + 1, '\0');
    if (advapi32().RegQueryValueExA(key.handle(), "", type, text, size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    text.resize(text.find('\0'));
    return text;
}

} // namespace mox::automation
