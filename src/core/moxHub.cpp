#include "core/moxHub.h"

#include "automation/objects/errormodes.h"
#include "core/classes.h"
#include "core/frmAbout.h"
#include "core/release.h"
#include "core/usedbyapp.h"
#include "core/version.h"

#include "platform/kernel32.h"
#include "platform/runtime.h"

namespace mox::server {

moxHub::~moxHub() {
    releaseInOrder(Controls, CommonDialog, Form, System, FileSystem, Drawing, Vars, INet);
}

Ref<_moxINet> moxHub::get_INet() {
    return child(INet);
}

void moxHub::ShowAbout() {
    showAbout();
}

Ref<_moxFS> moxHub::get_FileSystem() {
    return child(FileSystem);
}

Ref<_moxVars> moxHub::get_Vars() {
    return child(Vars);
}

Ref<_moxCommonDialog> moxHub::get_CommonDialog() {
    return child(CommonDialog);
}

Ref<_moxControls> moxHub::get_Controls() {
    return child(Controls);
}

Ref<_moxForm> moxHub::get_Form() {
    return child(Form);
}

Variant moxHub::get_ExtensionInfo(MOX_EXTENSION_INFO eInfo) {
    Variant result{String()};
    trapAndLeave([&] {
        switch (eInfo) {
        case moxext_ProcessID:
            result = static_cast<Long>(platform::kernel32().GetCurrentProcessId());
            break;
        case moxext_ThreadID:
            result = static_cast<Long>(platform::runtime().ThreadID());
            break;
        case moxext_UsedByApp:
            result = usedByApp();
            break;
        case moxext_VersionMajor:
            result = Long{versionMajor};
            break;
        case moxext_VersionMinor:
            result = Long{versionMinor};
            break;
        case moxext_VersionRevision:
            result = Long{versionRevision};
            break;
        case moxext_VersionString:
            result = versionString();
            break;
        }
    });
    return result;
}

Ref<_moxDrawing> moxHub::get_Drawing() {
    return child(Drawing);
}

Ref<_moxSystem> moxHub::get_System() {
    return child(System);
}

} // namespace mox::server
