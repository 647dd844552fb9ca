#include "support/testmachine.h"

#include "host/files/standardfolders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>

namespace mox::test {

namespace {

using namespace platform;

std::string expanded(const std::string& text) {
    std::string buffer(kernel32().ExpandEnvironmentStringsA(text, {}), '#');
    EXPECT_EQ(kernel32().ExpandEnvironmentStringsA(text, buffer), buffer.size()) << text;
    EXPECT_EQ(buffer.back(), '\0');
    buffer.pop_back();
    return buffer;
}

TEST(RegistryEnvironmentTest, replacesWhatItKnows) {
    setenv("MOX_TEST_VALUE", "Z\xC3\xBCrich", 1); // the environment is UTF-8
    setenv("MOX_TEST_EMPTY", "", 1);
    TestMachine machine;
    const std::string user = "C:\\Users\\" + host::nameOfUser();
    for (const auto& [text, expected] : std::initializer_list<std::pair<const char*, std::string>>{
             {"", ""},
             {"plain \xFC", "plain \xFC"},
             {"%MOX_TEST_VALUE%", "Z\xFCrich"},
             {"<%mox_test_VALUE%>", "<Z\xFCrich>"},
             {"%MOX_TEST_VALUE%%MOX_TEST_VALUE%", "Z\xFCrichZ\xFCrich"},
             {"a%MOX_TEST_EMPTY%b", "ab"},
             {"%NO SUCH NAME%", "%NO SUCH NAME%"},
             {"50% of %MOX_TEST_VALUE%", "50% of Z\xFCrich"},
             {"%%", "%%"},
             {"%", "%"},
             {"100%", "100%"},
             {"%SystemRoot%\\Fonts", "C:\\Windows\\Fonts"},
             {"%WINDIR%", "C:\\Windows"},
             {"%SystemDrive%", "C:"},
             {"%UserProfile%", user},
             {"%APPDATA%", user + "\\AppData\\Roaming"},
             {"%ProgramFiles%", "C:\\Program Files"},
             {"%UserName%", host::nameOfUser()},
             {"%OS%", "Windows_NT"},
         }) {
        EXPECT_EQ(expanded(text), expected) << text;
    }
    EXPECT_NE(expanded("%COMPUTERNAME%"), "%COMPUTERNAME%");
}

TEST(RegistryEnvironmentTest, foldersOfThisSystemGiveWayToThoseOfTheDrives) {
    setenv("TEMP", "/somewhere", 1);
    setenv("APPDATA", "D:\\Settings", 1);
    TestMachine machine;
    EXPECT_EQ(expanded("%TEMP% %APPDATA%"), "C:\\Temp D:\\Settings");
    unsetenv("TEMP");
    unsetenv("APPDATA");
}

TEST(RegistryEnvironmentTest, tellsWhatASmallBufferLacks) {
    TestMachine machine;
    std::string buffer(10, '#');
    EXPECT_EQ(kernel32().ExpandEnvironmentStringsA("%SystemRoot%", std::span(buffer).first(10)), 11u);
    EXPECT_EQ(buffer, "##########");
}

} // namespace

} // namespace mox::test
