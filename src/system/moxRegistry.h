#pragma once

#include "TRL_OBKR_MOX/moxRegistry.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Settings of applications, any key of the registry, and the registration of servers. The members `ext...` and those for
/// libraries trap every error and return what their result holds at that moment; setters and deleters make a key that does not
/// exist.
class moxRegistry final : public Implements<moxRegistry> {
public:
    Long EnumSettings(const String& Publisher, const String& AppName, const String& Section, Array<String>& Keys,
                      Array<String>& Values);
    Boolean extDeleteKey(REG_ROOTKEY lRootKey, const String& sSubKey) noexcept;
    Boolean DeleteSetting(const String& Publisher, const String& AppName, const String& Section, const String& Key);
    Boolean extDeleteKeyValue(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName) noexcept;
    Long extEnumKeys(REG_ROOTKEY lRootKey, const String& sSubKey, Array<String>& sReturnKeyName) noexcept;
    String extGetKeyValue(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName, const String& Default);
    Long extGetKeyValueBytes(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName, Array<Byte>& KeyValue) noexcept;
    Boolean extSetKeyValueBytes(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName,
                                Array<Byte>& KeyValue) noexcept;
    Boolean extSetKeyValueDWord(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName, Long sKeyValue) noexcept;
    Boolean extSetKeyValueString(REG_ROOTKEY lRootKey, const String& sSubKey, const String& sKeyName,
                                 const String& sKeyValue) noexcept;
    String GetSetting(const String& Publisher, const String& AppName, const String& Section, const String& Key,
                      const String& Default);
    Boolean RegisterOCX(const String& OCX, Long msTimeout) noexcept;
    Boolean RegisterOleServer(const String& OleServer);
    Boolean SaveSetting(const String& Publisher, const String& AppName, const String& Section, const String& Key,
                        const String& Setting);
    Boolean UnRegisterOCX(const String& OCX, Long msTimeout) noexcept;
    Boolean UnRegisterOleServer(const String& OleServer);
};

} // namespace mox::server
