// Run-time errors of Visual Basic by their numbers, as far as statements on files raise them.
#pragma once

#include <cstdint>

namespace mox::host {

inline constexpr std::int32_t badFileName = 52; // or number
inline constexpr std::int32_t fileNotFound = 53;
inline constexpr std::int32_t badFileMode = 54;
inline constexpr std::int32_t fileAlreadyOpen = 55;
inline constexpr std::int32_t deviceIoError = 57;
inline constexpr std::int32_t diskFull = 61;
inline constexpr std::int32_t inputPastEnd = 62;
inline constexpr std::int32_t badRecordNumber = 63;
inline constexpr std::int32_t tooManyFiles = 67;
inline constexpr std::int32_t deviceUnavailable = 68;
inline constexpr std::int32_t permissionDenied = 70;
inline constexpr std::int32_t pathFileAccessError = 75;
inline constexpr std::int32_t pathNotFound = 76;

/// The run-time error for an error number of the system; 0 for 0.
std::int32_t runtimeErrorOf(int systemError) noexcept;

} // namespace mox::host
