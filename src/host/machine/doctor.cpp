#include "host/machine/doctor.h"

#include "host/desktop/screen.h"
#include "host/machine/machine.h"

#include <fontconfig/fontconfig.h>
#include <unicode/uversion.h>

#include <array>
#include <set>

namespace mox::host {

namespace {

std::string filesText(const Machine& machine) {
    std::string text = "home " + machine.config().home.string() + (machine.isTemporary() ? " (temporary)" : "") + "; drives";
    for (const auto& [letter, folder] : machine.files.drives()) {
        text += std::string(" ") + letter + ": " + folder.string();
    }
    return text;
}

std::string textText(const Machine& machine) {
    UVersionInfo version{};
    u_getVersion(version);
    std::array<char, U_MAX_VERSION_STRING_LENGTH> icu{};
    u_versionToString(version, icu.data());
    return "code page " + std::to_string(machine.codePage.number()) + ", tables of ICU " + icu.data();
}

std::string runtimeText(const Machine& machine) {
    const WindowsVersion& version = machine.config().windows;
    return "reports version " + std::to_string(version.major) + "." + std::to_string(version.minor) + "." +
           std::to_string(version.build) + (version.serviceText.empty() ? "" : " " + version.serviceText) +
           "; random numbers of the language, one sequence an apartment";
}

std::string fontsText(Machine& machine) {
    std::set<std::string> families;
    for (const FontFile& font : machine.fonts.list("")) {
        families.insert(font.family);
    }
    const int version = FcGetVersion();
    return std::to_string(families.size()) + " families by fontconfig " + std::to_string(version / 10000) + "." +
           std::to_string(version / 100 % 100) + "." + std::to_string(version % 100) + ", drawn by FreeType";
}

std::string graphicsText(const Machine& machine) {
    return std::string("bitmaps in memory; visual style ") + (machine.config().visualStyle ? "on" : "off");
}

std::string shellText(const Machine& machine) {
    const std::filesystem::path& trash = machine.config().trash;
    return "content types and default programs of GIO; " +
           (trash.empty() ? "the trash of the desktop" : "trash " + trash.string());
}

} // namespace

std::vector<ServiceReport> examine(Machine& machine) {
    return {
        {"files", filesText(machine)},
        {"text", textText(machine)},
        {"registry", machine.registry.report()},
        {"processes", "/proc of this system"},
        {"runtime", runtimeText(machine)},
        {"desktop", "in memory, no presenter; " + std::to_string(screenDotsPerInch) + " dots per inch"},
        {"graphics", graphicsText(machine)},
        {"fonts", fontsText(machine)},
        {"dialogs", machine.dialogs.presenter() ? "a presenter" : "nobody to ask: declined at once"},
        {"shell", shellText(machine)},
    };
}

} // namespace mox::host
