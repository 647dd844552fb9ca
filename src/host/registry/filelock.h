// A lock between processes.
#pragma once

#include <filesystem>

namespace mox::host {

/// Held by one process and one object at a time, for as long as the object lives; it ends with the process by whatever means.
class FileLock {
public:
    /// Makes the file if there is none and waits for the lock. Throws `StorageError`, also if the wait takes half a minute.
    explicit FileLock(const std::filesystem::path& file);
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

private:
    int file_;
};

} // namespace mox::host
