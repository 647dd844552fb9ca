#include "support/testservers.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace mox::test {

namespace {

/// What the other side wrote; empty after 20 seconds.
std::string readSome(int pipe) {
    constexpr int longest = 20000;
    pollfd readable{pipe, POLLIN, 0};
    char bytes[1024];
    if (poll(&readable, 1, longest) != 1) {
        return {};
    }
    const ssize_t count = read(pipe, bytes, sizeof bytes);
    return {bytes, count > 0 ? static_cast<std::size_t>(count) : 0};
}

} // namespace

Variable::Variable(const char* name, const std::string& value) : name_(name) {
    setenv(name, value.c_str(), 1);
}

Variable::~Variable() {
    unsetenv(name_);
}

Report::Report(const std::filesystem::path& folder) : path_(folder / "report"), variable_("MOX_TEST_REPORT", path_.string()) {
    EXPECT_EQ(mkfifo(path_.c_str(), 0600), 0);
    pipe_ = open(path_.c_str(), O_RDWR | O_CLOEXEC); // for writing too, so that opening does not wait
}

Report::~Report() {
    close(pipe_);
}

std::string Report::read() {
    std::string text;
    while (text.find("descriptors") == std::string::npos || !text.ends_with('\n')) {
        const std::string more = readSome(pipe_);
        if (more.empty()) {
            ADD_FAILURE() << "no report, but \"" << text << "\"";
            return text;
        }
        text += more;
    }
    return text;
}

HangingServer::HangingServer() {
    EXPECT_EQ(pipe2(goOn_, O_CLOEXEC), 0);
    EXPECT_EQ(pipe2(unloaded_, O_CLOEXEC), 0);
    setenv("MOX_TEST_GO_ON", std::to_string(goOn_[0]).c_str(), 1);
    setenv("MOX_TEST_UNLOADED", std::to_string(unloaded_[1]).c_str(), 1);
}

HangingServer::~HangingServer() {
    if (!isDone_ && isLoaded()) {
        letGo();
    }
    for (const int end : {goOn_[0], goOn_[1], unloaded_[0], unloaded_[1]}) {
        close(end);
    }
}

bool HangingServer::isLoaded() {
    void* const opened = dlopen(hangingServer.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (opened) {
        dlclose(opened);
    }
    return opened != nullptr;
}

void HangingServer::letGo() {
    isDone_ = true;
    EXPECT_EQ(write(goOn_[1], "g", 1), 1);
    EXPECT_EQ(readSome(unloaded_[0]), "u") << "the server stays loaded";
}

} // namespace mox::test
