// The file system as programs of the library see it: drives, backslashes, names without regard to case.
#pragma once

#include "automation/objects/export.h"
#include "host/machine/machineconfig.h"
#include "host/text/codepage.h"

#include "platform/kernel32.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace mox::host {

class FileSearch;

/// Drives that stand for folders of this machine, and paths into them. Paths come in as bytes of the code page.
class MOX_API Files {
public:
    Files(const MachineConfig& config, const CodePage& codePage);
    ~Files();

    /// The folder behind each drive letter (upper case).
    const std::map<char, std::filesystem::path>& drives() const noexcept { return drives_; }

    /// Where a path leads on disk, each name found without regard to case. A last part that does not exist is kept as written; empty if an
    /// earlier part does not exist, is no folder, or the path names no drive.
    std::optional<std::filesystem::path> resolve(std::string_view path) const;

private:
    std::map<char, std::filesystem::path> drives_;
    const CodePage& codePage_;
};

} // namespace mox::host
