// Run-time errors: what members raise, and how a failure reaches the client.
#pragma once

#include "automation/objects/export.h"
#include "automation/typelib/description.h"

#include <mox/values.h>

#include <exception>
#include <string_view>

namespace mox {

/// A run-time error by its number, with the standard text or one of its own. It reaches the client as the status 0x800A0000 +
/// number with an error object.
class MOX_API RuntimeError : public std::exception {
public:
    explicit RuntimeError(Long number) : number_(number) {}
    RuntimeError(Long number, String description) : number_(number), description_(std::move(description)) {}
    Long number() const noexcept { return number_; }
    /// The text that the client gets.
    std::u16string_view description() const noexcept;
    const char* what() const noexcept override { return "run-time error"; }

private:
    Long number_;
    String description_;
};

// The run-time errors that the library's own code raises or that its arithmetic runs into.
inline constexpr Long errInvalidCall = 5;
inline constexpr Long errOverflow = 6;
inline constexpr Long errOutOfMemory = 7;
inline constexpr Long errSubscript = 9;
inline constexpr Long errDivisionByZero = 11;
inline constexpr Long errTypeMismatch = 13;
inline constexpr Long errInternal = 51;
inline constexpr Long errObjectNotSet = 91;
inline constexpr Long errActionNotSupported = 445;

/// The standard text of a run-time error number.
MOX_API std::u16string_view textOfRuntimeError(Long number) noexcept;

/// Makes the exception that is being handled into a status and the thread's pending error object, whose source names the class.
MOX_API HRESULT reportCurrentException(const typelib::ClassDescription& source) noexcept;
/// Answers with a status that has no error object: none that is pending may seem to belong to it.
MOX_API HRESULT reportPlainStatus(HRESULT status) noexcept;

} // namespace mox
