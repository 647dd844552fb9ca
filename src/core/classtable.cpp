// The one file that knows every class.
#include "core/classes.h"

#include "core/moxControls.h"
#include "core/moxHub.h"
#include "core/moxHubGlobal.h"
#include "drawing/moxBitmapFilter.h"
#include "drawing/moxColors.h"
#include "drawing/moxDrawing.h"
#include "drawing/moxFont.h"
#include "drawing/moxFontEnumeration.h"
#include "drawing/moxOffscreenBuffer.h"
#include "drawing/moxScreenShot.h"
#include "filesystem/moxFS.h"
#include "filesystem/moxFSFile.h"
#include "filesystem/moxFSFolder.h"
#include "system/moxRegistry.h"
#include "system/moxSystem.h"
#include "values/moxVarByte.h"
#include "values/moxVarInteger.h"
#include "values/moxVarLong.h"
#include "values/moxVarMath.h"
#include "values/moxVarObject.h"
#include "values/moxVarRect.h"
#include "values/moxVarSingle.h"
#include "values/moxVarString.h"
#include "values/moxVars.h"
#include "windows/moxTimer.h"

namespace mox::server {

namespace {

template <class Class> Ref<IDispatch> make() {
    return makeObject<Class>();
}

constexpr ClassEntry classTable[] = {
    {description::moxHub, &make<moxHub>},
    {description::moxHubGlobal, &make<moxHubGlobal>},
    {description::moxControls, &make<moxControls>},
    {description::moxVars, &make<moxVars>},
    {description::moxVarLong, &make<moxVarLong>},
    {description::moxVarInteger, &make<moxVarInteger>},
    {description::moxVarByte, &make<moxVarByte>},
    {description::moxVarSingle, &make<moxVarSingle>},
    {description::moxVarRect, &make<moxVarRect>},
    {description::moxVarObject, &make<moxVarObject>},
    {description::moxVarString, &make<moxVarString>},
    {description::moxVarMath, &make<moxVarMath>},
    {description::moxTimer, &make<moxTimer>},
    {description::moxFSFile, &make<moxFSFile>},
    {description::moxFSFolder, &make<moxFSFolder>},
    {description::moxFS, &make<moxFS>},
    {description::moxSystem, &make<moxSystem>},
    {description::moxRegistry, &make<moxRegistry>},
    {description::moxColors, &make<moxColors>},
    {description::moxOffscreenBuffer, &make<moxOffscreenBuffer>},
    {description::moxScreenShot, &make<moxScreenShot>},
    {description::moxDrawing, &make<moxDrawing>},
    {description::moxBitmapFilter, &make<moxBitmapFilter>},
    {description::moxFont, &make<moxFont>},
    {description::moxFontEnumeration, &make<moxFontEnumeration>},
    // Described, but without code yet: whoever asks for one gets error 445.
    {description::moxPrinters, nullptr},
    {description::moxPrinter, nullptr},
    {description::moxForm, nullptr},
    {description::moxMouseEvents, nullptr},
    {description::moxCommonDialog, nullptr},
    {description::moxFSDrives, nullptr},
    {description::moxFSWatcher, nullptr},
    {description::moxScreen, nullptr},
    {description::moxKeyboard, nullptr},
    {description::moxMouse, nullptr},
    {description::moxLocale, nullptr},
    {description::moxINet, nullptr},
    {description::moxINetProfile, nullptr},
    {description::moxHTTP, nullptr},
    {description::moxHttpProfile, nullptr},
    {description::moxFTP, nullptr},
    {description::moxFtpProfile, nullptr},
    {description::moxFtpFolder, nullptr},
    {description::moxFtpFile, nullptr},
};
static_assert(std::size(classTable) == 44);

const ServerModule module(description::library, classTable);

} // namespace

const ServerModule& serverModule() {
    return module;
}

} // namespace mox::server
