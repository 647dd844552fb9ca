// What a machine is made of.
#pragma once

#include "automation/objects/export.h"
#include "host/machine/clock.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

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

struct MOX_API MachineConfig {
    /// Folder of everything that the machine keeps, made when it is needed. Empty: nothing on disk but a temporary folder that
    /// goes with the machine.
    std::filesystem::path home;
    WindowsVersion windows;
    /// The product type that tells the edition from version 6.0 on, by its `PRODUCT_` number. Empty: Professional (Business in
    /// version 6.0) or a standard server.
    std::optional<std::uint32_t> productInfo;
    /// Sizes and settings of the system by their `SM_` numbers, beyond those that the machine knows itself.
    std::map<std::int32_t, std::int32_t> metrics;
    /// The system's ANSI code page by its Windows number.
    std::uint32_t codePage = 1252;
    /// Drives beyond the standard ones: letter (upper case) to folder.
    std::map<char, std::filesystem::path> drives;
    /// The folder of the trash, laid out as desktops do it: `files` and `info`. Empty: the trash of the user's desktop, but for a
    /// machine with a temporary home, which has its own there.
    std::filesystem::path trash;
    /// True: the machine draws in a visual style of its own, which the operations of uxtheme show.
    bool visualStyle = false;
    /// Where the desktop's icon themes lie. Empty, and always for a machine with a temporary home: files are shown by drawings of
    /// the machine's own.
    std::vector<std::filesystem::path> iconFolders;
    /// The icon theme by its name.
    std::string iconTheme;
    /// Null: the system's own.
    std::shared_ptr<Clock> clock;
    /// True: what the machine has stored when an operation answers survives a loss of power. False: it survives the end of the
    /// process only, which is much faster; always so for a machine without a home.
    bool isDurable = true;

    /// The home is MOX_HOME, else $XDG_DATA_HOME/mox, else .local/share/mox in the user's home folder, the icons are those of
    /// the user's desktop, all the rest as above.
    static MachineConfig fromEnvironment();
};

} // namespace mox::host
