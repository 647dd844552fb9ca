#include "core/frmAbout.h"

#include "core/ansi.h"
#include "core/version.h"

#include "platform/user32.h"

namespace mox::server {

void showAbout() {
    const std::string text = "mox " + toAnsi(versionString()) + "\r\nExtension library for desktop Automation clients";
    platform::user32().MessageBoxA(0, text, "About mox", platform::MB_OK | platform::MB_ICONINFORMATION);
}

} // namespace mox::server
