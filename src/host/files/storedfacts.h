// What the disk keeps of a file beyond what the system itself knows of files.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace mox::host {

/// The extended attribute `user.DOSATTRIB`: the attribute bits in hexadecimal with `0x` in front, and after a blank the time of
/// creation in the same form, in 100 nanoseconds since 1601-01-01 UTC. The time may be missing; what follows is left alone by
/// readers.
struct StoredFacts {
    static constexpr char attributeName[] = "user.DOSATTRIB";

    std::optional<std::uint32_t> attributes;
    std::optional<std::uint64_t> created;

    static StoredFacts parse(std::string_view text);
    std::string text() const;

    /// Nothing in it for a file that has none.
    static StoredFacts read(const std::string& path);
    static StoredFacts read(int file);
    /// Without attributes nothing is written. False, with the reason in `errno`, if the disk does not take it.
    bool write(const std::string& path) const;
    bool write(int file) const;
};

} // namespace mox::host
