// Walks through a large tree of folders by the operations of the system, against the program that finds files.
#include "support/walltimes.h"

#include "host/machine/machine.h"

#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace mox;
using namespace mox::platform;

constexpr int folderCount = 2'000;
constexpr int filesInFolder = 100;

/// A machine whose drive `D:` is a tree of 40 times 50 folders with 100 files each.
class Tree {
public:
    Tree() : disk_("mox-bench-") {
        constexpr int foldersInFolder = 50;
        for (int i = 0; i < folderCount; ++i) {
            const std::filesystem::path folder = disk_.path() / "tree" / ("folder " + std::to_string(i / foldersInFolder)) /
                                                 ("folder " + std::to_string(i % foldersInFolder));
            std::filesystem::create_directories(folder);
            for (int j = 0; j < filesInFolder; ++j) {
                std::ofstream(folder / ("file number " + std::to_string(j) + ".txt")).flush();
            }
            last_ = folder;
        }
        std::ofstream(last_ / "sought.txt").flush();
        host::MachineConfig config;
        config.home = disk_.path() / "home";
        config.drives = {{'D', disk_.path()}};
        machine_ = std::make_unique<host::Machine>(config);
    }

    Kernel32& kernel32() { return machine_->kernel32; }
    std::string path() const { return (disk_.path() / "tree").string(); }
    std::string output() const { return (disk_.path() / "output").string(); }

private:
    host::TemporaryFolder disk_;
    std::filesystem::path last_;
    std::unique_ptr<host::Machine> machine_;
};

bool isFound(Kernel32& kernel32, const std::string& pattern) {
    WIN32_FIND_DATAA found;
    const Handle search = kernel32.FindFirstFileA(pattern, found);
    return search != invalidHandle && kernel32.FindClose(search);
}

/// Calls `visit` with each entry of a folder, whose path ends in a backslash.
template <class Visit> void visitAll(Kernel32& kernel32, const std::string& folder, Visit visit) {
    WIN32_FIND_DATAA found;
    const Handle search = kernel32.FindFirstFileA(folder + "*.*", found);
    if (search == invalidHandle) {
        return;
    }
    do {
        visit(found);
    } while (kernel32.FindNextFileA(search, found));
    kernel32.FindClose(search);
}

bool isFolderToEnter(const WIN32_FIND_DATAA& found) {
    return found.cFileName[0] != '.' && (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) == 0;
}

/// Collects the names of all files that are not hidden, and of the folders.
void collect(Kernel32& kernel32, const std::string& folder, std::vector<std::string>& names) {
    std::vector<std::string> folders;
    names.push_back(folder);
    visitAll(kernel32, folder, [&](const WIN32_FIND_DATAA& found) {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            if (isFolderToEnter(found)) {
                folders.push_back(found.cFileName);
            }
        } else if ((found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) == 0) {
            names.push_back(found.cFileName);
        }
    });
    for (const std::string& name : folders) {
        collect(kernel32, folder + name + "\\", names);
    }
}

/// The first file of that name: in a folder, then in the folders below it.
std::string search(Kernel32& kernel32, const std::string& folder, const std::string& name) {
    if (!isFound(kernel32, folder + "*.*")) {
        return {};
    }
    if (isFound(kernel32, folder + name)) {
        return folder + name;
    }
    std::vector<std::string> folders;
    visitAll(kernel32, folder, [&](const WIN32_FIND_DATAA& found) {
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 && isFolderToEnter(found)) {
            folders.push_back(found.cFileName);
        }
    });
    for (const std::string& below : folders) {
        if (std::string found = search(kernel32, folder + below + "\\", name); !found.empty()) {
            return found;
        }
    }
    return {};
}

void require(bool condition) {
    if (!condition) {
        throw std::runtime_error("files are missing");
    }
}

} // namespace

int main() {
    Tree tree;
    const auto list = [&] {
        std::vector<std::string> names;
        collect(tree.kernel32(), "D:\\tree\\", names);
        require(names.size() > folderCount * (filesInFolder + 1));
    };
    const auto find = [&](const char* name) { require(search(tree.kernel32(), "D:\\tree\\", name).empty() == (*name == 'n')); };
    return bench::compareWallTimes({
        {"listing of a tree / find", list, [&] { bench::runCommand("find '" + tree.path() + "' > '" + tree.output() + "'"); },
         1.5},
        {"search for a file in a tree / find -name", [&] { find("SOUGHT.txt"); },
         [&] { bench::runCommand("find '" + tree.path() + "' -name sought.txt > '" + tree.output() + "'"); }, 1.5},
        {"search for what is not there / find -name", [&] { find("nothing.txt"); },
         [&] { bench::runCommand("find '" + tree.path() + "' -name nothing.txt > '" + tree.output() + "'"); }, 1.5},
    });
}
