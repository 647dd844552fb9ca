// Files that the language has open in binary mode.
#pragma once

#include "host/files/files.h"
#include "host/files/openfile.h"

#include "platform/runtime.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace mox::host {

/// A file between `Open ... For Binary` and `Close`. Each statement gives 0, or the number of the run-time error that it raises.
class BinaryFile {
public:
    /// Makes an empty file if there is none, also for reading, and shares it with all other openers. 52 for a name that no file
    /// can have, 61 on a full disk, 70 if another opener does not share the file, 75 for a folder, for writing to a
    /// write-protected file or if the system refuses, 76 if the folder does not exist.
    static std::int32_t open(const Files& files, std::string_view path, platform::FileAccess access,
                             std::shared_ptr<BinaryFile>& result);

    BinaryFile(std::shared_ptr<OpenFile> file, platform::FileAccess access) noexcept : file_(std::move(file)), access_(access) {}

    std::int32_t length(std::int64_t& bytes) const;
    /// 54 for a file that is open for writing only, 62 if the file ends before, 63 for a position below 0.
    std::int32_t get(std::int64_t position, std::span<char> bytes) const;
    /// 54 for a file that is open for reading only, 61 on a full disk, 63 for a position below 0. What fits is written.
    std::int32_t put(std::int64_t position, std::span<const char> bytes) const;

private:
    std::shared_ptr<OpenFile> file_;
    platform::FileAccess access_;
};

} // namespace mox::host
