// What a machine is made of.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>

namespace mox::host {

/// The version of Windows that the machine reports.
struct WindowsVersion {
    std::uint32_t major = 6;
    std::uint32_t minor = 1;
    std::uint32_t build = 7601;
    std::uint32_t platform = 2;
    std::string serviceText = "Service Pack 1";
    std::uint32_t productType = 1;
    std::uint32_t suite = 0;
};

struct MachineConfig {
    /// Folder of everything that the machine keeps. Empty: nothing on disk but a temporary folder that goes with the machine.
    std::filesystem::path home;
    WindowsVersion windows;
    /// The system's ANSI code page by its Windows number.
    std::uint32_t codePage = 1252;
    /// Drives beyond the standard ones: letter to folder.
    std::map<char, std::filesystem::path> drives;

    /// MOX_HOME, else $XDG_DATA_HOME/mox, else ~/.local/share/mox.
    static MachineConfig fromEnvironment();
};

} // namespace mox::host
