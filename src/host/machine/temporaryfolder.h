// A folder for as long as an object lives.
#pragma once

#include "automation/objects/export.h"

#include <filesystem>
#include <string>

namespace mox::host {

/// A new, empty folder that only this user may enter; removed with all that is in it.
class MOX_API TemporaryFolder {
public:
    /// In the system's folder for temporary files, or in `parent`. Throws `std::filesystem::filesystem_error`.
    explicit TemporaryFolder(const std::string& prefix) : TemporaryFolder(std::filesystem::temp_directory_path(), prefix) {}
    TemporaryFolder(const std::filesystem::path& parent, const std::string& prefix);
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const noexcept { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace mox::host
