#pragma once

#include "TRL_OBKR_MOX/moxSystem.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Facts and services of the system. Its fields are released in the order of their declaration.
class moxSystem final : public Implements<moxSystem> {
public:
    ~moxSystem() override;

    String CreateGUID();
    Ref<_moxPrinters> get_Printers();
    void MutexRelease(Long hMutex);
    Long MutexCreate(const String& Mutex);
    String get_ComputerName();
    Ref<_moxLocale> get_Locale();
    void Delay(Long Tausendstel, Boolean Events);
    moxHardwareInfo get_Hardware();
    Ref<_moxRegistry> get_Registry();
    /// Read once and kept, unless the version cannot be told.
    moxOSInfo get_OS();
    moxOfficeInfo get_Office();
    moxUserInfo get_User();
    Boolean BeepEx(SYS_SYSTEMSOUND Sound);
    Boolean BeepExSpecial(SYS_SPECIALSOUND Snd, Boolean bAsync, Boolean bSetVolume, Long LeftVolumePercent,
                          Long RightVolumePercent);
    Ref<_moxKeyboard> get_Keyboard();
    Ref<_moxMouse> get_Mouse();
    Ref<_moxScreen> get_Screen();

private:
    Ref<_moxScreen> Screen;
    Ref<_moxLocale> Locale;
    Ref<_moxPrinters> Printers;
    Ref<_moxRegistry> Registry;
    Ref<_moxKeyboard> Keyboard;
    Ref<_moxMouse> Mouse;

    moxOSInfo osInfo_;
};

} // namespace mox::server
