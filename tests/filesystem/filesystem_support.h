// The file system classes as clients reach them, on a drive of the test's own.
#pragma once

#include "support/invoke.h"
#include "support/print.h"
#include "support/testmachine.h"

#include "core/classes.h"

#include <mox/mox.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace mox::test {

/// `D:` is an empty folder on disk.
class FileSystemTest : public testing::Test {
protected:
    std::filesystem::path on(std::string_view name) const { return disk_.path() / name; }

    void makeFile(std::string_view name, std::string_view contents = "") const {
        std::filesystem::create_directories(on(name).parent_path());
        std::ofstream(on(name), std::ios::binary) << contents;
    }
    void makeFolder(std::string_view name) const { std::filesystem::create_directories(on(name)); }
    bool exists(std::string_view name) const { return std::filesystem::exists(on(name)); }
    std::string contents(std::string_view name) const {
        std::ifstream stream(on(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

private:
    static host::MachineConfig configFor(const std::filesystem::path& disk) {
        host::MachineConfig config;
        config.drives = {{'D', disk}};
        return config;
    }

    host::TemporaryFolder disk_{testing::TempDir(), "mox-disk-"};

protected:
    TestMachine machine{configFor(disk_.path())};
    moxFS fs{server::create<TRL_OBKR_MOX::_moxFS>()};
    moxFSFile file = fs.File();
    moxFSFolder folder = fs.Folder();
};

} // namespace mox::test
