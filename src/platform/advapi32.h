// advapi32: the registry.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

#include <string>

namespace mox::platform {

/// An open key, or one of the predefined ones, which are always open.
using HKEY = Handle;
inline constexpr HKEY HKEY_CLASSES_ROOT = static_cast<HKEY>(0x80000000);
inline constexpr HKEY HKEY_CURRENT_USER = static_cast<HKEY>(0x80000001);
inline constexpr HKEY HKEY_LOCAL_MACHINE = static_cast<HKEY>(0x80000002);
inline constexpr HKEY HKEY_USERS = static_cast<HKEY>(0x80000003);
inline constexpr HKEY HKEY_PERFORMANCE_DATA = static_cast<HKEY>(0x80000004);
inline constexpr HKEY HKEY_CURRENT_CONFIG = static_cast<HKEY>(0x80000005);
inline constexpr HKEY HKEY_DYN_DATA = static_cast<HKEY>(0x80000006);

inline constexpr std::uint32_t KEY_QUERY_VALUE = 0x1;
inline constexpr std::uint32_t KEY_SET_VALUE = 0x2;
inline constexpr std::uint32_t KEY_ENUMERATE_SUB_KEYS = 0x8;
inline constexpr std::uint32_t KEY_READ = 0x20019;
inline constexpr std::uint32_t KEY_ALL_ACCESS = 0xF003F;

// Types of values.
inline constexpr std::uint32_t REG_NONE = 0;
inline constexpr std::uint32_t REG_SZ = 1;
inline constexpr std::uint32_t REG_EXPAND_SZ = 2;
inline constexpr std::uint32_t REG_BINARY = 3;
inline constexpr std::uint32_t REG_DWORD = 4;
inline constexpr std::uint32_t REG_DWORD_BIG_ENDIAN = 5;
inline constexpr std::uint32_t REG_LINK = 6;
inline constexpr std::uint32_t REG_MULTI_SZ = 7;
inline constexpr std::uint32_t REG_QWORD = 11;

// Answers.
inline constexpr std::int32_t ERROR_SUCCESS = 0;
inline constexpr std::int32_t ERROR_FILE_NOT_FOUND = 2;
inline constexpr std::int32_t ERROR_ACCESS_DENIED = 5;
inline constexpr std::int32_t ERROR_INVALID_HANDLE = 6;
inline constexpr std::int32_t ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr std::int32_t ERROR_WRITE_FAULT = 29;
inline constexpr std::int32_t ERROR_INVALID_PARAMETER = 87;
inline constexpr std::int32_t ERROR_DISK_FULL = 112;
inline constexpr std::int32_t ERROR_BUSY = 170;
inline constexpr std::int32_t ERROR_MORE_DATA = 234;
inline constexpr std::int32_t ERROR_NO_MORE_ITEMS = 259;
inline constexpr std::int32_t ERROR_BADDB = 1009;
inline constexpr std::int32_t ERROR_KEY_DELETED = 1018;

/// Paths of keys have backslashes; names of keys and values are found without regard to case. Each operation answers with
/// `ERROR_SUCCESS` or the reason of its failure.
struct Advapi32 : SystemLibrary {
    Advapi32() : SystemLibrary("advapi32") {}

    Operation<std::int32_t(HKEY key, std::string_view path, std::uint32_t access, HKEY& opened)> RegOpenKeyExA{
        *this, "RegOpenKeyExA", ERROR_ACCESS_DENIED};
    /// Opens a key for every access and makes it, with all that lead to it, if there is none. An empty path means `key` itself.
    Operation<std::int32_t(HKEY key, std::string_view path, HKEY& opened)> RegCreateKeyA{*this, "RegCreateKeyA",
                                                                                         ERROR_ACCESS_DENIED};
    Operation<std::int32_t(HKEY key)> RegCloseKey{*this, "RegCloseKey", ERROR_INVALID_HANDLE, givesBack};

    /// Type and bytes of a value; the empty name is the key's default value. `size` comes back as the size of the value. An empty
    /// buffer asks for type and size alone; `ERROR_MORE_DATA` if a buffer is too small.
    Operation<std::int32_t(HKEY key, std::string_view name, std::uint32_t& type, std::span<char> data, std::uint32_t& size)>
        RegQueryValueExA{*this, "RegQueryValueExA", ERROR_ACCESS_DENIED};
    /// Text is given as bytes of the code page; whether a final NUL is among them is the caller's choice. When it answers with
    /// success the value is on disk.
    Operation<std::int32_t(HKEY key, std::string_view name, std::uint32_t type, std::string_view data)> RegSetValueExA{
        *this, "RegSetValueExA", ERROR_ACCESS_DENIED};
    Operation<std::int32_t(HKEY key, std::string_view name)> RegDeleteValueA{*this, "RegDeleteValueA", ERROR_ACCESS_DENIED};

    /// The name of the subkey with that number, with a final NUL, and its length without it. `ERROR_NO_MORE_ITEMS` at the end,
    /// `ERROR_MORE_DATA` if the buffer is too small.
    Operation<std::int32_t(HKEY key, std::uint32_t index, std::span<char> name, std::uint32_t& length)> RegEnumKeyExA{
        *this, "RegEnumKeyExA", ERROR_ACCESS_DENIED};
    /// Deletes a subkey with its values; the empty path means `key` itself. Systems of the line of Windows NT refuse a key that
    /// has subkeys, the others delete them with it.
    Operation<std::int32_t(HKEY key, std::string_view path)> RegDeleteKeyA{*this, "RegDeleteKeyA", ERROR_ACCESS_DENIED};
};

/// Of the present machine.
MOX_API Advapi32& advapi32();

} // namespace mox::platform
