// kernel32: files, processes, text.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

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

/// One found file. Times are in 100 nanoseconds since 1601-01-01 UTC.
struct WIN32_FIND_DATAA {
    std::uint32_t dwFileAttributes = 0;
    std::uint64_t ftCreationTime = 0;
    std::uint64_t ftLastAccessTime = 0;
    std::uint64_t ftLastWriteTime = 0;
    std::uint64_t nFileSize = 0;
    /// A name that the code page does not hold appears as its short name.
    std::string cFileName;
};

/// One process of a snapshot.
struct PROCESSENTRY32 {
    std::uint32_t dwSize = 0;
    std::uint32_t th32ProcessID = 0;
    std::uint32_t th32ParentProcessID = 0;
    /// The bytes of the field of 260 bytes up to its NUL; all of them if it has none.
    std::string szExeFile;
};

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
