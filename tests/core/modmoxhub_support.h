// A machine with a drive of its own for tests of the shared procedures.
#pragma once

#include "support/print.h"
#include "support/testmachine.h"

#include "core/modMoxHub.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace mox::test {

/// `D:` is an empty folder on disk, `N:` one that does not exist.
class ModMoxHubTest : public testing::Test {
protected:
    const std::filesystem::path& disk() const { return disk_.path(); }

    void makeFile(std::string_view name) {
        const std::filesystem::path path = disk() / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path).flush();
    }
    void makeFolder(std::string_view name) { std::filesystem::create_directories(disk() / name); }
    bool exists(std::string_view name) const { return std::filesystem::exists(disk() / name); }

    host::TemporaryFolder disk_{testing::TempDir(), "mox-disk-"};
    TestMachine machine_{configFor(disk_.path())};

private:
    static host::MachineConfig configFor(const std::filesystem::path& disk) {
        host::MachineConfig config;
        config.drives = {{'D', disk}, {'N', disk / "no such folder"}};
        return config;
    }
};

} // namespace mox::test
