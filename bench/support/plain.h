// A member behind a virtual table, and nothing else: what calls are measured against.
#pragma once

#include <cstdint>
#include <memory>

namespace mox::bench {

class Plain {
public:
    virtual ~Plain() = default;
    virtual std::int32_t get(std::int32_t* result) = 0;
};

/// Made where the compiler of the caller does not see it, so that the call stays a virtual one.
std::unique_ptr<Plain> makePlain();

} // namespace mox::bench
