// The registration of classes and type libraries, as the registry holds it: below HKEY_CLASSES_ROOT.
#pragma once

#include "platform/advapi32.h"

#include <mox/automation.h>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mox::automation {

/// Text to bytes of the system's code page and back; empty if the platform does not convert it.
std::string ansiFrom(std::u16string_view text);
std::u16string utf16FromAnsi(std::string_view bytes);
/// "{61380ADE-...}"
std::string ansiFrom(REFGUID id);

/// One key with values of its own; the value without a name is the key's default.
struct ClassesEntry {
    std::string path;
    std::vector<std::pair<std::string, std::string>> values;
};

/// An open key below the root. Closed at its end.
class ClassesKey {
public:
    explicit ClassesKey(platform::HKEY key) : key_(key) {}
    ClassesKey(const ClassesKey&) = delete;
    ClassesKey& operator=(const ClassesKey&) = delete;
    ~ClassesKey();

    platform::HKEY handle() const noexcept { return key_; }

private:
    const platform::HKEY key_;
};

/// Makes the key and its values. False if something of it fails, which then may be there in part.
bool enterEntry(const ClassesEntry& entry);
/// Removes the key. If somebody else has put keys below it, it stays with these, and only the entry's values go. True if nothing
/// of the entry is left.
bool removeEntry(const ClassesEntry& entry);
/// The text in the default value of a key; nothing if there is none.
std::optional<std::string> readEntry(const std::string& path);

} // namespace mox::automation
