// What walks through a large tree of folders cost, against `find` on the same tree.
#include "support/ratios.h"

#include "host/machine/machine.h"

#include <mox/mox.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

using namespace mox;

constexpr int topFolders = 50;
constexpr int foldersInEach = 39;
constexpr int filesInEach = 100;
constexpr Long folderCount = topFolders * (1 + foldersInEach);
constexpr Long rowCount = 1 + folderCount * (1 + filesInEach);

/// A tree of 200,000 files in 2,000 folders, on `D:`.
class Tree {
public:
    Tree() : disk_("mox-bench-") {
        const std::filesystem::path root = disk_.path() / "tree";
        for (int top = 0; top < topFolders; ++top) {
            const std::filesystem::path folder = root / ("Folder " + std::to_string(100 + top));
            fill(folder);
            for (int sub = 0; sub < foldersInEach; ++sub) {
                fill(folder / ("part " + std::to_string(100 + sub)));
            }
        }
        std::ofstream(root / ("Folder " + std::to_string(99 + topFolders)) / ("part " + std::to_string(99 + foldersInEach)) /
                      "wanted.txt");
        host::MachineConfig config;
        config.home = disk_.path() / "home";
        config.drives = {{'D', disk_.path()}};
        host::Machine::configure(config);
    }

    std::string path() const { return (disk_.path() / "tree").string(); }

private:
    static void fill(const std::filesystem::path& folder) {
        std::filesystem::create_directories(folder);
        for (int i = 0; i < filesInEach; ++i) {
            std::ofstream(folder / ("Picture " + std::to_string(1000 + i) + ".jpeg")).flush();
        }
    }

    host::TemporaryFolder disk_;
};

const Tree& tree() {
    static const Tree tree;
    return tree;
}

const moxFS& files() {
    static const moxFS files = [] {
        tree();
        return moxHub::create().FileSystem();
    }();
    return files;
}

template <class Work> void timed(benchmark::State& state, Work work) {
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        if (!work()) {
            state.SkipWithError("wrong result");
        }
        state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
}

void runProgram(benchmark::State& state, const std::string& command) {
    timed(state, [&] { return std::system(command.c_str()) == 0; });
}

void findAll(benchmark::State& state) {
    runProgram(state, "find '" + tree().path() + "' > /dev/null");
}
BENCHMARK(findAll)->UseManualTime()->Unit(benchmark::kMillisecond);

void findName(benchmark::State& state) {
    runProgram(state, "find '" + tree().path() + "' -name wanted.txt > /dev/null");
}
BENCHMARK(findName)->UseManualTime()->Unit(benchmark::kMillisecond);

void getFolderAndFiles(benchmark::State& state) {
    const moxFS& fs = files();
    timed(state, [&] { return fs.GetFolderAndFiles(u"D:\\tree", True).Count == rowCount + 1; });
}
BENCHMARK(getFolderAndFiles)->UseManualTime()->Unit(benchmark::kMillisecond);

void findFile(benchmark::State& state) {
    const moxFS& fs = files();
    timed(state, [&] { return fs.FindFile(u"wanted.txt", u"D:\\tree", True).view().ends_with(u"wanted.txt"); });
}
BENCHMARK(findFile)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    return mox::bench::runWithRatios(argc, argv,
                                     {
                                         {"GetFolderAndFiles of 200,000 files / find", "getFolderAndFiles", "findAll", 1.5},
                                         {"FindFile in the last of 2,000 folders / find -name", "findFile", "findName", 1.5},
                                     });
}
