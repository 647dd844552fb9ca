// What a search through a large folder and a look-up without regard to case cost, against the plain calls of the system.
#include "support/ratios.h"

#include "host/machine/machine.h"

#include <dirent.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

namespace {

using namespace mox;

constexpr int fileCount = 10'000;

/// A machine with one large folder, `D:\big`.
class LargeFolder {
public:
    LargeFolder() : disk_("mox-bench-") {
        std::filesystem::create_directory(disk_.path() / "big");
        for (int i = 0; i < fileCount; ++i) {
            std::ofstream(disk_.path() / "big" / ("Picture number " + std::to_string(i * 7919 % fileCount) + ".jpeg")).flush();
        }
        host::MachineConfig config;
        config.home = disk_.path() / "home";
        config.drives = {{'D', disk_.path()}};
        machine_ = std::make_unique<host::Machine>(config);
    }

    platform::Kernel32& kernel32() { return machine_->kernel32; }
    std::string path() const { return (disk_.path() / "big").string(); }

private:
    host::TemporaryFolder disk_;
    std::unique_ptr<host::Machine> machine_;
};

LargeFolder& folder() {
    static LargeFolder folder;
    return folder;
}

struct CloseFolder {
    void operator()(DIR* opened) const noexcept { closedir(opened); }
};

/// Calls `visit` with the path of each file.
template <class Visit> void readAll(Visit&& visit) {
    const std::string path = folder().path();
    const std::unique_ptr<DIR, CloseFolder> opened(opendir(path.c_str()));
    std::string file;
    while (const dirent* entry = readdir(opened.get())) {
        file.assign(path).append("/").append(entry->d_name);
        visit(file);
    }
}

void readNames(benchmark::State& state) {
    for (auto _ : state) {
        readAll([](const std::string& file) { benchmark::DoNotOptimize(file.data()); });
    }
}
BENCHMARK(readNames)->Unit(benchmark::kMillisecond);

void readFacts(benchmark::State& state) {
    for (auto _ : state) {
        readAll([](const std::string& file) {
            struct stat facts {};
            benchmark::DoNotOptimize(lstat(file.c_str(), &facts));
        });
    }
}
BENCHMARK(readFacts)->Unit(benchmark::kMillisecond);

void readFactsAndAttributes(benchmark::State& state) {
    for (auto _ : state) {
        readAll([](const std::string& file) {
            struct stat facts {};
            char attributes[256];
            benchmark::DoNotOptimize(lstat(file.c_str(), &facts));
            benchmark::DoNotOptimize(getxattr(file.c_str(), "user.DOSATTRIB", attributes, sizeof attributes));
        });
    }
}
BENCHMARK(readFactsAndAttributes)->Unit(benchmark::kMillisecond);

void searchAll(benchmark::State& state, const char* pattern) {
    platform::Kernel32& kernel32 = folder().kernel32();
    for (auto _ : state) {
        platform::WIN32_FIND_DATAA found;
        int count = 0;
        const platform::Handle search = kernel32.FindFirstFileA(pattern, found);
        do {
            ++count;
        } while (kernel32.FindNextFileA(search, found));
        kernel32.FindClose(search);
        if (count < fileCount) {
            state.SkipWithError("files are missing");
        }
    }
}
BENCHMARK_CAPTURE(searchAll, everything, "D:\\big\\*.*")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(searchAll, pattern, "D:\\big\\*number*.jp?g")->Unit(benchmark::kMillisecond);

void lookUp(benchmark::State& state, const char* path) {
    platform::Kernel32& kernel32 = folder().kernel32();
    for (auto _ : state) {
        benchmark::DoNotOptimize(kernel32.GetFileAttributesA(path));
    }
}
BENCHMARK_CAPTURE(lookUp, exact, "D:\\big\\Picture number 5000.jpeg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lookUp, otherCase, "D:\\big\\PICTURE NUMBER 5000.JPEG")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(lookUp, missing, "D:\\big\\no such file.jpeg")->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    return mox::bench::runWithRatios(
        argc, argv,
        {
            {"search of a folder / reading names and facts", "searchAll/everything", "readFacts", 4},
            {"search of a folder / reading names, facts and attributes", "searchAll/everything", "readFactsAndAttributes", 2},
            {"search by a pattern / reading names, facts and attributes", "searchAll/pattern", "readFactsAndAttributes", 2},
            {"look-up of a missing name / reading the names", "lookUp/missing", "readNames", 2},
            {"look-up in another case / reading the names", "lookUp/otherCase", "readNames", 2},
        });
}
