// user32: messages, timers, message boxes.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

namespace mox::platform {

inline constexpr std::uint32_t MB_OK = 0x0;
inline constexpr std::uint32_t MB_ICONINFORMATION = 0x40;
inline constexpr std::int32_t IDOK = 1;
inline constexpr std::int32_t IDCANCEL = 2;

inline constexpr std::uint32_t MB_YESNO = 0x4;
inline constexpr std::uint32_t MB_ICONQUESTION = 0x20;
inline constexpr std::int32_t IDYES = 6;
inline constexpr std::int32_t IDNO = 7;

// Metrics of the system.
inline constexpr std::int32_t SM_CLEANBOOT = 67;
inline constexpr std::int32_t SM_MEDIACENTER = 87;
inline constexpr std::int32_t SM_SERVERR2 = 89;

/// Called when a timer is due, with its number and the time stamp of the message in milliseconds.
using TimerProcedure = std::function<void(std::uint32_t timer, std::uint32_t time)>;

struct User32 : SystemLibrary {
    User32() : SystemLibrary("user32") {}

    /// Shows a message and waits for the answer. A machine without anybody to ask answers at once with IDCANCEL, or IDOK where
    /// there is no choice.
    Operation<std::int32_t(Handle owner, std::string_view text, std::string_view caption, std::uint32_t style)> MessageBoxA{
        *this, "MessageBoxA", 0};

    /// A size or setting of the system by its `SM_` number; 0 for one that is not known.
    Operation<std::int32_t(std::int32_t index)> GetSystemMetrics{*this, "GetSystemMetrics", 0};

    /// A timer of the calling thread; `procedure` runs from its message loop every `milliseconds`. The number is unique among the
    /// running timers of the thread; 0 on failure.
    Operation<std::uint32_t(Handle window, std::uint32_t id, std::uint32_t milliseconds, TimerProcedure procedure)> SetTimer{
        *this, "SetTimer", 0};
    Operation<bool(Handle window, std::uint32_t timer)> KillTimer{*this, "KillTimer", false};
};

/// Of the present machine.
MOX_API User32& user32();

} // namespace mox::platform
