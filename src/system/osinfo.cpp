#include "system/osinfo.h"

#include "core/numberreading.h"
#include "core/osversion.h"
#include "core/osversiontables.h"
#include "system/productkey.h"
#include "system/registryvalue.h"

#include "platform/user32.h"

#include <string>

namespace mox::server {

namespace {

SYS_OS_BOOTMODE bootMode() {
    switch (platform::user32().GetSystemMetrics(platform::SM_CLEANBOOT)) {
    case 1:
        return osbm_Save;
    case 2:
        return osbm_SaveNetwork;
    default:
        return osbm_Normal;
    }
}

String versionText(const moxOSInfo& info) {
    std::u16string text(modMoxHub::textOf(info.Version));
    if (const std::u16string_view edition = modMoxHub::textOf(info.VersionEx); !edition.empty()) {
        text += u" - " + std::u16string(edition);
    }
    if (!info.VersionSP.spString.empty()) {
        text += u" (" + std::u16string(info.VersionSP.spString) + u")";
    }
    return text;
}

} // namespace

moxOSInfo readOSInfo() {
    moxOSInfo info;
    info.Bootmode = bootMode();
    info.Version =
        modMoxHub::GetOSVersion(info.VersionEx, info.VersionSP.spMajor, info.VersionSP.spMinor, info.VersionSP.spString);
    info.VersionString = versionText(info);

    const String branch = info.Version <= os_ME ? u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion"
                                                : u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion";
    const auto fact = [&](const char16_t* name, const char16_t* otherwise) {
        return registryText(HKEY_LOCAL_MACHINE, branch, name, otherwise);
    };
    info.ProductId = fact(u"ProductId", u"00000-000-0000000-00000");
    info.ProductKey = productKey(registryBytes(HKEY_LOCAL_MACHINE, branch, u"DigitalProductId"));
    info.ProductName = fact(u"ProductName", u"Microsoft Windows 31");
    info.Registered = Val(fact(u"RegDone", u"1")) != 0;
    info.RegisteredOrganization = fact(u"RegisteredOrganization", u"");
    info.RegisteredOwner = fact(u"RegisteredOwner", u"");
    info.ClientHardwareID_MS =
        registryText(HKEY_LOCAL_MACHINE, u"SOFTWARE\\Microsoft\\MSLicensing\\HardwareID", u"ClientHWID", u"");
    return info;
}

} // namespace mox::server
