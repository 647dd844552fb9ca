// What walks through a large tree of folders cost, against the program that finds files.
#include "support/walltimes.h"

#include "host/machine/machine.h"

#include <mox/mox.h>

#include <fstream>
#include <stdexcept>
#include <string>

namespace {

using namespace mox;

constexpr int topFolders = 50;
constexpr int foldersInEach = 39;
constexpr int filesInEach = 100;
constexpr Long folderCount = topFolders * (1 + foldersInEach);

/// A tree of 200,000 files in 2,000 folders on `D:`, and one file more in the last of them.
class Tree {
public:
    Tree() : disk_("mox-bench-") {
        for (int top = 0; top < topFolders; ++top) {
            const std::filesystem::path folder = disk_.path() / "tree" / ("Folder " + std::to_string(100 + top));
            fill(folder);
            for (int sub = 0; sub < foldersInEach; ++sub) {
                fill(folder / ("part " + std::to_string(100 + sub)));
            }
            std::filesystem::path last = folder / ("part " + std::to_string(99 + foldersInEach));
            if (top == topFolders - 1) {
                std::ofstream(last / "wanted.txt").flush();
            }
        }
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

void require(bool condition) {
    if (!condition) {
        throw std::runtime_error("files are missing");
    }
}

} // namespace

int main() {
    const Tree tree;
    const moxFS fs = moxHub::create().FileSystem();
    const std::string find = "find '" + tree.path() + "' ";
    return bench::compareWallTimes({
        {"GetFolderAndFiles of 200,000 files / find",
         [&] {
             constexpr Long rows = 1 + folderCount * (1 + filesInEach) + 1;
             require(fs.GetFolderAndFiles(u"D:\\tree", True).Count == rows);
         },
         [&] { bench::runCommand(find + "> /dev/null"); }, 1.5},
        {"FindFile in the last of 2,000 folders / find -name",
         [&] { require(!fs.FindFile(u"wanted.txt", u"D:\\tree", True).empty()); },
         [&] { bench::runCommand(find + "-name wanted.txt > /dev/null"); }, 1.5},
        {"FindFile of what is not there / find -name", [&] { require(fs.FindFile(u"missing.txt", u"D:\\tree", True).empty()); },
         [&] { bench::runCommand(find + "-name missing.txt > /dev/null"); }, 1.5},
    });
}
