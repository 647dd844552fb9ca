#include "system/moxRegistry.h"

#include "automation/objects/errormodes.h"
#include "automation/objects/runtimeerror.h"
#include "core/ansi.h"
#include "system/registrykey.h"
#include "system/registryvalue.h"
#include "system/serverregistration.h"
#include "system/settingskey.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace mox::server {

namespace {

using platform::advapi32;
using platform::ERROR_SUCCESS;

/// The names of all subkeys, up to the first that cannot be had.
std::vector<String> namesOfSubkeys(const RegistryKey& key) {
    std::vector<String> names;
    while (true) {
        std::array<char, 512> buffer{};
        auto length = static_cast<std::uint32_t>(buffer.size());
        const auto index = static_cast<std::uint32_t>(names.size());
        if (advapi32().RegEnumKeyExA(key.handle(), index, buffer, length) != ERROR_SUCCESS || length == 0) {
            return names;
        }
        names.push_back(fromAnsi(std::string_view(buffer.data(), std::min<std::size_t>(length, buffer.size()))));
    }
}

Boolean setValue(REG_ROOTKEY root, const String& path, const String& name, std::uint32_t type, std::string_view data) {
    const RegistryKey key = RegistryKey::create(root, path);
    return key && advapi32().RegSetValueExA(key.handle(), toAnsi(name), type, data) == ERROR_SUCCESS;
}

/// The elements 0 to the upper bound, which is what counts of an array. Error 9 if the array does not begin there.
std::string_view bytesOf(const Array<Byte>& array) {
    if (array.upper() < 0) {
        return {};
    }
    if (array.lower() > 0) {
        throw RuntimeError(errSubscript);
    }
    return {reinterpret_cast<const char*>(&array[0]), static_cast<std::size_t>(array.upper()) + 1};
}

} // namespace

Long moxRegistry::EnumSettings(const String& Publisher, const String& AppName, const String& Section, Array<String>& Keys,
                               Array<String>& Values) {
    Keys.redim(0, 0);
    Values.redim(0, 0);
    const String path = settingsKey(Publisher, AppName, Section);
    Array<String> names;
    const Long count = extEnumKeys(HKEY_CURRENT_USER, path, names);
    if (count > 0) {
        Keys.redim(0, count - 1);
        Values.redim(0, count - 1);
        for (Long i = 0; i < count; ++i) {
            Keys[i] = names[i];
            Values[i] = extGetKeyValue(HKEY_CURRENT_USER, path, names[i], String());
        }
    }
    return count;
}

Boolean moxRegistry::extDeleteKey(REG_ROOTKEY lRootKey, const String& sSubKey) noexcept {
    Boolean result;
    trapAndLeave([&] {
        const RegistryKey key = RegistryKey::create(lRootKey, sSubKey);
        result = key && advapi32().RegDeleteKeyA(key.handle(), "") == ERROR_SUCCESS;
    });
    return result;
}

Boolean moxRegistry::DeleteSetting(const String& Publisher, const String& AppName, const String& Section, const String& Key) {
    const String path = settingsKey(Publisher, AppName, Section);
    return Key.empty() ? extDeleteKey(HKEY_CURRENT_USER, path) : extDeleteKeyValue(HKEY_CURRENT_USER, path, Key);
}

Boolean moxRegistry::extDeleteKeyValue(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName) noexcept {
    Boolean result;
    trapAndLeave([&] {
        const RegistryKey key = RegistryKey::create(lRootKey, sSubKey);
        result = key && !sKeyName.empty() && advapi32().RegDeleteValueA(key.handle(), toAnsi(sKeyName)) == ERROR_SUCCESS;
    });
    return result;
}

