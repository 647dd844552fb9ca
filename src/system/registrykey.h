// An open key of the registry.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include "platform/advapi32.h"

#include <mox/values.h>

#include <utility>

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Closes its key at its end; errors of the closing do not count.
class RegistryKey {
public:
    /// An existing key, for reading. Empty if it cannot be opened.
    static RegistryKey open(REG_ROOTKEY root, const String& path);
    /// A key for every access, made with all that lead to it if there is none. Empty on failure.
    static RegistryKey create(REG_ROOTKEY root, const String& path);

    RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, 0)) {}
    RegistryKey& operator=(RegistryKey&&) = delete;
    ~RegistryKey();

    explicit operator bool() const noexcept { return key_ != 0; }
    platform::HKEY handle() const noexcept { return key_; }

private:
    explicit RegistryKey(platform::HKEY key) : key_(key) {}

    platform::HKEY key_;
};

} // namespace mox::server
