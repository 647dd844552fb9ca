// shell32: what the desktop knows of files.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

#include <string>

namespace mox::platform {

// What SHFileOperationA does.
inline constexpr std::uint32_t FO_MOVE = 1;
inline constexpr std::uint32_t FO_COPY = 2;
inline constexpr std::uint32_t FO_DELETE = 3;
inline constexpr std::uint32_t FO_RENAME = 4;

// And how.
inline constexpr std::uint16_t FOF_MULTIDESTFILES = 0x1;
inline constexpr std::uint16_t FOF_CONFIRMMOUSE = 0x2;
inline constexpr std::uint16_t FOF_SILENT = 0x4;
inline constexpr std::uint16_t FOF_NOCONFIRMATION = 0x10;
inline constexpr std::uint16_t FOF_ALLOWUNDO = 0x40;
inline constexpr std::uint16_t FOF_NOCONFIRMMKDIR = 0x200;
inline constexpr std::uint16_t FOF_NOERRORUI = 0x400;

/// What is to be done with files and folders.
struct SHFILEOPSTRUCTA {
    Handle hwnd = 0;
    std::uint32_t wFunc = 0;
    /// Lists of paths, each with a NUL behind it, and one more NUL at the end of the list.
    std::string pFrom;
    std::string pTo;
    std::uint16_t fFlags = 0;
    /// Set if the user, or a question that nobody answered, ended the operation before it was done.
    bool fAnyOperationsAborted = false;
};

inline constexpr std::uint32_t SHGFI_LARGEICON = 0;
inline constexpr std::uint32_t SHGFI_SMALLICON = 0x1;
inline constexpr std::uint32_t SHGFI_OPENICON = 0x2;
inline constexpr std::uint32_t SHGFI_SHELLICONSIZE = 0x4;
inline constexpr std::uint32_t SHGFI_ICON = 0x100;
inline constexpr std::uint32_t SHGFI_DISPLAYNAME = 0x200;
inline constexpr std::uint32_t SHGFI_TYPENAME = 0x400;
inline constexpr std::uint32_t SHGFI_SYSICONINDEX = 0x4000;

/// What the shell shows of a file.
struct SHFILEINFOA {
    /// At most 259 bytes.
    std::string szDisplayName;
    /// At most 79 bytes.
    std::string szTypeName;
    /// An icon that the caller has to destroy.
    Handle hIcon = 0;
    /// Its index in the system's image list.
    std::int32_t iIcon = 0;
};

struct Shell32 : SystemLibrary {
    Shell32() : SystemLibrary("shell32") {}

    /// The program that opens a document, into `result` with a final NUL. The answer is above 32 on success.
    Operation<std::int32_t(std::string_view file, std::string_view folder, std::span<char> result)> FindExecutableA{
        *this, "FindExecutableA", 0};
    /// Space below a folder in bytes: available to the caller, in all, free.
    Operation<bool(std::string_view folder, std::uint64_t& available, std::uint64_t& total, std::uint64_t& free)>
        SHGetDiskFreeSpaceA{*this, "SHGetDiskFreeSpaceA", false};
    /// Copies, moves, renames or deletes files and whole folders, with wildcards in the last names of `pFrom`. 0 on success.
    Operation<std::int32_t(SHFILEOPSTRUCTA& operation)> SHFileOperationA{*this, "SHFileOperationA", 5};
    /// The fields that the flags name; those of `attributes` only matter where the file need not exist. With `SHGFI_SYSICONINDEX`
    /// the answer is the system's image list of the size that the flags name, which is shared, else 1. 0 on failure.
    Operation<std::uint32_t(std::string_view file, std::uint32_t attributes, SHFILEINFOA& info, std::uint32_t flags)>
        SHGetFileInfoA{*this, "SHGetFileInfoA", 0};
};

/// Of the present machine.
MOX_API Shell32& shell32();

} // namespace mox::platform
