// kernel32: files, processes, text.
#pragma once

#include "platform/finddata.h"
#include "platform/operation.h"
#include "platform/types.h"

#include <mox/abi/variant.h>

#include <string>

namespace mox::platform {

// File attributes.
inline constexpr std::uint32_t FILE_ATTRIBUTE_READONLY = 0x1;
inline constexpr std::uint32_t FILE_ATTRIBUTE_HIDDEN = 0x2;
inline constexpr std::uint32_t FILE_ATTRIBUTE_SYSTEM = 0x4;
inline constexpr std::uint32_t FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr std::uint32_t FILE_ATTRIBUTE_ARCHIVE = 0x20;
inline constexpr std::uint32_t FILE_ATTRIBUTE_NORMAL = 0x80;
inline constexpr std::uint32_t FILE_ATTRIBUTE_TEMPORARY = 0x100;
inline constexpr std::uint32_t FILE_ATTRIBUTE_REPARSE_POINT = 0x400;
inline constexpr std::uint32_t INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;

// Kinds of drives.
inline constexpr std::uint32_t DRIVE_UNKNOWN = 0;
inline constexpr std::uint32_t DRIVE_NO_ROOT_DIR = 1;
inline constexpr std::uint32_t DRIVE_REMOVABLE = 2;
inline constexpr std::uint32_t DRIVE_FIXED = 3;
inline constexpr std::uint32_t DRIVE_REMOTE = 4;
inline constexpr std::uint32_t DRIVE_CDROM = 5;
inline constexpr std::uint32_t DRIVE_RAMDISK = 6;

inline constexpr std::uint32_t TH32CS_SNAPPROCESS = 0x2;
inline constexpr std::uint32_t PROCESS_VM_READ = 0x10;
inline constexpr std::uint32_t PROCESS_QUERY_INFORMATION = 0x400;

inline constexpr std::uint32_t CP_ACP = 0;

// How a file is opened.
inline constexpr std::uint32_t GENERIC_READ = 0x80000000;
inline constexpr std::uint32_t GENERIC_WRITE = 0x40000000;
inline constexpr std::uint32_t FILE_SHARE_READ = 0x1;
inline constexpr std::uint32_t FILE_SHARE_WRITE = 0x2;
inline constexpr std::uint32_t FILE_SHARE_DELETE = 0x4;
inline constexpr std::uint32_t CREATE_NEW = 1;
inline constexpr std::uint32_t CREATE_ALWAYS = 2;
inline constexpr std::uint32_t OPEN_EXISTING = 3;
inline constexpr std::uint32_t OPEN_ALWAYS = 4;
inline constexpr std::uint32_t INVALID_FILE_SIZE = 0xFFFFFFFF;

// How a wait ended.
inline constexpr std::uint32_t WAIT_OBJECT_0 = 0;
inline constexpr std::uint32_t WAIT_TIMEOUT = 258;
inline constexpr std::uint32_t WAIT_FAILED = 0xFFFFFFFF;
inline constexpr std::uint32_t STILL_ACTIVE = 259;

/// One process of a snapshot.
struct PROCESSENTRY32 {
    std::uint32_t dwSize = 0;
    std::uint32_t th32ProcessID = 0;
    std::uint32_t th32ParentProcessID = 0;
    /// The bytes of the field of 260 bytes up to its NUL; all of them if it has none.
    std::string szExeFile;
};

using ::SYSTEMTIME;

/// What system this is. Of the short record only the fields up to the service text are filled.
struct OSVERSIONINFOEXA {
    /// 156 asks for the extended record, 148 for the short one.
    std::uint32_t dwOSVersionInfoSize = 0;
    std::uint32_t dwMajorVersion = 0;
    std::uint32_t dwMinorVersion = 0;
    std::uint32_t dwBuildNumber = 0;
    std::uint32_t dwPlatformId = 0;
    /// The bytes of the field of 128 bytes up to its NUL; all of them if it has none.
    std::string szCSDVersion;
    std::uint16_t wServicePackMajor = 0;
    std::uint16_t wServicePackMinor = 0;
    std::uint16_t wSuiteMask = 0;
    std::uint8_t wProductType = 0;
};

/// A routine of a loaded library, called without arguments.
using Procedure = std::int32_t (*)();

struct Kernel32 : SystemLibrary {
    Kernel32() : SystemLibrary("kernel32") {}

