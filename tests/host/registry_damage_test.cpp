#include "registry_support.h"
#include "support/testmachine.h"

#include "host/machine/doctor.h"

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mox::test {

namespace {

using namespace platform;

constexpr HKEY user = HKEY_CURRENT_USER;

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write(const std::filesystem::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << content;
}

/// Runs `body` in a child process and gives its exit code.
template <class Body> int inChild(Body body) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(body());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

/// Keeps what is said on the error output from the test's own.
class ErrorOutput {
public:
    ErrorOutput() { testing::internal::CaptureStderr(); }
    ~ErrorOutput() {
        if (!isTaken_) {
            testing::internal::GetCapturedStderr();
        }
    }
    ErrorOutput(const ErrorOutput&) = delete;
    ErrorOutput& operator=(const ErrorOutput&) = delete;
    std::string take() {
        isTaken_ = true;
        return testing::internal::GetCapturedStderr();
    }

private:
    bool isTaken_ = false;
};

/// A home whose machine comes and goes.
class RegistryDamageTest : public testing::Test {
protected:
    void SetUp() override {
        static const std::string content = make();
        content_ = content;
        putInPlace(content_);
    }

    /// The file of a registry with some settings.
    std::string make() {
        start();
        for (int i = 0; i < 120; ++i) {
            EXPECT_EQ(setValue(user, "Settings\\" + std::to_string(i % 7), std::to_string(i), REG_SZ, std::string(50, 'x')),
                      ERROR_SUCCESS);
        }
        stop();
        return contentOf(file());
    }

    void start() {
        host::MachineConfig config;
        config.home = home();
        machine_ = std::make_unique<TestMachine>(config);
    }
    void stop() { machine_.reset(); }
    /// A home with nothing but this in the registry's file.
    void putInPlace(const std::string& content) {
        std::filesystem::remove_all(home());
        std::filesystem::create_directories(home());
        write(file(), content);
    }

    std::filesystem::path home() const { return folder_.path() / "home"; }
    std::filesystem::path file() const { return home() / "registry.sqlite"; }
    std::vector<std::filesystem::path> kept() const {
        std::vector<std::filesystem::path> files;
        for (const auto& entry : std::filesystem::directory_iterator(home())) {
            const std::string name = entry.path().filename();
            if (name.starts_with("registry.damaged-") && name.ends_with(".sqlite")) {
                files.push_back(entry.path());
            }
        }
        return files;
    }

    /// Uses all of the registry; what has been set has to be read again.
    void use() {
        setValue(user, "Used", "v", REG_SZ, "text"); // a key that is open when the damage is found is gone with its file
        textOf(user, "Used", "v");
        EXPECT_EQ(setValue(user, "Used", "v", REG_SZ, "text"), ERROR_SUCCESS);
        EXPECT_EQ(textOf(user, "Used", "v"), "text");
        HKEY key = 0;
        for (int i = 0; i < 120; ++i) {
            const std::string text = textOf(user, "Settings\\" + std::to_string(i % 7), std::to_string(i));
            EXPECT_LE(text.size(), 50u);
        }
        if (advapi32().RegOpenKeyExA(user, "Settings", KEY_READ, key) == ERROR_SUCCESS) {
            std::string name(256, '\0');
            std::uint32_t length = 0;
            for (std::uint32_t i = 0; advapi32().RegEnumKeyExA(key, i, name, length) == ERROR_SUCCESS; ++i) {
            }
            advapi32().RegCloseKey(key);
        }
        EXPECT_EQ(setValue(user, "Used", "v", REG_SZ, "text again"), ERROR_SUCCESS);
        EXPECT_EQ(textOf(user, "Used", "v"), "text again");
    }

    const host::TemporaryFolder folder_{"mox-test-"};
    std::unique_ptr<TestMachine> machine_;
    std::string content_;
};

TEST_F(RegistryDamageTest, aFileThatIsNoRegistryIsKept) {
    std::string otherTables = content_;
    const std::size_t name = otherTables.find("TABLE vals(");
    ASSERT_NE(name, std::string::npos);
    otherTables.replace(name + 6, 4, "valz");
    for (const std::string& content : {std::string("this is no database, but a letter"), std::string(5000, '\0'), otherTables}) {
        putInPlace(content);
        ErrorOutput output;
        start();
        use();
        const std::string said = output.take();
        const std::vector<std::filesystem::path> files = kept();
        ASSERT_EQ(files.size(), 1u);
        EXPECT_EQ(contentOf(files.front()), content);
        const std::string keptName = files.front().filename();
        EXPECT_NE(said.find(keptName), std::string::npos) << said;
        EXPECT_EQ(said.find("mox:"), said.rfind("mox:")) << said; // once
        const auto report = [&] {
            for (const host::ServiceReport& service : host::examine(machine_->machine())) {
                if (service.service == "registry") {
                    return service.text;
                }
            }
            return std::string();
        };
        EXPECT_NE(report().find(keptName), std::string::npos) << report();
        stop();
        start(); // another start knows it too
        EXPECT_NE(report().find(keptName), std::string::npos) << report();
        EXPECT_NE(textOf(HKEY_LOCAL_MACHINE, "SOFTWARE\\Microsoft\\Windows\\CurrentVersion", "ProductName"), "");
        EXPECT_EQ(kept().size(), 1u);
        stop();
    }
}

TEST_F(RegistryDamageTest, noKeptFileIsOverwritten) {
    for (int i = 0; i < 3; ++i) {
        write(file(), "damaged " + std::to_string(i));
        const ErrorOutput output;
        start();
        use();
        stop();
    }
    EXPECT_EQ(kept().size(), 3u);
}

TEST_F(RegistryDamageTest, theFileCutAnywhere) {
    const ErrorOutput output;
    for (std::size_t length = 0; length < content_.size(); length += length < 200 ? 20 : content_.size() / 25 + 13) {
        const std::string cut = content_.substr(0, length);
        putInPlace(cut);
        start();
        use();
        stop();
        ASSERT_LE(kept().size(), 1u) << length;
        if (!kept().empty()) {
            EXPECT_EQ(contentOf(kept().front()).size(), length);
        }
        ASSERT_FALSE(testing::Test::HasFailure()) << "cut at " << length;
    }
}

TEST_F(RegistryDamageTest, bytesThatAreWrong) {
    const ErrorOutput output;
    std::uint32_t random = 1;
    for (int round = 0; round < 40; ++round) {
        std::string wrong = content_;
        for (int i = 0; i < 1 + round % 8; ++i) {
            random = random * 1664525 + 1013904223;
            const std::size_t place =
                round % 2 == 0 ? random % wrong.size() : random / 7 % wrong.size() / 4096 * 4096 + random % 24;
            wrong[std::min(place, wrong.size() - 1)] ^= static_cast<char>(1 + random / 3 % 255);
        }
        putInPlace(wrong);
        start();
        if (setValue(user, "Used", "v", REG_SZ, "") != ERROR_ACCESS_DENIED) { // a wrong mark can forbid writing
            use();
        }
        stop();
        ASSERT_FALSE(testing::Test::HasFailure()) << "round " << round;
    }
}

TEST_F(RegistryDamageTest, aLogThatIsCutOrWrong) {
    // A process that ends without closing leaves its log.
    ASSERT_EQ(inChild([&] {
                  host::MachineConfig config;
                  config.home = home();
                  host::Machine machine(config);
                  HKEY key = 0;
                  machine.advapi32.RegCreateKeyA(user, "Settings\\1", key);
                  for (int i = 0; i < 20; ++i) {
                      machine.advapi32.RegSetValueExA(key, "logged", REG_SZ, std::to_string(i));
                  }
                  _exit(0);
                  return 0;
              }),
              0);
    const std::string log = contentOf(file().string() + "-wal");
    const std::string index = contentOf(file().string() + "-shm");
    ASSERT_GT(log.size(), 4096u);
    const ErrorOutput output;
    for (int round = 0; round < 24; ++round) {
        std::string wrong = log;
        const std::size_t place = log.size() * static_cast<std::size_t>(round / 2) / 12 + static_cast<std::size_t>(round);
        if (round % 2 == 0) {
            wrong.resize(place);
        } else {
            wrong[place] ^= 0x55;
        }
        putInPlace(content_);
        write(file().string() + "-wal", wrong);
        write(file().string() + "-shm", round % 3 == 0 ? std::string(index.size(), '\x77') : index);
        start();
        EXPECT_EQ(textOf(user, "Settings\\1", "1"), std::string(50, 'x')); // what was in the file before
        use();
        stop();
        EXPECT_TRUE(kept().empty()); // a log that ends early is no damage
        ASSERT_FALSE(testing::Test::HasFailure()) << "round " << round;
    }
}

TEST_F(RegistryDamageTest, damageWhileItIsInUse) {
    start();
    EXPECT_EQ(textOf(user, "Settings\\1", "1"), std::string(50, 'x'));
    const OpenKey key(user, "Settings\\1");
    {
        std::fstream stream(file(), std::ios::binary | std::ios::in | std::ios::out);
        for (std::size_t place = 0; place < content_.size(); place += 16) {
            stream.seekp(static_cast<std::streamoff>(place)).write("\xEE\xEE\xEE\xEE\xEE\xEE\xEE\xEE", 8);
        }
    }
    {
        const ErrorOutput output;
        host::MachineConfig config;
        config.home = home();
        TestMachine other(config);
        EXPECT_EQ(setValue(user, "Settings\\1", "new", REG_SZ, "by the other"), ERROR_SUCCESS);
    }
    // The first one finds the new file at its next look.
    EXPECT_EQ(textOf(user, "Settings\\1", "new"), "by the other");
    EXPECT_EQ(setValue(user, "Settings\\1", "mine", REG_SZ, "x"), ERROR_SUCCESS);
    std::uint32_t number = 0;
    EXPECT_EQ(advapi32().RegQueryValueExA(key, "1", number, {}, number), ERROR_KEY_DELETED);
    EXPECT_EQ(kept().size(), 1u);
}

TEST_F(RegistryDamageTest, aFullDiskIsAnErrorAndReplacesNothing) {
    const int result = inChild([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        host::MachineConfig config;
        config.home = home();
        const host::Machine machine(config);
        auto& advapi = const_cast<host::Machine&>(machine).advapi32;
        HKEY key = 0;
        if (advapi.RegCreateKeyA(user, "Full", key) != ERROR_SUCCESS ||
            advapi.RegSetValueExA(key, "before", REG_SZ, "x") != ERROR_SUCCESS) {
            return 1;
        }
        const rlim_t size = std::filesystem::file_size(file().string() + "-wal");
        const rlimit limit{size, size};
        setrlimit(RLIMIT_FSIZE, &limit);
        const std::int32_t status = advapi.RegSetValueExA(key, "v", REG_SZ, std::string(10'000, 'x'));
        if (status != ERROR_DISK_FULL && status != ERROR_WRITE_FAULT) {
            return 2;
        }
        std::uint32_t type = 0;
        std::uint32_t length = 0;
        return advapi.RegQueryValueExA(key, "before", type, {}, length) == ERROR_SUCCESS &&
                       advapi.RegQueryValueExA(key, "v", type, {}, length) == ERROR_FILE_NOT_FOUND
                   ? 0
                   : 3;
    });
    EXPECT_EQ(result, 0);
    start();
    EXPECT_EQ(textOf(user, "Full", "before"), "x");
    EXPECT_EQ(valueOf(user, "Full", "v"), std::nullopt);
    EXPECT_TRUE(kept().empty());
}

TEST_F(RegistryDamageTest, aHomeThatCannotBeUsedIsAnError) {
    std::filesystem::remove_all(home());
    write(home(), "a file where the folder would be");
    start();
    EXPECT_EQ(setValue(user, "Key", "v", REG_SZ, "x"), ERROR_ACCESS_DENIED);
    std::filesystem::remove(home());
    std::filesystem::create_directories(file()); // a folder where the file would be
    EXPECT_EQ(setValue(user, "Key", "v", REG_SZ, "x"), ERROR_ACCESS_DENIED);
    EXPECT_TRUE(kept().empty());
    std::filesystem::remove(file());
    EXPECT_EQ(setValue(user, "Key", "v", REG_SZ, "x"), ERROR_SUCCESS); // as soon as it can
}

TEST_F(RegistryDamageTest, aWriterThatHoldsTheFileForLongIsWaitedFor) {
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(file().c_str(), &other), SQLITE_OK);
    start();
    ASSERT_EQ(textOf(user, "Settings\\0", "0"), std::string(50, 'x'));
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(textOf(user, "Settings\\2", "2"), std::string(50, 'x')); // readers do not wait
    ASSERT_EQ(sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
    sqlite3_close(other);
    EXPECT_EQ(setValue(user, "Key", "v", REG_SZ, "x"), ERROR_SUCCESS);
}

TEST_F(RegistryDamageTest, aHomeThatIsRemovedIsMadeAgain) {
    start();
    EXPECT_EQ(textOf(user, "Settings\\0", "0"), std::string(50, 'x'));
    std::filesystem::remove_all(home());
    EXPECT_EQ(setValue(user, "Key", "v", REG_SZ, "x"), ERROR_SUCCESS);
    EXPECT_EQ(textOf(user, "Key", "v"), "x");
    EXPECT_EQ(textOf(user, "Settings\\0", "0"), "");
}

} // namespace

} // namespace mox::test
