// Files that are open in binary mode.
#pragma once

#include <mox/values.h>

#include "platform/runtime.h"

#include <span>

namespace mox::server {

/// An open file, shared with other openers and closed at the end. Each member raises the run-time error of its statement.
class BinaryFile {
public:
    BinaryFile(const String& path, platform::FileAccess access);
    ~BinaryFile();
    BinaryFile(const BinaryFile&) = delete;
    BinaryFile& operator=(const BinaryFile&) = delete;

    /// In bytes.
    std::int64_t length() const;
    /// Fills `bytes` from a position that is counted from 0.
    void read(std::int64_t position, std::span<char> bytes) const;
    void write(std::int64_t position, std::span<const char> bytes);

private:
    platform::Handle number_ = 0;
};

} // namespace mox::server
