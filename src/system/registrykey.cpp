#include "system/registrykey.h"

#include "automation/objects/errormodes.h"
#include "core/ansi.h"

namespace mox::server {

using platform::advapi32;

RegistryKey RegistryKey::open(REG_ROOTKEY root, const String& path) {
    platform::HKEY key = 0;
    const bool isOpen = advapi32().RegOpenKeyExA(root, toAnsi(path), platform::KEY_READ, key) == platform::ERROR_SUCCESS;
    return RegistryKey(isOpen ? key : 0);
}

RegistryKey RegistryKey::create(REG_ROOTKEY root, const String& path) {
    platform::HKEY key = 0;
    const bool isOpen = advapi32().RegCreateKeyA(root, toAnsi(path), key) == platform::ERROR_SUCCESS;
    return RegistryKey(isOpen ? key : 0);
}

RegistryKey::~RegistryKey() {
    if (key_ != 0) {
        carryOn([this] { advapi32().RegCloseKey(key_); });
    }
}

} // namespace mox::server
