#include "registry_support.h"
#include "support/testmachine.h"

#include <array>
#include <csignal>
#include <string>

#include <sys/wait.h>
#include <unistd.h>

namespace mox::test {

namespace {

using namespace platform;

constexpr HKEY user = HKEY_CURRENT_USER;

std::int32_t save(Advapi32& advapi, const std::string& path, const std::string& name, const std::string& text) {
    HKEY key = 0;
    std::int32_t status = advapi.RegCreateKeyA(user, path, key);
    if (status == ERROR_SUCCESS) {
        status = advapi.RegSetValueExA(key, name, REG_SZ, text);
        advapi.RegCloseKey(key);
    }
    return status;
}

host::MachineConfig at(const host::TemporaryFolder& folder) {
    host::MachineConfig config;
    config.home = folder.path() / "home";
    config.isDurable = false; // processes end here, but the system does not
    return config;
}

/// A process that runs `body` and ends with what it gives.
template <class Body> pid_t startChild(Body body) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(body());
    }
    return child;
}

TEST(RegistryProcessesTest, bothSaveAtOnceAndAllIsThere) {
    constexpr int settings = 10'000;
    const host::TemporaryFolder folder("mox-test-");
    std::vector<pid_t> children;
    for (const std::string name : {"A", "B"}) {
        children.push_back(startChild([&] {
            host::Machine machine(at(folder));
            for (int i = 0; i < settings; ++i) {
                const std::string number = std::to_string(i);
                if (save(machine.advapi32, "Software\\Both\\" + std::to_string(i % 10), name + number, name + number) !=
                    ERROR_SUCCESS) {
                    return 1;
                }
            }
            return 0;
        }));
    }
    for (const pid_t child : children) {
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
    }
    TestMachine machine(at(folder));
    int missing = 0;
    for (const std::string name : {"A", "B"}) {
        for (int i = 0; i < settings; ++i) {
            const std::string text = name + std::to_string(i);
            missing += textOf(user, "Software\\Both\\" + std::to_string(i % 10), text) != text;
        }
    }
    EXPECT_EQ(missing, 0);
    EXPECT_EQ(keysOf(user, "Software\\Both").size(), 10u);
}

TEST(RegistryProcessesTest, whatWasAnsweredSurvivesTheEndOfTheProcess) {
    for (int round = 0; round < 5; ++round) {
        const host::TemporaryFolder folder("mox-test-");
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = startChild([&] {
            close(pipe[0]);
            host::Machine machine(at(folder));
            for (int i = 0;; ++i) {
                if (save(machine.advapi32, "Software\\Killed", std::to_string(i), std::to_string(i)) != ERROR_SUCCESS ||
                    ::write(pipe[1], &i, sizeof i) != sizeof i) {
                    return 1;
                }
            }
        });
        close(pipe[1]);
        int last = -1;
        int number = 0;
        while (::read(pipe[0], &number, sizeof number) == sizeof number) {
            last = number;
            if (number == 100 + round * 37) {
                kill(child, SIGKILL);
            }
        }
        close(pipe[0]);
        int status = 0;
        waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status));
        ASSERT_GE(last, 100);
        TestMachine machine(at(folder));
        for (int i = 0; i <= last; ++i) {
            EXPECT_EQ(textOf(user, "Software\\Killed", std::to_string(i)), std::to_string(i));
        }
    }
}

TEST(RegistryProcessesTest, oneSeesWhatTheOtherChanges) {
    const host::TemporaryFolder folder("mox-test-");
    std::array<int, 2> toChild{};
    std::array<int, 2> fromChild{};
    ASSERT_EQ(pipe(toChild.data()), 0);
    ASSERT_EQ(pipe(fromChild.data()), 0);
    const pid_t child = startChild([&] {
        close(toChild[1]);
        host::Machine machine(at(folder));
        for (char letter = 0; ::read(toChild[0], &letter, 1) == 1;) {
            save(machine.advapi32, "Software\\Seen", "v", std::string(1, letter));
            if (::write(fromChild[1], &letter, 1) != 1) {
                return 1;
            }
        }
        return 0;
    });
    close(toChild[0]);
    TestMachine machine(at(folder));
    for (char letter = 'a'; letter <= 'z'; ++letter) {
        char answer = 0;
        ASSERT_EQ(::write(toChild[1], &letter, 1), 1);
        ASSERT_EQ(::read(fromChild[0], &answer, 1), 1);
        EXPECT_EQ(textOf(user, "Software\\Seen", "v"), std::string(1, letter));
        EXPECT_EQ(textOf(user, "Software\\Seen", "v"), std::string(1, letter));
    }
    close(toChild[1]);
    close(fromChild[0]);
    close(fromChild[1]);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
}

} // namespace

} // namespace mox::test
