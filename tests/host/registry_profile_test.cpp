#include "registry_support.h"
#include "support/testmachine.h"

namespace mox::test {

namespace {

using namespace platform;

constexpr std::string_view branch = "Software\\Microsoft\\Windows NT\\CurrentVersion\\";

class RegistryProfileTest : public testing::Test {
protected:
    RegistryProfileTest() {
        const std::string ports = std::string(branch) + "PrinterPorts";
        setValue(HKEY_CURRENT_USER, ports, "Laser", REG_SZ, std::string("winspool,Ne01:,15,45\0", 21));
        setValue(HKEY_CURRENT_USER, ports, "attic", REG_SZ, "winspool,Ne00:");
        setValue(HKEY_CURRENT_USER, ports, "Quoted", REG_SZ, "\" a b \"");
        setValue(HKEY_CURRENT_USER, ports, "a number", REG_DWORD, "1234");
        setValue(HKEY_CURRENT_USER, std::string(branch) + "Windows", "Device", REG_SZ, "Laser,winspool,Ne01:");
    }

    /// The answer, and the whole buffer.
    static std::pair<std::uint32_t, std::string> read(std::string_view section, const char* key, std::size_t size,
                                                      std::string_view otherwise = "") {
        std::string buffer(size, '#');
        const std::uint32_t length = kernel32().GetProfileStringA(section, key, otherwise, buffer);
        return {length, buffer};
    }

    TestMachine machine_;
};

TEST_F(RegistryProfileTest, textsOfASection) {
    using namespace std::string_literals;
    const struct {
        const char* section;
        const char* key;
        const char* otherwise;
        std::size_t size;
        std::uint32_t length;
        std::string buffer;
    } cases[] = {
        {"PrinterPorts", "Laser", "", 24, 20, "winspool,Ne01:,15,45\0###"s},
        {"PRINTERPORTS", "LASER", "x", 21, 20, "winspool,Ne01:,15,45\0"s},
        {"PrinterPorts", "Laser", "", 20, 19, "winspool,Ne01:,15,4\0"s},
        {"PrinterPorts", "Laser", "", 1, 0, "\0"s},
        {"PrinterPorts", "Laser", "", 0, 0, ""},
        {"PrinterPorts", "Quoted", "", 8, 5, " a b \0##"s},
        {"PrinterPorts", "None", "other  ", 8, 5, "other\0##"s},
        {"PrinterPorts", "a number", "other", 4, 3, "oth\0"s},
        {"None", "Laser", "", 2, 0, "\0#"s},
        {"..\\CurrentVersion\\PrinterPorts", "Laser", "", 2, 0, "\0#"s},
        {"windows", "device", "", 21, 20, "Laser,winspool,Ne01:\0"s},
    };
    for (const auto& [section, key, otherwise, size, length, buffer] : cases) {
        EXPECT_EQ(read(section, key, size, otherwise), std::pair(length, buffer)) << section << " " << key << " " << size;
    }
}

TEST_F(RegistryProfileTest, namesOfASection) {
    using namespace std::string_literals;
    const std::string all = "attic\0Laser\0Quoted\0"s;
    const struct {
        const char* section;
        std::size_t size;
        std::uint32_t length;
        std::string buffer;
    } cases[] = {
        {"PrinterPorts", 22, 19, all + "\0##"s},
        {"PrinterPorts", 20, 19, all + "\0"s},
        {"PrinterPorts", 19, 17, "attic\0Laser\0Quote\0\0"s},
        {"PrinterPorts", 3, 1, "a\0\0"s},
        {"PrinterPorts", 2, 0, "\0\0"s},
        {"PrinterPorts", 1, 0, "\0"s},
        {"PrinterPorts", 0, 0, ""},
        {"None", 3, 0, "\0##"s},
    };
    for (const auto& [section, size, length, buffer] : cases) {
        EXPECT_EQ(read(section, nullptr, size, "otherwise"), std::pair(length, buffer)) << section << " " << size;
    }
}

} // namespace

} // namespace mox::test
