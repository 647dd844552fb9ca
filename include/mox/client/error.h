// Failures of calls as exceptions.
#pragma once

#include <mox/values.h>

#include <cstdio>

namespace mox {

/// A call that failed. `number()` is the run-time error as Visual Basic clients see it.
class Error : public StatusError {
public:
    Error(HRESULT status, String description, String source)
        : StatusError(status), description_(std::move(description)), source_(std::move(source)), what_(description_.utf8()) {}

    /// The run-time error number: 5 invalid call, 6 overflow, 9 bad index, 13 type mismatch, 91 object not set, 438 unknown
    /// member, ...; the status itself where no number stands for it.
    Long number() const noexcept;
    const String& description() const noexcept { return description_; }
    /// Library and class that raised the error.
    const String& source() const noexcept { return source_; }
    const char* what() const noexcept override { return what_.c_str(); }

private:
    String description_;
    String source_;
    std::string what_;
};

inline Long Error::number() const noexcept {
    constexpr std::uint32_t runtimeErrors = 0x800A0000;
    if ((static_cast<std::uint32_t>(status()) & 0xFFFF0000) == runtimeErrors) {
        return status() & 0xFFFF;
    }
    switch (status()) {
    case DISP_E_OVERFLOW:
        return 6;
    case E_OUTOFMEMORY:
        return 7;
    case DISP_E_BADINDEX:
        return 9;
    case DISP_E_ARRAYISLOCKED:
        return 10;
    case DISP_E_DIVBYZERO:
        return 11;
    case DISP_E_TYPEMISMATCH:
    case DISP_E_BADVARTYPE:
        return 13;
    case E_INVALIDARG:
        return 5;
    case E_POINTER:
        return 91;
    case REGDB_E_CLASSNOTREG:
    case CO_E_CLASSSTRING:
        return 429;
    case E_NOINTERFACE:
        return 430;
    case DISP_E_MEMBERNOTFOUND:
    case DISP_E_UNKNOWNNAME:
        return 438;
    case DISP_E_NONAMEDARGS:
        return 446;
    case DISP_E_PARAMNOTFOUND:
        return 448;
    case DISP_E_PARAMNOTOPTIONAL:
        return 449;
    case DISP_E_BADPARAMCOUNT:
        return 450;
    default:
        return status();
    }
}

namespace client {

/// Throws the failure of a call on `object`, with the error object that it left, if `iid` is an interface that leaves one.
[[noreturn]] inline void raise(HRESULT status, IUnknown* object, REFIID iid) {
    String description;
    String source;
    Ref<IErrorInfo> error;
    const auto supports = Ref<IUnknown>(object).as<ISupportErrorInfo>();
    if (supports && supports->InterfaceSupportsErrorInfo(iid) == S_OK && GetErrorInfo(0, error.out()) == S_OK) {
        error->GetDescription(description.out());
        error->GetSource(source.out());
    }
    if (description.empty()) {
        char text[40];
        std::snprintf(text, sizeof text, "Automation error 0x%08X", static_cast<unsigned>(status));
        description = String::fromUtf8(text);
    }
    throw Error(status, std::move(description), std::move(source));
}

/// Throws for a failing status that no object explains.
inline void succeed(HRESULT status) {
    if (FAILED(status)) {
        raise(status, nullptr, IID_IUnknown);
    }
}

} // namespace client
} // namespace mox
