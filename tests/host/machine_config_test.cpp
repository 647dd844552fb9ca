#include "host/machine/control.h"
#include "host/machine/machinefacts.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <optional>
#include <string>

namespace mox::test {

namespace {

using host::MachineConfig;
using host::WindowsVersion;
using nlohmann::json;

/// Sets an environment variable for a scope, or takes it away.
class Variable {
public:
    Variable(std::string name, const char* value) : name_(std::move(name)) {
        if (const char* present = std::getenv(name_.c_str())) {
            before_ = present;
        }
        set(value);
    }
    ~Variable() { set(before_ ? before_->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void set(const char* value) { value ? setenv(name_.c_str(), value, 1) : unsetenv(name_.c_str()); }

    std::string name_;
    std::optional<std::string> before_;
};

TEST(MachineConfigTest, findsItsHomeInTheEnvironment) {
    const std::string present = std::filesystem::current_path().string();
    const struct {
        const char* moxHome;
        const char* dataHome;
        const char* home;
        std::string expected;
    } cases[] = {
        {"/a", "/b", "/c", "/a"},
        {"a/b", "/b", "/c", present + "/a/b"},
        {nullptr, "/b", "/c", "/b/mox"},
        {"", "/b", "/c", "/b/mox"},
        {nullptr, nullptr, "/c", "/c/.local/share/mox"},
        {nullptr, "relative", "/c", "/c/.local/share/mox"},
    };
    for (const auto& [moxHome, dataHome, home, expected] : cases) {
        const Variable first("MOX_HOME", moxHome);
        const Variable second("XDG_DATA_HOME", dataHome);
        const Variable third("HOME", home);
        EXPECT_EQ(MachineConfig::fromEnvironment().home, expected);
    }
    const Variable first("MOX_HOME", nullptr);
    const Variable second("XDG_DATA_HOME", nullptr);
    const Variable third("HOME", nullptr);
    EXPECT_TRUE(MachineConfig::fromEnvironment().home.string().ends_with("/.local/share/mox")); // of the user database
}

TEST(MachineConfigTest, takesFacts) {
    MachineConfig config;
    config.home = "/before";
    host::applyFacts(config, json::object());
    EXPECT_EQ(config.home, "/before");
    EXPECT_EQ(config.codePage, 1252u);
    host::applyFacts(config,
                     json::parse(R"({"home": "/h", "codepage": 932, "drives": {"d": "/x", "E": "/y"}, "windows": [5, 1]})"));
    EXPECT_EQ(config.home, "/h");
    EXPECT_EQ(config.codePage, 932u);
    EXPECT_EQ(config.drives, (std::map<char, std::filesystem::path>{{'D', "/x"}, {'E', "/y"}}));
    host::applyFacts(config, json::parse(R"({"memory": false, "drives": {}})"));
    EXPECT_EQ(config.home, "/h");
    EXPECT_TRUE(config.drives.empty());
    EXPECT_EQ(config.windows.major, 5u);
    EXPECT_FALSE(config.productInfo);
    host::applyFacts(config, json::parse(R"({"product_info": 2882382797, "metrics": {"87": 1, "0": -5}})"));
    EXPECT_EQ(config.productInfo, 0xABCDABCDu);
    EXPECT_EQ(config.metrics, (std::map<std::int32_t, std::int32_t>{{0, -5}, {87, 1}}));
    EXPECT_FALSE(config.visualStyle);
    host::applyFacts(config, json::parse(R"({"visual_style": true})"));
    EXPECT_TRUE(config.visualStyle);
    host::applyFacts(config, json::parse(R"({"memory": true})"));
    EXPECT_EQ(config.home, "");
}

TEST(MachineConfigTest, takesVersionsThatEndEarly) {
    const auto show = [](const WindowsVersion& version) {
        return json{version.major,       version.minor,       version.build, version.platform,
                    version.serviceText, version.productType, version.suite}
            .dump();
    };
    const std::pair<const char*, const char*> cases[] = {
        {"[]", R"([6,1,7601,2,"Service Pack 1",1,0])"},
        {"[10]", R"([10,1,7601,2,"Service Pack 1",1,0])"},
        {"[5, 0, 2195]", R"([5,0,2195,2,"Service Pack 1",1,0])"},
        {R"([5, 1, 2600, 2, ""])", R"([5,1,2600,2,"",1,0])"},
        {R"([4, 10, 2222, 1, " A ", 0, 4294967295])", R"([4,10,2222,1," A ",0,4294967295])"},
    };
    for (const auto& [fact, expected] : cases) {
        MachineConfig config;
        host::applyFacts(config, {{"windows", json::parse(fact)}});
        EXPECT_EQ(show(config.windows), expected);
    }
}

TEST(MachineConfigTest, namesTheFactThatIsWrong) {
    const std::pair<const char*, const char*> cases[] = {
        {"[]", "facts: not an object"},
        {"null", "facts: not an object"},
        {R"({"Home": "/x"})", "unknown fact: Home"},
        {R"({"home": "/x", "colour": 1})", "unknown fact: colour"},
        {R"({"home": 1})", "fact home: not a string"},
        {R"({"home": null})", "fact home: not a string"},
        {R"({"home": ""})", "fact home: not a folder"},
        {R"({"home": "a\u0000b"})", "fact home: not a folder"},
        {R"({"memory": 1})", "fact memory: not true or false"},
        {R"({"memory": true, "home": "/x"})", "fact memory: a machine in memory has no home"},
        {R"({"codepage": "1252"})", "fact codepage: not a whole number of 32 bits"},
        {R"({"codepage": -1})", "fact codepage: not a whole number of 32 bits"},
        {R"({"codepage": 1252.0})", "fact codepage: not a whole number of 32 bits"},
        {R"({"codepage": 4294968548})", "fact codepage: not a whole number of 32 bits"},
        {R"({"codepage": 65001})", "fact codepage: not known: 65001"},
        {R"({"drives": ["D"]})", "fact drives: not an object"},
        {R"({"drives": {"D:": "/x"}})", "fact drives: no drive letter: D:"},
        {R"({"drives": {"": "/x"}})", "fact drives: no drive letter: "},
        {R"({"drives": {"1": "/x"}})", "fact drives: no drive letter: 1"},
        {R"({"drives": {"{": "/x"}})", "fact drives: no drive letter: {"},
        {R"({"drives": {"D": 1}})", "fact drives, D: not a string"},
        {R"({"drives": {"D": "/x", "E": ""}})", "fact drives, E: not a folder"},
        {R"({"windows": "7"})", "fact windows: not an array"},
        {R"({"windows": [6, "1"]})", "fact windows, minor: not a whole number of 32 bits"},
        {R"({"windows": [6, 1, 7601, 2, 1]})", "fact windows, service_text: not a string"},
        {R"({"windows": [6, 1, 7601, 2, "", 1, 0, 0]})", "fact windows: more than 7 elements"},
        {R"({"windows": [6, 1, 4294967296]})", "fact windows, build: not a whole number of 32 bits"},
        {R"({"visual_style": 1})", "fact visual_style: not true or false"},
        {R"({"product_info": "48"})", "fact product_info: not a whole number of 32 bits"},
        {R"({"metrics": [87]})", "fact metrics: not an object"},
        {R"({"metrics": {"": 1}})", "fact metrics: no number of a metric: "},
        {R"({"metrics": {"8x": 1}})", "fact metrics: no number of a metric: 8x"},
        {R"({"metrics": {"-1": 1}})", "fact metrics: no number of a metric: -1"},
        {R"({"metrics": {"87": 2147483648}})", "fact metrics, 87: not a whole number of 32 bits"},
        {R"({"metrics": {"87": true}})", "fact metrics, 87: not a whole number of 32 bits"},
    };
    for (const auto& [facts, expected] : cases) {
        MachineConfig config;
        config.home = "/before";
        try {
            host::applyFacts(config, json::parse(facts));
            ADD_FAILURE() << facts << " is taken";
        } catch (const host::ControlError& error) {
            EXPECT_STREQ(error.what(), expected);
            EXPECT_EQ(error.status(), E_INVALIDARG);
        }
        EXPECT_EQ(config.home, "/before"); // nothing is half taken
    }
}

} // namespace

} // namespace mox::test
