#include "host/registry/damagedfile.h"

#include "host/registry/database.h"

#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>

namespace mox::host {

namespace {

std::string presentTime() {
    const std::time_t now = std::time(nullptr);
    std::tm calendar{};
    gmtime_r(&now, &calendar);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%d-%H%M%S", &calendar)};
}

/// Never over another file. False if there is one.
bool moveTo(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) {
        return true;
    }
    // Not every file system knows that way.
    if (errno == EINVAL && link(from.c_str(), to.c_str()) == 0) {
        unlink(from.c_str());
        return true;
    }
    if (errno != EEXIST) {
        throw StorageError::fromSystem(from.string(), errno);
    }
    return false;
}

} // namespace

std::filesystem::path keepDamagedFile(const std::filesystem::path& file) {
    const std::filesystem::path log = file.string() + "-wal";
    const std::string start = (file.parent_path() / file.stem()).string() + ".damaged-" + presentTime();
    for (int number = 1;; ++number) {
        const std::string kept = start + (number > 1 ? "-" + std::to_string(number) : "") + file.extension().string();
        std::error_code error;
        if (std::filesystem::exists(kept, error)) {
            continue;
        }
        // The log first: it must never be found beside a new file, whose content it would become.
        if (std::filesystem::exists(log, error) && !moveTo(log, kept + "-wal")) {
            continue;
        }
        if (moveTo(file, kept)) {
            std::filesystem::remove(file.string() + "-shm", error);
            return kept;
        }
    }
}

} // namespace mox::host
