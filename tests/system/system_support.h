// The system classes as clients reach them.
#pragma once

#include "support/bothways.h"
#include "support/print.h"
#include "support/testmachine.h"

#include "core/classes.h"

#include <mox/mox.h>

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace mox::test {

/// What an array holds, in the order of its elements.
template <class Element> std::vector<Element> elementsOf(const Array<Element>& array) {
    return {array.begin(), array.end()};
}

/// A machine whose registry tests look into from below.
class RegistryTest : public testing::Test {
protected:
    explicit RegistryTest(host::MachineConfig config = {}) : machine(std::move(config)) {}

    /// Stores a value below the current user.
    void store(std::string_view path, std::string_view name, std::uint32_t type, std::string_view data) {
        platform::HKEY key = 0;
        ASSERT_EQ(api.RegCreateKeyA(platform::HKEY_CURRENT_USER, path, key), 0);
        EXPECT_EQ(api.RegSetValueExA(key, name, type, data), 0);
        EXPECT_EQ(api.RegCloseKey(key), 0);
    }
    bool hasKey(std::string_view path, platform::HKEY root = platform::HKEY_CURRENT_USER) {
        platform::HKEY key = 0;
        const bool has = api.RegOpenKeyExA(root, path, platform::KEY_READ, key) == 0;
        if (has) {
            EXPECT_EQ(api.RegCloseKey(key), 0);
        }
        return has;
    }
    /// Type and bytes of a value below the current user: "1 text"; "-" if there is none.
    std::string stored(std::string_view path, std::string_view name, platform::HKEY root = platform::HKEY_CURRENT_USER) {
        platform::HKEY key = 0;
        if (api.RegOpenKeyExA(root, path, platform::KEY_READ, key) != 0) {
            return "-";
        }
        std::string data(1000, '\0');
        std::uint32_t type = 0;
        auto size = static_cast<std::uint32_t>(data.size());
        const bool has = api.RegQueryValueExA(key, name, type, data, size) == 0;
        EXPECT_EQ(api.RegCloseKey(key), 0);
        return has ? std::to_string(type) + " " + data.substr(0, size) : "-";
    }

    TestMachine machine;
    platform::Advapi32& api = machine->advapi32;
    moxRegistry registry{server::create<TRL_OBKR_MOX::_moxRegistry>()};
};

} // namespace mox::test
