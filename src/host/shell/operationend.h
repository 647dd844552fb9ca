// How a file operation of the shell ends before its time.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace mox::host {

// Answers of SHFileOperationA: the system's error numbers and the shell's own.
inline constexpr std::int32_t fileNotFoundError = 2;
inline constexpr std::int32_t pathNotFoundError = 3;
inline constexpr std::int32_t notSupportedError = 50;
inline constexpr std::int32_t invalidParameterError = 87;
inline constexpr std::int32_t alreadyExistsError = 183;
inline constexpr std::int32_t cancelledError = 1223;
inline constexpr std::int32_t sameFileError = 0x71;
inline constexpr std::int32_t manySourcesError = 0x72;
inline constexpr std::int32_t otherFolderError = 0x73;
inline constexpr std::int32_t driveRootError = 0x74;
inline constexpr std::int32_t intoItselfError = 0x76;
inline constexpr std::int32_t manyTargetsError = 0x7A;
inline constexpr std::int32_t invalidPathError = 0x7C;
inline constexpr std::int32_t folderOntoFileError = 0x7E;
inline constexpr std::int32_t fileOntoFolderError = 0x80;

/// Thrown where an operation cannot or shall not go on. What was done before stays done.
class OperationEnd : public std::runtime_error {
public:
    /// `path`: what it happened to.
    OperationEnd(std::int32_t code, const std::string& path) : std::runtime_error(path), code_(code) {}
    std::int32_t code() const noexcept { return code_; }
    bool isCancelled() const noexcept { return code_ == cancelledError; }

private:
    std::int32_t code_;
};

/// The system's error number for an `errno`.
std::int32_t errorOfErrno(int error) noexcept;

/// Ends the operation with the present `errno`.
[[noreturn]] void endWithErrno(const std::string& path);

} // namespace mox::host
