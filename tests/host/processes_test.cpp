#include "support/childprocess.h"
#include "support/testmachine.h"

#include "host/processes/processfiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace mox::test {

namespace {

using namespace platform;

constexpr std::uint32_t entrySize = 296;
constexpr std::uint32_t readAccess = PROCESS_QUERY_INFORMATION | PROCESS_VM_READ;

/// A new file that is mapped for reading.
class MappedFile {
public:
    explicit MappedFile(const std::filesystem::path& path) {
        const int file = open(path.c_str(), O_RDWR | O_CREAT, 0600);
        address_ = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
        close(file);
        EXPECT_NE(address_, MAP_FAILED);
    }
    ~MappedFile() { munmap(address_, size); }
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

private:
    static constexpr std::size_t size = 4096;
    void* address_ = nullptr;
};

struct ProcessesTest : testing::Test {
    TestMachine machine;
    const std::uint32_t self = static_cast<std::uint32_t>(getpid());

    /// What a new snapshot says of a process.
    static std::optional<PROCESSENTRY32> entryOf(std::uint32_t id) {
        const Handle snapshot = kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        EXPECT_GT(snapshot, 0);
        std::optional<PROCESSENTRY32> result;
        PROCESSENTRY32 entry;
        entry.dwSize = entrySize;
        for (bool found = kernel32().Process32First(snapshot, entry); found; found = kernel32().Process32Next(snapshot, entry)) {
            if (entry.th32ProcessID == id) {
                result = entry;
            }
        }
        EXPECT_TRUE(kernel32().CloseHandle(snapshot));
        return result;
    }
    static std::string nameOf(const ChildProcess& child) {
        const auto entry = entryOf(static_cast<std::uint32_t>(child.id()));
        return entry ? entry->szExeFile : "none";
    }
    static std::string pathOf(Handle process, Handle module) {
        std::array<char, 500> buffer{};
        const std::uint32_t length = psapi().GetModuleFileNameExA(process, module, buffer);
        return std::string(buffer.data(), length);
    }
    /// Starts a copy of a program under another name.
    std::filesystem::path copyOf(const char* program, const std::string& name) {
        std::filesystem::path copy = machine.folder() / name;
        std::filesystem::copy_file(program, copy);
        return copy;
    }
    std::string drivePath(const std::filesystem::path& path) { return machine->files.toDrivePath(path); }
};

const std::filesystem::path thisProgram = std::filesystem::read_symlink("/proc/self/exe");

TEST_F(ProcessesTest, listsThisProcess) {
    EXPECT_EQ(kernel32().GetCurrentProcessId(), self);
    const auto entry = entryOf(self);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->szExeFile, thisProgram.filename().string());
    EXPECT_EQ(entry->th32ParentProcessID, static_cast<std::uint32_t>(getppid()));
    EXPECT_FALSE(entryOf(0));
}

TEST_F(ProcessesTest, listsChildrenWithTheWholeNameOfTheirProgram) {
    for (const char* name : {"cat", "a program with a very long name", "odd) S 1 (name", "dot.EXE"}) {
        const ChildProcess child(copyOf("/bin/cat", name));
        const auto entry = entryOf(static_cast<std::uint32_t>(child.id()));
        ASSERT_TRUE(entry) << name;
        EXPECT_EQ(entry->szExeFile, name);
        EXPECT_EQ(entry->th32ParentProcessID, self) << name;
    }
}

TEST_F(ProcessesTest, givesNamesInTheCodePage) {
    EXPECT_EQ(nameOf(ChildProcess(copyOf("/bin/cat", "Ärger €"))), "\xC4rger \x80");
}

TEST_F(ProcessesTest, knowsAProgramThatWasDeletedMeanwhile) {
    const auto program = copyOf("/bin/cat", "deleted meanwhile");
    const ChildProcess child(program);
    std::filesystem::remove(program);
    EXPECT_EQ(nameOf(child), "deleted meanwhile");
}

TEST_F(ProcessesTest, takesTheKernelsNameWhereTheProgramCannotBeSeen) {
    ChildProcess child(copyOf("/bin/true", "a program with a very long name"));
    child.awaitEnd();
    EXPECT_EQ(nameOf(child), "a program with ");
    EXPECT_EQ(kernel32().OpenProcess(readAccess, false, static_cast<std::uint32_t>(child.id())), 0);
}

TEST_F(ProcessesTest, takesAFileThatCanBeOpenedButNotReadAsEmpty) {
    // As the files of a process that ends in between. Nothing is mapped at the address 0 of a process's memory.
    EXPECT_EQ(host::readProcessFile(static_cast<std::uint32_t>(getpid()), "mem"), "");
    EXPECT_NE(host::readProcessFile(static_cast<std::uint32_t>(getpid()), "stat"), "");
}

TEST_F(ProcessesTest, keepsASnapshotAsItWas) {
    ChildProcess child("/bin/cat");
    const auto id = static_cast<std::uint32_t>(child.id());
    const Handle snapshot = kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    child.end();
    EXPECT_FALSE(entryOf(id));
    for (int round = 0; round < 2; ++round) { // it can be walked again
        std::vector<std::uint32_t> ids;
        PROCESSENTRY32 entry;
        entry.dwSize = entrySize;
        for (bool found = kernel32().Process32First(snapshot, entry); found; found = kernel32().Process32Next(snapshot, entry)) {
            ids.push_back(entry.th32ProcessID);
        }
        EXPECT_EQ(std::ranges::count(ids, id), 1);
        EXPECT_EQ(std::ranges::count(ids, self), 1);
        EXPECT_TRUE(std::ranges::is_sorted(ids));
        EXPECT_FALSE(kernel32().Process32Next(snapshot, entry));
    }
    EXPECT_TRUE(kernel32().CloseHandle(snapshot));
}

