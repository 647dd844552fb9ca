// Copying, checking and joining of large files, against the programs that do it. MOX_BENCH_MEBIBYTES is the size of the file: 256
// if it is not set.
#include "support/walltimes.h"

#include "host/machine/machine.h"

#include <mox/mox.h>

#include <fcntl.h>
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
        host::Machine::configure(config);
    }

    /// Reads the file in blocks that stay in the cache of the processor.
    void read() const {
        const int opened = open(path("large").c_str(), O_RDONLY | O_CLOEXEC);
        std::vector<char> block(256 * 1024);
        std::size_t total = 0;
        for (ssize_t length = 0; (length = ::read(opened, block.data(), block.size())) > 0;) {
            total += static_cast<std::size_t>(length);
        }
        close(opened);
        require(total == mebibytes_ * mebibyte);
    }
    std::string path(const char* name) const { return (disk_.path() / name).string(); }

private:
    host::TemporaryFolder disk_;
    std::size_t mebibytes_ = 0;
};

} // namespace

int main() {
    const LargeFile large;
    const moxFS fs = moxHub::create().FileSystem();
    const moxFSFile file = fs.File();
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
    const auto checksum = [&] { require(file.GetChecksum(u"D:\\large", 1024) != 0); };
    return bench::compareWallTimes({
        {"Copy / cp", [&] { require(file.Copy(u"D:\\large", u"D:\\own") == True); },
         [&] { bench::runCommand("cp '" + large.path("large") + "' '" + large.path("other") + "'"); }, 1.1, clear},
        {"GetChecksum / cat, which only reads", checksum,
         [&] { bench::runCommand("cat '" + large.path("large") + "' > /dev/null"); }, 1.3},
        {"GetChecksum / reading in the blocks that serve best", checksum, [&] { large.read(); }, 1.6},
        {"MergeFiles / cat", [&] { require(fs.MergeFiles(u"D:\\own", u"D:\\large") == True); },
         [&] { bench::runCommand("cat '" + large.path("large") + "' >> '" + large.path("other") + "'"); }, 1.2, begin},
    });
}
