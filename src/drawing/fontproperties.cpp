#include "drawing/fontproperties.h"

#include "core/statement.h"

#include "platform/runtime.h"

namespace mox::server {

Ref<IFontDisp> newFont() {
    Ref<IDispatch> object;
    statement(platform::runtime().New(MoxRuntime::CLSID_StdFont, object));
    return Ref<IFontDisp>::attach(static_cast<IFontDisp*>(object.detach()));
}

} // namespace mox::server
