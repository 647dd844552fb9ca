#pragma once

#include "TRL_OBKR_MOX/moxHub.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// The root of the object tree. Its fields are released in the order of their declaration.
class moxHub final : public Implements<moxHub> {
public:
    ~moxHub() override;

    Ref<_moxINet> get_INet();
    void ShowAbout();
    Ref<_moxFS> get_FileSystem();
    Ref<_moxVars> get_Vars();
    Ref<_moxCommonDialog> get_CommonDialog();
    Ref<_moxControls> get_Controls();
    Ref<_moxForm> get_Form();
    Variant get_ExtensionInfo(MOX_EXTENSION_INFO eInfo);
    Ref<_moxDrawing> get_Drawing();
    Ref<_moxSystem> get_System();

private:
    Ref<_moxControls> Controls;
    Ref<_moxCommonDialog> CommonDialog;
    Ref<_moxForm> Form;
    Ref<_moxSystem> System;
    Ref<_moxFS> FileSystem;
    Ref<_moxDrawing> Drawing;
    Ref<_moxVars> Vars;
    Ref<_moxINet> INet;
};

} // namespace mox::server
