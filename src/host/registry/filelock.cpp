#include "host/registry/filelock.h"

#include "host/registry/database.h"

#include "platform/advapi32.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace mox::host {

FileLock::FileLock(const std::filesystem::path& file) : file_(open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644)) {
    if (file_ < 0) {
        throw StorageError::fromSystem(file.string(), errno);
    }
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (flock(file_, LOCK_EX | LOCK_NB) != 0) {
        const int number = errno;
        if (number == EWOULDBLOCK && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        } else if (number != EINTR) {
            close(file_);
            throw number == EWOULDBLOCK ? StorageError(file.string() + ": held by another process", platform::ERROR_BUSY)
                                        : StorageError::fromSystem(file.string(), number);
        }
    }
}

FileLock::~FileLock() {
    close(file_);
}

} // namespace mox::host
