// Servers and programs that tests load and start, and pipes to and from them.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace mox::test {

/// What tests load and start.
inline const std::filesystem::path plainServer = MOX_TEST_SERVER_PLAIN;
inline const std::filesystem::path registeringServer = MOX_TEST_SERVER_REGISTERING;
inline const std::filesystem::path hangingServer = MOX_TEST_SERVER_HANGING;
inline const std::filesystem::path reporterProgram = MOX_TEST_REPORTER;

/// An environment variable for as long as this lives.
class Variable {
public:
    Variable(const char* name, const std::string& value);
    ~Variable();
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* const name_;
};

/// What a program that tests start says of itself, through a named pipe in a folder.
class Report {
public:
    explicit Report(const std::filesystem::path& folder);
    ~Report();
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    /// Waits for the whole report of one program, which ends with its line on the process. Fails the test after 20 seconds.
    std::string read();

private:
    std::filesystem::path path_;
    Variable variable_;
    int pipe_;
};

/// The two pipes of the hanging server.
class HangingServer {
public:
    HangingServer();
    /// Ends the routine, if it was not ended before.
    ~HangingServer();
    HangingServer(const HangingServer&) = delete;
    HangingServer& operator=(const HangingServer&) = delete;

    static bool isLoaded();
    /// Lets the routine come to its end, and waits until the server is unloaded. Fails the test after 20 seconds.
    void letGo();

private:
    int goOn_[2]{};
    int unloaded_[2]{};
    bool isDone_ = false;
};

} // namespace mox::test
