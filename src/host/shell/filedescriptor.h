// An open file of the system.
#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace mox::host {

/// Owns a descriptor; closing leaves `errno` alone.
class FileDescriptor {
public:
    explicit FileDescriptor(int descriptor) noexcept : descriptor_(descriptor) {}
    ~FileDescriptor() {
        if (descriptor_ >= 0) {
            const int error = errno;
            close(descriptor_);
            errno = error;
        }
    }
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    explicit operator bool() const noexcept { return descriptor_ >= 0; }
    int get() const noexcept { return descriptor_; }
    /// Closes it. False if what was written before did not all reach the disk.
    bool finish() noexcept { return close(release()) == 0; }
    int release() noexcept { return std::exchange(descriptor_, -1); }

private:
    int descriptor_;
};

} // namespace mox::host
