#include "host/processes/process.h"

#include "host/files/filedescriptor.h"
#include "host/processes/processfiles.h"
#include "host/processes/processsnapshot.h"

#include <algorithm>
#include <array>
#include <limits>
#include <sstream>
#include <string_view>

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace mox::host {

namespace {

// Modules of other systems begin at addresses of this raster, so their handles are multiples of it.
constexpr platform::Handle moduleStep = 0x10000;

/// The file behind one line of the memory map, if it is code that was loaded from a file:
/// "7f00-7f80 r-xp 00000000 fd:00 1234 /usr/lib/libc.so.6".
std::optional<std::string> loadedFile(const std::string& line) {
    std::istringstream fields(line);
    std::string skipped;
    std::string rights;
    fields >> skipped >> rights >> skipped >> skipped >> skipped >> std::ws;
    std::string path;
    std::getline(fields, path);
    constexpr std::array<std::string_view, 3> noFiles = {"/memfd:", "/dev/", "/SYSV"};
    const bool isFile =
        path.starts_with('/') && std::ranges::none_of(noFiles, [&](auto prefix) { return path.starts_with(prefix); });
    if (!isFile || rights.find('x') == std::string::npos) {
        return std::nullopt;
    }
    path = withoutDeletedMark(std::move(path));
    for (std::size_t place = path.find("\\012"); place != std::string::npos; place = path.find("\\012", place + 1)) {
        path.replace(place, 4, 1, '\n'); // the one character that the map escapes
    }
    return path;
}

constexpr std::uint32_t withoutEnd = 0xFFFFFFFF;

} // namespace

std::shared_ptr<Process> Process::open(std::uint32_t id) {
    const auto facts = factsOfProcess(id);
    return facts && executableOfProcess(id) ? std::make_shared<Process>(id, facts->start) : nullptr;
}

std::optional<std::filesystem::path> Process::executable() const {
    const auto facts = factsOfProcess(id_);
    return facts && facts->start == start_ ? executableOfProcess(id_) : std::nullopt;
}

platform::Handle Process::numberOf(const std::string& file) {
    const auto place = std::ranges::find(known_, file);
    const auto number = static_cast<platform::Handle>(place - known_.begin()) + 1;
    if (place == known_.end()) {
        known_.push_back(file);
    }
    return number * moduleStep;
}

std::vector<platform::Handle> Process::modules() {
    const auto program = executable();
    if (!program) {
        return {};
    }
    const std::lock_guard lock(guard_);
    std::vector<platform::Handle> result{numberOf(program->string())};
    std::istringstream map(readProcessFile(id_, "maps"));
    for (std::string line; std::getline(map, line);) {
        if (const auto file = loadedFile(line)) {
            const platform::Handle module = numberOf(*file);
            if (std::ranges::find(result, module) == result.end()) {
                result.push_back(module);
            }
        }
    }
    return result;
}

std::optional<std::filesystem::path> Process::moduleFile(platform::Handle module) {
    if (module == 0) {
        return executable();
    }
    const std::lock_guard lock(guard_);
    const auto place = static_cast<std::size_t>(module / moduleStep) - 1;
    return module > 0 && module % moduleStep == 0 && place < known_.size() ? std::optional<std::filesystem::path>(known_[place])
                                                                           : std::nullopt;
}

std::optional<bool> Process::waitForEnd(std::uint32_t milliseconds) const {
    const FileDescriptor process(static_cast<int>(syscall(SYS_pidfd_open, id_, 0)));
    if (!process) {
        return errno == ESRCH ? std::optional(true) : std::nullopt;
    }
    // Now that the number is held, it can be told whether it still stands for the same process.
    const auto facts = factsOfProcess(id_);
    if (!facts || facts->start != start_) {
        return true;
    }
    pollfd ended{process.number(), POLLIN, 0};
    constexpr std::uint32_t longest = std::numeric_limits<int>::max();
    const int wait = milliseconds == withoutEnd ? -1 : static_cast<int>(std::min(milliseconds, longest));
    const int count = poll(&ended, 1, wait);
    return count < 0 ? std::nullopt : std::optional(count > 0);
}

} // namespace mox::host
