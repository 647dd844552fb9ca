// A machine with a drive of its own for tests of the file system.
#pragma once

#include "support/testmachine.h"

#include "host/files/filesearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace mox::test {

/// `D:` is an empty folder on disk.
class FilesTest : public testing::Test {
protected:
    explicit FilesTest(std::uint32_t codePage = 1252) : machine_(configFor(disk_.path(), codePage)) {}

    const std::filesystem::path& disk() const { return disk_.path(); }
    host::Files& files() { return machine_->files; }
    platform::Kernel32& kernel32() { return machine_->kernel32; }

    /// Makes a file below the drive's folder with the folders in front of it. Names on disk are bytes.
    void makeFile(std::string_view name, std::string_view contents = "") {
        const std::filesystem::path path = disk() / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << contents;
    }
    void makeFolder(std::string_view name) { std::filesystem::create_directories(disk() / name); }

    /// Where a path leads, relative to the drive's folder; "-" for nowhere.
    std::string resolved(std::string_view path) {
        const auto place = files().resolve(path);
        return place ? place->lexically_relative(disk()).string() : "-";
    }

    /// The names that a search gives, one after the other.
    std::vector<std::string> list(std::string_view pattern) {
        std::vector<std::string> names;
        platform::WIN32_FIND_DATAA found;
        const platform::Handle search = kernel32().FindFirstFileA(pattern, found);
        if (search == platform::invalidHandle) {
            return names;
        }
        do {
            names.push_back(found.cFileName);
        } while (kernel32().FindNextFileA(search, found));
        EXPECT_TRUE(kernel32().FindClose(search));
        return names;
    }

    std::string shortPath(std::string_view path) {
        std::string buffer(kernel32().GetShortPathNameA(path, {}), '\0');
        buffer.resize(kernel32().GetShortPathNameA(path, buffer));
        return buffer;
    }

    std::uint32_t attributes(std::string_view path) { return kernel32().GetFileAttributesA(path); }

    host::TemporaryFolder disk_{testing::TempDir(), "mox-disk-"};
    TestMachine machine_;

private:
    static host::MachineConfig configFor(const std::filesystem::path& disk, std::uint32_t codePage) {
        host::MachineConfig config;
        config.codePage = codePage;
        config.drives = {{'D', disk}};
        return config;
    }
};

using Names = std::vector<std::string>;

/// True if a text is like `form`, in which "#" stands for a digit or an upper-case letter.
inline bool hasForm(std::string_view text, std::string_view form) {
    return std::ranges::equal(
        text, form, [](char c, char f) { return f == '#' ? (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') : c == f; });
}

} // namespace mox::test
