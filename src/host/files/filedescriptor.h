// An open file of the system.
#pragma once

#include <unistd.h>

#include <utility>

namespace mox::host {

/// Closes a file at its end.
class FileDescriptor {
public:
    /// Negative: none.
    explicit FileDescriptor(int number = -1) noexcept : number_(number) {}
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~FileDescriptor() { close(); }

    explicit operator bool() const noexcept { return number_ >= 0; }
    int number() const noexcept { return number_; }
    /// Gives it up unclosed.
    int release() noexcept { return std::exchange(number_, -1); }
    /// False if the system only now finds that something was not written.
    bool close() noexcept { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

} // namespace mox::host
