// Prints dispatch calls as they happen, when the environment variable MOX_TRACE names "dispatch".
#pragma once

#include "automation/typelib/description.h"

#include <chrono>

namespace mox::typelib {

/// One call in the trace: written when it ends, with its arguments as they were given, its result and the time that it took.
/// Calls inside are indented.
class Trace {
public:
    Trace(const InterfaceDescription& type, const Member& member, const DISPPARAMS& parameters)
        : type_(type), member_(member), parameters_(parameters) {
        if (wanted()) [[unlikely]] {
            begin();
        }
    }
    void finish(HRESULT status, const EXCEPINFO* exception, const VARIANT* result) {
        if (active_) [[unlikely]] {
            end(status, exception, result);
        }
    }

private:
    static bool wanted();
    void begin() noexcept;
    void end(HRESULT status, const EXCEPINFO* exception, const VARIANT* result) noexcept;

    const InterfaceDescription& type_;
    const Member& member_;
    const DISPPARAMS& parameters_;
    std::chrono::steady_clock::time_point start_;
    bool active_ = false;
};

} // namespace mox::typelib
