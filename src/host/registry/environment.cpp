#include "host/registry/environment.h"

#include "host/files/names.h"
#include "host/files/standardfolders.h"

#include <unistd.h>

#include <array>
#include <functional>

namespace mox::host {

namespace {

std::optional<std::string> ofProcess(std::string_view name) {
    for (char** variable = environ; variable && *variable; ++variable) {
        const std::string_view text = *variable;
        const std::size_t end = text.find('=');
        if (end != std::string_view::npos && end == name.size() && equalWithoutCase(text.substr(0, end), name)) {
            return std::string(text.substr(end + 1));
        }
    }
    return std::nullopt;
}

std::string nameOfComputer() {
    std::array<char, 256> name{};
    if (gethostname(name.data(), name.size() - 1) != 0) {
        return "";
    }
    const std::string whole = name.data();
    return whole.substr(0, whole.find('.'));
}

struct Folder {
    const char* name;
    /// Below the system's drive; `~` is the user's folder.
    const char* path;
};

constexpr Folder folders[] = {
    {"ALLUSERSPROFILE", "ProgramData"},
    {"APPDATA", "~/AppData/Roaming"},
    {"CommonProgramFiles", "Program Files/Common Files"},
    {"LOCALAPPDATA", "~/AppData/Local"},
    {"ProgramData", "ProgramData"},
    {"ProgramFiles", "Program Files"},
    {"PUBLIC", "Users/Public"},
    {"SystemRoot", "Windows"},
    {"TEMP", "Temp"},
    {"TMP", "Temp"},
    {"USERPROFILE", "~"},
    {"windir", "Windows"},
};

/// The path of a standard folder; nothing if the name stands for none.
std::optional<std::string> folderOf(const Files& files, std::string_view name) {
    const auto drive = files.drives().find('C');
    for (const auto& [known, path] : folders) {
        if (drive != files.drives().end() && equalWithoutCase(known, name)) {
            const std::string_view below = path;
            const bool isUsers = below.starts_with('~');
            const std::filesystem::path user = isUsers ? "Users/" + nameOfUser() : "";
            return files.toDrivePath((drive->second / user / below.substr(isUsers ? std::min<std::size_t>(2, below.size()) : 0)));
        }
    }
    return std::nullopt;
}

std::optional<std::string> otherStandard(std::string_view name, const WindowsVersion& version) {
    constexpr std::uint32_t lineOfNt = 2;
    if (equalWithoutCase(name, "SystemDrive") || equalWithoutCase(name, "HOMEDRIVE")) {
        return "C:";
    }
    if (equalWithoutCase(name, "HOMEPATH")) {
        return "\\Users\\" + nameOfUser();
    }
    if (equalWithoutCase(name, "USERNAME")) {
        return nameOfUser();
    }
    if (equalWithoutCase(name, "COMPUTERNAME")) {
        const std::string computer = nameOfComputer();
        return computer.empty() ? std::nullopt : std::optional(computer);
    }
    if (equalWithoutCase(name, "NUMBER_OF_PROCESSORS")) {
        return std::to_string(sysconf(_SC_NPROCESSORS_ONLN));
    }
    return equalWithoutCase(name, "OS") && version.platform == lineOfNt ? std::optional<std::string>("Windows_NT") : std::nullopt;
}

} // namespace

std::optional<std::string> environmentVariable(const Files& files, const CodePage& codePage, const WindowsVersion& version,
                                               std::string_view name) {
    const std::string wanted = codePage.toUtf8(name);
    const std::optional<std::string> own = ofProcess(wanted);
    const std::optional<std::string> folder = own && !own->starts_with('/') ? std::nullopt : folderOf(files, wanted);
    if (folder) {
        return folder;
    }
    const std::optional<std::string> text = own ? own : otherStandard(wanted, version);
    return text ? std::optional(codePage.fromUtf8(*text)) : std::nullopt;
}

} // namespace mox::host