TEST_F(ProcessesTest, refusesEntriesOfAnotherSize) {
    const Handle snapshot = kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32 entry;
    for (const std::uint32_t size : {0u, 295u, 297u, 304u}) {
        entry.dwSize = size;
        EXPECT_FALSE(kernel32().Process32First(snapshot, entry)) << size;
        EXPECT_FALSE(kernel32().Process32Next(snapshot, entry)) << size;
        EXPECT_EQ(entry.th32ProcessID, 0u);
    }
    EXPECT_TRUE(kernel32().CloseHandle(snapshot));
    entry.dwSize = entrySize;
    EXPECT_FALSE(kernel32().Process32First(snapshot, entry)); // closed
    EXPECT_FALSE(kernel32().CloseHandle(snapshot));
}

TEST_F(ProcessesTest, givesTheModulesOfThisProcess) {
    const MappedFile data(machine.folder() / "data that is no code");
    const Handle process = kernel32().OpenProcess(readAccess, false, self);
    ASSERT_GT(process, 0);
    std::array<Handle, 1000> modules{};
    std::uint32_t needed = 0;
    ASSERT_TRUE(psapi().EnumProcessModules(process, modules, needed));
    const std::size_t count = needed / sizeof(Handle);
    ASSERT_GT(count, 3u);
    ASSERT_LT(count, modules.size());
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < count; ++i) {
        paths.push_back(pathOf(process, modules[i]));
    }
    EXPECT_EQ(paths[0], drivePath(thisProgram));
    EXPECT_EQ(std::ranges::count_if(paths, [](const auto& path) { return path.find("libmoxplatform.so") != std::string::npos; }),
              1);
    EXPECT_EQ(std::ranges::count_if(paths, [](const auto& path) { return path.find("\\libc.so.6") != std::string::npos; }), 1);
    EXPECT_EQ(std::ranges::count_if(paths, [](const auto& path) { return path.find("no code") != std::string::npos; }), 0);
    std::ranges::sort(paths);
    EXPECT_EQ(std::ranges::adjacent_find(paths), paths.end());
    EXPECT_EQ(pathOf(process, 0), drivePath(thisProgram));
    EXPECT_TRUE(kernel32().CloseHandle(process));
    EXPECT_EQ(pathOf(process, 0), "");
}

TEST_F(ProcessesTest, givesAsManyModulesAsThereIsRoomFor) {
    const Handle process = kernel32().OpenProcess(readAccess, false, self);
    std::array<Handle, 3> modules{-7, -7, -7};
    std::uint32_t needed = 0;
    EXPECT_TRUE(psapi().EnumProcessModules(process, std::span(modules).first(2), needed));
    EXPECT_GT(needed, 3 * sizeof(Handle));
    EXPECT_GT(modules[1], 0);
    EXPECT_EQ(modules[2], -7);
    EXPECT_TRUE(psapi().EnumProcessModules(process, {}, needed));
    for (const Handle none : {-1, 1, modules[0] + 1, modules[0] * 1000}) {
        EXPECT_EQ(pathOf(process, none), "") << none;
    }
    EXPECT_TRUE(kernel32().CloseHandle(process));
    EXPECT_FALSE(psapi().EnumProcessModules(process, modules, needed));
}

TEST_F(ProcessesTest, cutsPathsToTheBuffer) {
    const Handle process = kernel32().OpenProcess(readAccess, false, self);
    const std::string path = drivePath(thisProgram);
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, std::size_t{5}, path.size(), path.size() + 1}) {
        std::string buffer(size, '#');
        const std::size_t expected = size == 0 ? 0 : size - 1;
        EXPECT_EQ(psapi().GetModuleFileNameExA(process, 0, buffer), expected);
        EXPECT_EQ(buffer.substr(0, expected), path.substr(0, expected));
        if (size > 0) {
            EXPECT_EQ(buffer.back(), '\0');
        }
    }
    EXPECT_TRUE(kernel32().CloseHandle(process));
}

TEST_F(ProcessesTest, looksIntoAnotherProcess) {
    const auto program = copyOf("/bin/cat", "looked into");
    ChildProcess child(program);
    const Handle process = kernel32().OpenProcess(readAccess, false, static_cast<std::uint32_t>(child.id()));
    ASSERT_GT(process, 0);
    std::array<Handle, 50> modules{};
    std::uint32_t needed = 0;
    EXPECT_TRUE(psapi().EnumProcessModules(process, modules, needed));
    EXPECT_EQ(pathOf(process, modules[0]), drivePath(program));
    child.end();
    EXPECT_FALSE(psapi().EnumProcessModules(process, modules, needed)); // it is gone
    EXPECT_EQ(pathOf(process, 0), "");
    EXPECT_TRUE(kernel32().CloseHandle(process));
}

TEST_F(ProcessesTest, opensNoProcessThatDoesNotExist) {
    for (const std::uint32_t id : {0u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        EXPECT_EQ(kernel32().OpenProcess(readAccess, false, id), 0) << id;
    }
}

} // namespace

} // namespace mox::test