    /// Begins a search for names that match the last part of `pattern` (`*` and `?`). `invalidHandle` if nothing matches.
    Operation<Handle(std::string_view pattern, WIN32_FIND_DATAA& found)> FindFirstFileA{*this, "FindFirstFileA", invalidHandle};
    Operation<bool(Handle search, WIN32_FIND_DATAA& found)> FindNextFileA{*this, "FindNextFileA", false};
    Operation<bool(Handle search)> FindClose{*this, "FindClose", false, givesBack};

    /// The path with every part in its short form. Gives the length without the final NUL when `buffer` holds text and NUL, else
    /// the length that is needed with the NUL; 0 on failure.
    Operation<std::uint32_t(std::string_view path, std::span<char> buffer)> GetShortPathNameA{*this, "GetShortPathNameA", 0};
    /// The folder for temporary files, with a backslash at its end; lengths as for GetShortPathNameA.
    Operation<std::uint32_t(std::span<char> buffer)> GetTempPathA{*this, "GetTempPathA", 0};

    Operation<std::uint32_t(std::string_view path)> GetFileAttributesA{*this, "GetFileAttributesA", INVALID_FILE_ATTRIBUTES};
    Operation<bool(std::string_view path, std::uint32_t attributes)> SetFileAttributesA{*this, "SetFileAttributesA", false};

    /// Opens a file with `GENERIC_` access; what others may do with it meanwhile says `share`. `invalidHandle` on failure.
    Operation<Handle(std::string_view path, std::uint32_t access, std::uint32_t share, std::uint32_t disposition)> CreateFileA{
        *this, "CreateFileA", invalidHandle};
    /// The low 32 bits of a file's size, the high ones in `high`. `INVALID_FILE_SIZE` on failure.
    Operation<std::uint32_t(Handle file, std::uint32_t& high)> GetFileSize{*this, "GetFileSize", INVALID_FILE_SIZE};
    /// Sets the times of a file that is open for writing, in 100 nanoseconds since 1601-01-01 UTC.
    Operation<bool(Handle file, std::uint64_t created, std::uint64_t accessed, std::uint64_t written)> SetFileTime{
        *this, "SetFileTime", false};
    /// Copies a file with its attributes and the time of its last change. A copy that fails on the way leaves nothing behind.
    Operation<bool(std::string_view from, std::string_view to, bool failIfExists)> CopyFileA{*this, "CopyFileA", false};
    /// Moves a file, also to another drive, or a folder on its drive. Fails if there is something of the new name.
    Operation<bool(std::string_view from, std::string_view to)> MoveFileA{*this, "MoveFileA", false};

    // Times in 100 nanoseconds since 1601-01-01; false for one beyond what the other side holds.
    Operation<bool(std::uint64_t time, std::uint64_t& local)> FileTimeToLocalFileTime{*this, "FileTimeToLocalFileTime", false};
    Operation<bool(std::uint64_t local, std::uint64_t& time)> LocalFileTimeToFileTime{*this, "LocalFileTimeToFileTime", false};
    Operation<bool(const SYSTEMTIME& calendar, std::uint64_t& time)> SystemTimeToFileTime{*this, "SystemTimeToFileTime", false};

    // Folders of the system, without a backslash at the end; lengths as for GetShortPathNameA.
    Operation<std::uint32_t(std::span<char> buffer)> GetWindowsDirectoryA{*this, "GetWindowsDirectoryA", 0};
    Operation<std::uint32_t(std::span<char> buffer)> GetSystemDirectoryA{*this, "GetSystemDirectoryA", 0};

    Operation<std::uint32_t(std::string_view root)> GetDriveTypeA{*this, "GetDriveTypeA", DRIVE_UNKNOWN};
    Operation<bool(std::string_view root, std::uint32_t& sectorsPerCluster, std::uint32_t& bytesPerSector,
                   std::uint32_t& freeClusters, std::uint32_t& clusters)>
        GetDiskFreeSpaceA{*this, "GetDiskFreeSpaceA", false};

