// Programs that open files, on a desktop of the test's own: its MIME database, its applications, no display and no session bus.
#include "files_support.h"

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>

namespace mox::test {

namespace {

/// Environment variables for as long as it lives.
class Environment {
public:
    explicit Environment(const std::map<std::string, std::optional<std::string>>& variables) {
        for (const auto& [name, value] : variables) {
            const char* before = std::getenv(name.c_str());
            before_[name] = before ? std::optional<std::string>(before) : std::nullopt;
            set(name, value);
        }
    }
    ~Environment() {
        for (const auto& [name, value] : before_) {
            set(name, value);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    static void set(const std::string& name, const std::optional<std::string>& value) {
        if (value) {
            setenv(name.c_str(), value->c_str(), 1);
        } else {
            unsetenv(name.c_str());
        }
    }

    std::map<std::string, std::optional<std::string>> before_;
};

class FindExecutableTest : public FilesTest {
protected:
    // The desktop is read once for the whole process.
    static void SetUpTestSuite() {
        desktop_ = std::make_unique<host::TemporaryFolder>(testing::TempDir(), "mox-desktop-");
        const std::filesystem::path& root = desktop_->path();
        write("data/mime/globs2", "50:text/x-mox-note:*.note\n50:text/x-mox-list:*.list\n50:text/x-mox-orphan:*.orphan\n"
                                  "50:text/x-mox-gone:*.gone\n");
        write("data/applications/mimeinfo.cache", "[MIME "
                                                  "Cache]\ntext/x-mox-note=reader.desktop;writer.desktop;\ntext/"
                                                  "x-mox-list=lister.desktop;\ntext/x-mox-gone=gone.desktop;\n");
        writeApplication("reader", "reader %f");
        writeApplication("writer", "writer %f");
        writeApplication("lister", (root / "bin/a long name.sh").string());
        writeApplication("gone", "program-that-is-not-installed %f");
        write("config/mimeapps.list", "[Default Applications]\ntext/x-mox-note=writer.desktop;\n");
        for (const char* program : {"reader", "writer", "a long name.sh"}) {
            write(std::filesystem::path("bin") / program, "#!/bin/sh\n");
            std::filesystem::permissions(root / "bin" / program, std::filesystem::perms{0755});
        }
        environment_ = std::make_unique<Environment>(std::map<std::string, std::optional<std::string>>{
            {"XDG_DATA_HOME", root / "data"},
            {"XDG_DATA_DIRS", root / "none"},
            {"XDG_CONFIG_HOME", root / "config"},
            {"XDG_CONFIG_DIRS", root / "none"},
            {"PATH", (root / "bin").string()},
            {"DISPLAY", std::nullopt},
            {"WAYLAND_DISPLAY", std::nullopt},
            {"DBUS_SESSION_BUS_ADDRESS", "disabled:"},
        });
    }
    static void TearDownTestSuite() {
        environment_.reset();
        desktop_.reset();
    }

    /// The program, or the number of the failure.
    std::string programOf(std::string_view file, std::string_view folder = "") {
        std::string buffer(256, ' ');
        const std::int32_t answer = machine_->shell32.FindExecutableA(file, folder, buffer);
        if (answer <= 32) {
            EXPECT_EQ(buffer, '\0' + std::string(255, ' '));
            return std::to_string(answer);
        }
        const std::size_t end = buffer.find('\0');
        EXPECT_EQ(buffer.find_first_not_of(' ', end + 1), buffer.npos);
        return buffer.substr(0, end);
    }

    static std::string onDrive(std::string_view program) {
        std::string path = "Z:" + (desktop_->path() / "bin" / program).string();
        std::ranges::replace(path, '/', '\\');
        return path;
    }

private:
    static void write(const std::filesystem::path& name, std::string_view contents) {
        const std::filesystem::path path = desktop_->path() / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path) << contents;
    }
    static void writeApplication(const std::string& name, const std::string& command) {
        const std::string text =
            command.find(' ') == command.npos || command.ends_with("%f") ? command : "\"" + command + "\" %f";
        write("data/applications/" + name + ".desktop",
              "[Desktop Entry]\nType=Application\nName=" + name + "\nExec=" + text + "\n");
    }

    static inline std::unique_ptr<host::TemporaryFolder> desktop_;
    static inline std::unique_ptr<Environment> environment_;
};

TEST_F(FindExecutableTest, givesTheDefaultApplicationAsADrivePath) {
    makeFile("a.note");
    makeFile("folder/A.LIST", "x");
    makeFile("a.orphan");
    makeFile("a.gone");
    makeFile("a.unknown");
    makeFile("empty");
    struct {
        const char* file;
        std::string program;
    } const cases[] = {
        {"D:\\a.note", onDrive("writer")},
        {"D:\\A.NOTE", onDrive("writer")},
        {"D:\\folder\\a.list", onDrive("a long name.sh")},
        // No such file, no such folder.
        {"D:\\b.note", "2"},
        {"D:\\folder\\b.note", "2"},
        {"D:\\b\\a.note", "3"},
        {"Q:\\a.note", "3"},
        {"", "3"},
        // Nothing opens it: an application is missing, is not installed, or the type is unknown.
        {"D:\\a.orphan", "31"},
        {"D:\\a.gone", "31"},
        {"D:\\a.unknown", "31"},
        {"D:\\empty", "31"},
        {"D:\\folder", "31"},
    };
    for (const auto& [file, program] : cases) {
        EXPECT_EQ(programOf(file), program) << file;
    }
}

TEST_F(FindExecutableTest, continuesTheFolderThatIsGiven) {
    makeFile("folder/a.note");
    EXPECT_EQ(programOf("a.note", "D:\\folder"), onDrive("writer"));
    EXPECT_EQ(programOf("folder\\a.note", "D:\\"), onDrive("writer"));
    EXPECT_EQ(programOf("D:\\folder\\a.note", "D:\\missing"), onDrive("writer"));
    EXPECT_EQ(programOf("a.note", "D:\\missing"), "3");
}

TEST_F(FindExecutableTest, writesNoFurtherThanTheBuffer) {
    makeFile("a.note");
    const std::string program = onDrive("writer");
    std::string buffer(program.size(), 'x');
    EXPECT_EQ(machine_->shell32.FindExecutableA("D:\\a.note", "", buffer), 8);
    EXPECT_EQ(buffer, '\0' + std::string(program.size() - 1, 'x'));
    buffer += 'x';
    EXPECT_GT(machine_->shell32.FindExecutableA("D:\\a.note", "", buffer), 32);
    EXPECT_EQ(buffer, program + '\0');
    EXPECT_EQ(machine_->shell32.FindExecutableA("D:\\a.note", "", {}), 8);
}

} // namespace

} // namespace mox::test
