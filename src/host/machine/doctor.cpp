#include "host/machine/doctor.h"

#include "host/desktop/screen.h"
#include "host/machine/machine.h"

#include <unicode/uversion.h>

#include <array>

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
        {"dialogs", machine.dialogs.presenter() ? "a presenter" : "nobody to ask: declined at once"},
        {"shell", shellText(machine)},
    };
}

} // namespace mox::host