Long moxRegistry::extEnumKeys(REG_ROOTKEY lRootKey, const String& sSubKey, Array<String>& sReturnKeyName) noexcept {
    Long result = 0;
    trapAndLeave([&] {
        const RegistryKey key = RegistryKey::open(lRootKey, sSubKey);
        if (!key) {
            return;
        }
        sReturnKeyName.redim(0, 0);
        std::vector<String> names = namesOfSubkeys(key);
        if (!names.empty()) {
            sReturnKeyName.redim(0, static_cast<Long>(names.size()) - 1);
            std::ranges::move(names, sReturnKeyName.begin());
        }
        result = static_cast<Long>(names.size());
    });
    return result;
}

String moxRegistry::extGetKeyValue(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName, const String& Default) {
    return registryText(lRootKey, sSubKey, sKeyName, Default);
}

Long moxRegistry::extGetKeyValueBytes(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName,
                                      Array<Byte>& KeyValue) noexcept {
    Long result = 0;
    trapAndLeave([&] {
        const std::string bytes = registryBytes(lRootKey, sSubKey, sKeyName);
        if (!bytes.empty()) {
            const auto size = static_cast<Long>(bytes.size());
            KeyValue.redim(0, size - 1);
            std::ranges::copy(bytes, KeyValue.begin());
            result = size;
        }
    });
    return result;
}

Boolean moxRegistry::extSetKeyValueBytes(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName,
                                         Array<Byte>& KeyValue) noexcept {
    Boolean result;
    trapAndLeave([&] {
        const RegistryKey key = RegistryKey::create(lRootKey, sSubKey);
        const std::string_view bytes = key ? bytesOf(KeyValue) : std::string_view();
        result = !bytes.empty() &&
                 advapi32().RegSetValueExA(key.handle(), toAnsi(sKeyName), platform::REG_BINARY, bytes) == ERROR_SUCCESS;
    });
    return result;
}

Boolean moxRegistry::extSetKeyValueDWord(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName,
                                         Long sKeyValue) noexcept {
    Boolean result;
    trapAndLeave([&] {
        std::string bytes;
        for (unsigned shift = 0; shift < 32; shift += 8) { // the low byte in front
            bytes += static_cast<char>(static_cast<std::uint32_t>(sKeyValue) >> shift);
        }
        result = setValue(lRootKey, sSubKey, sKeyName, platform::REG_DWORD, bytes);
    });
    return result;
}

Boolean moxRegistry::extSetKeyValueString(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName,
                                          const String& sKeyValue) noexcept {
    Boolean result;
    trapAndLeave([&] {
        std::string bytes = toAnsi(sKeyValue);
        // As many bytes as there are characters, also where some of them need two.
        bytes.resize(sKeyValue.size());
        result = setValue(lRootKey, sSubKey, sKeyName, platform::REG_SZ, bytes);
    });
    return result;
}

String moxRegistry::GetSetting(const String& Publisher, const String& AppName, const String& Section, const String& Key,
                               const String& Default) {
    return extGetKeyValue(HKEY_CURRENT_USER, settingsKey(Publisher, AppName, Section), Key, Default);
}

Boolean moxRegistry::RegisterOCX(const String& OCX, Long msTimeout) noexcept {
    return runRoutineOfLibrary(OCX, "DllRegisterServer", msTimeout);
}

Boolean moxRegistry::RegisterOleServer(const String& OleServer) {
    return startServerProgram(OleServer, u"/regserver");
}

Boolean moxRegistry::SaveSetting(const String& Publisher, const String& AppName, const String& Section, const String& Key,
                                 const String& Setting) {
    return extSetKeyValueString(HKEY_CURRENT_USER, settingsKey(Publisher, AppName, Section), Key, Setting);
}

Boolean moxRegistry::UnRegisterOCX(const String& OCX, Long msTimeout) noexcept {
    return runRoutineOfLibrary(OCX, "DllUnregisterServer", msTimeout);
}

Boolean moxRegistry::UnRegisterOleServer(const String& OleServer) {
    return startServerProgram(OleServer, u"/unregserver");
}

} // namespace mox::server
