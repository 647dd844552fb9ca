// How the value types say that an operation failed.
#pragma once

#include <mox/abi/basetypes.h>

#include <exception>

namespace mox {

/// A failing status of the Automation layer as an exception.
class StatusError : public std::exception {
public:
    explicit StatusError(HRESULT status) noexcept : status_(status) {}
    HRESULT status() const noexcept { return status_; }
    const char* what() const noexcept override { return "an Automation operation failed"; }

private:
    HRESULT status_;
};

/// Throws `StatusError` for a failing status.
inline void succeed(HRESULT status) {
    if (FAILED(status)) {
        throw StatusError(status);
    }
}

} // namespace mox
