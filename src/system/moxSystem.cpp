#include "system/moxSystem.h"

#include "core/classes.h"
#include "core/notyet.h"
#include "core/release.h"
#include "system/osinfo.h"

namespace mox::server {

moxSystem::~moxSystem() {
    releaseInOrder(Screen, Locale, Printers, Registry, Keyboard, Mouse);
}

String moxSystem::CreateGUID() {
    notYet();
}

Ref<_moxPrinters> moxSystem::get_Printers() {
    return child(Printers);
}

void moxSystem::MutexRelease(Long) {
    notYet();
}

Long moxSystem::MutexCreate(const String&) {
    notYet();
}

String moxSystem::get_ComputerName() {
    notYet();
}

Ref<_moxLocale> moxSystem::get_Locale() {
    return child(Locale);
}

void moxSystem::Delay(Long, Boolean) {
    notYet();
}

moxHardwareInfo moxSystem::get_Hardware() {
    notYet();
}

Ref<_moxRegistry> moxSystem::get_Registry() {
    return child(Registry);
}

moxOSInfo moxSystem::get_OS() {
    if (osInfo_.Version == os_UNKNOWN) {
        osInfo_ = readOSInfo();
    }
    return osInfo_;
}

moxOfficeInfo moxSystem::get_Office() {
    notYet();
}

moxUserInfo moxSystem::get_User() {
    notYet();
}

Boolean moxSystem::BeepEx(SYS_SYSTEMSOUND) {
    notYet();
}

Boolean moxSystem::BeepExSpecial(SYS_SPECIALSOUND, Boolean, Boolean, Long, Long) {
    notYet();
}

Ref<_moxKeyboard> moxSystem::get_Keyboard() {
    return child(Keyboard);
}

Ref<_moxMouse> moxSystem::get_Mouse() {
    return child(Mouse);
}

Ref<_moxScreen> moxSystem::get_Screen() {
    return child(Screen);
}

} // namespace mox::server