    Operation<std::uint32_t()> GetCurrentProcessId{*this, "GetCurrentProcessId", 0};
    /// A snapshot of what `flags` names; here always processes. `invalidHandle` on failure.
    Operation<Handle(std::uint32_t flags, std::uint32_t process)> CreateToolhelp32Snapshot{*this, "CreateToolhelp32Snapshot",
                                                                                           invalidHandle};
    /// False at the end, or if `dwSize` is not the size of the record, 296.
    Operation<bool(Handle snapshot, PROCESSENTRY32& entry)> Process32First{*this, "Process32First", false};
    Operation<bool(Handle snapshot, PROCESSENTRY32& entry)> Process32Next{*this, "Process32Next", false};
    Operation<Handle(std::uint32_t access, bool inherit, std::uint32_t process)> OpenProcess{*this, "OpenProcess", 0};
    Operation<bool(Handle handle)> CloseHandle{*this, "CloseHandle", false, givesBack};

    /// Loads a library file into this process; 0 on failure. Each handle has to be given back.
    Operation<Handle(std::string_view file)> LoadLibraryA{*this, "LoadLibraryA", 0};
    Operation<bool(Handle library)> FreeLibrary{*this, "FreeLibrary", false, givesBack};
    /// A routine that a loaded library exports, null if it has none of that name.
    Operation<Procedure(Handle library, std::string_view name)> GetProcAddress{*this, "GetProcAddress", nullptr};
    /// Runs a routine on a thread of its own; its result becomes the exit code. 0 on failure. Closing the handle does not end the
    /// thread; the library of the routine stays loaded while it runs.
    Operation<Handle(Procedure routine)> CreateThread{*this, "CreateThread", 0};
    /// Waits until a thread or a process has ended: `WAIT_OBJECT_0`, `WAIT_TIMEOUT` or `WAIT_FAILED`.
    Operation<std::uint32_t(Handle handle, std::uint32_t milliseconds)> WaitForSingleObject{*this, "WaitForSingleObject",
                                                                                            WAIT_FAILED};
    /// The exit code of a thread, `STILL_ACTIVE` as long as it runs.
    Operation<bool(Handle thread, std::uint32_t& code)> GetExitCodeThread{*this, "GetExitCodeThread", false};

    /// False for a record of another size than the two known ones.
    Operation<bool(OSVERSIONINFOEXA& version)> GetVersionExA{*this, "GetVersionExA", false};
    /// The product type of the edition (`PRODUCT_` number) into `type`; fails on systems before version 6.0.
    Operation<bool(std::uint32_t major, std::uint32_t minor, std::uint32_t servicePackMajor, std::uint32_t servicePackMinor,
                   std::uint32_t& type)>
        GetProductInfo{*this, "GetProductInfo", false};

    /// The text with each `%NAME%` replaced by the variable of the environment; one that does not exist stays as it is written.
    /// Gives the length with the final NUL, also when the buffer is too small for it; 0 on failure.
    Operation<std::uint32_t(std::string_view text, std::span<char> buffer)> ExpandEnvironmentStringsA{
        *this, "ExpandEnvironmentStringsA", 0};
    /// A text of the user's profile into `buffer`, cut to what fits with a final NUL. A null `key` asks for the names of all keys
    /// of the section, each with a NUL behind it and one more at the end. Gives the number of bytes in front of the final NUL.
    Operation<std::uint32_t(std::string_view section, const char* key, std::string_view otherwise, std::span<char> buffer)>
        GetProfileStringA{*this, "GetProfileStringA", 0};

    /// Milliseconds since the system started, modulo 2 to the power 32.
    Operation<std::uint32_t()> GetTickCount{*this, "GetTickCount", 0};

    /// Text to bytes of a code page and back; characters that the other side lacks become its replacement character. The answer
    /// is the number of units that were written, or that are needed if the buffer is empty; 0 if the buffer is too small or the
    /// code page unknown.
    Operation<std::int32_t(std::uint32_t codePage, std::u16string_view text, std::span<char> bytes)> WideCharToMultiByte{
        *this, "WideCharToMultiByte", 0};
    Operation<std::int32_t(std::uint32_t codePage, std::string_view bytes, std::span<char16_t> text)> MultiByteToWideChar{
        *this, "MultiByteToWideChar", 0};
};

/// Of the present machine.
MOX_API Kernel32& kernel32();

} // namespace mox::platform
