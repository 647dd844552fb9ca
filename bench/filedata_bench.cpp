// Copying, checking and joining of large files, against the programs that do it. MOX_BENCH_MEBIBYTES is the size of the file: 256
// if it is not set.
#include "support/walltimes.h"

#include "host/machine/machine.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace mox;
using namespace mox::platform;

constexpr std::size_t mebibyte = std::size_t{1} << 20;

void require(bool condition) {
    if (!condition) {
        throw std::runtime_error("an operation failed");
    }
}

/// A machine with one large file, `D:\large`.
class LargeFile {
public:
    LargeFile() : disk_("mox-bench-") {
        const char* const setting = std::getenv("MOX_BENCH_MEBIBYTES");
        mebibytes_ = setting ? std::strtoul(setting, nullptr, 10) : 256;
        std::vector<std::uint64_t> block(mebibyte / sizeof(std::uint64_t));
        std::mt19937_64 random;
        std::ofstream file(path("large"), std::ios::binary);
        for (std::size_t i = 0; i < mebibytes_; ++i) {
            std::ranges::generate(block, std::ref(random));
            file.write(reinterpret_cast<const char*>(block.data()), static_cast<std::streamsize>(mebibyte));
        }
        require(static_cast<bool>(file.flush()));
        host::MachineConfig config;
        config.home = disk_.path() / "home";
        config.drives = {{'D', disk_.path()}};
        machine_ = std::make_unique<host::Machine>(config);
    }

    host::Machine& machine() { return *machine_; }
    std::string path(const char* name) const { return (disk_.path() / name).string(); }

    /// Calls `visit` with each block of the file.
    template <class Visit> void readAll(Visit visit) {
        Runtime& runtime = machine_->runtime;
        Handle number = 0;
        std::int64_t length = 0;
        require(runtime.OpenBinary("D:\\large", FileAccess::read, number) == 0 && runtime.LengthOfFile(number, length) == 0);
        block_.resize(mebibyte);
        for (std::int64_t position = 0; position < length; position += static_cast<std::int64_t>(mebibyte)) {
            require(runtime.GetBytes(number, position, block_) == 0);
            visit(std::span<const char>(block_));
        }
        require(runtime.CloseFile(number) == 0);
    }

    void append(const char* target) {
        Runtime& runtime = machine_->runtime;
        Handle number = 0;
        std::int64_t length = 0;
        require(runtime.OpenBinary(target, FileAccess::write, number) == 0 && runtime.LengthOfFile(number, length) == 0);
        readAll([&](std::span<const char> bytes) {
            require(runtime.PutBytes(number, length, bytes) == 0);
            length += static_cast<std::int64_t>(bytes.size());
        });
        require(runtime.CloseFile(number) == 0);
    }

private:
    host::TemporaryFolder disk_;
    std::size_t mebibytes_ = 0;
    std::vector<char> block_;
    std::unique_ptr<host::Machine> machine_;
};

} // namespace

int main() {
    LargeFile large;
    const auto begin = [&] {
        sync(); // what was written before is not to disturb
        for (const char* name : {"own", "other"}) {
            std::filesystem::remove(large.path(name));
            std::ofstream(large.path(name)) << "beginning";
        }
    };
    const auto clear = [&] {
        sync();
        for (const char* name : {"own", "other"}) {
            std::filesystem::remove(large.path(name));
        }
    };
    const auto copy = [&] { require(large.machine().kernel32.CopyFileA("D:\\large", "D:\\own", false)); };
    const auto copyByProgram = [&] { bench::runCommand("cp '" + large.path("large") + "' '" + large.path("other") + "'"); };
    volatile std::uint32_t result = 0;
    return bench::compareWallTimes({
        {"copy to a new name / cp", copy, copyByProgram, 1.1, clear},
        // The old file stays until the new one is complete, so there is more to hold than for cp, which overwrites it.
        {"copy over a file / cp", copy, copyByProgram, 1.25, [] { sync(); }},
        {"checksum of a file / reading it",
         [&] {
             std::uint32_t crc = 0;
             large.readAll([&](std::span<const char> bytes) { crc = large.machine().ntdll.RtlComputeCrc32(crc, bytes); });
             result = crc;
         },
         [&] { large.readAll([](std::span<const char>) {}); }, 2},
        {"appending of a file / cat", [&] { large.append("D:\\own"); },
         [&] { bench::runCommand("cat '" + large.path("large") + "' >> '" + large.path("other") + "'"); }, 1.5, begin},
    });
}
