// The basic types, status codes and identifiers of the Automation binary interface.
//
// Names, sizes and numbers are the standard ones: `LONG` and `HRESULT` have 32 bits on every machine,
// `OLECHAR` is a 16-bit UTF-16 code unit, a `BSTR` points at its first character and carries its length in
// bytes in the four bytes before it.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>

using BYTE = std::uint8_t;
using CHAR = std::int8_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using WORD = std::uint16_t;
using INT = std::int32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using DWORD = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using FLOAT = float;
using DOUBLE = double;
using BOOL = std::int32_t;
using PVOID = void*;
using HRESULT = std::int32_t;
using SCODE = std::int32_t;
using LCID = std::uint32_t;
using OLECHAR = char16_t;
using LPOLESTR = OLECHAR*;
using LPCOLESTR = const OLECHAR*;
using BSTR = OLECHAR*;
using VARTYPE = std::uint16_t;
using VARIANT_BOOL = std::int16_t;
using DATE = double;
using DISPID = std::int32_t;
using MEMBERID = DISPID;
using HREFTYPE = std::uint32_t;

inline constexpr VARIANT_BOOL VARIANT_TRUE = -1;
inline constexpr VARIANT_BOOL VARIANT_FALSE = 0;

/// A 128-bit identifier of a class, an interface, a library or a record.
struct GUID {
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];

    friend constexpr bool operator==(const GUID&, const GUID&) = default;
    friend constexpr auto operator<=>(const GUID&, const GUID&) = default;
};
using IID = GUID;
using CLSID = GUID;
using REFGUID = const GUID&;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline constexpr GUID GUID_NULL{};

/// A fixed-point number: a 64-bit count of ten-thousandths.
union CY {
    struct {
        ULONG Lo;
        LONG Hi;
    };
    LONGLONG int64;
};

/// A decimal number of 96 bits with a power of ten from 0 to 28. It overlays a whole `VARIANT`.
struct DECIMAL {
    USHORT wReserved;
    BYTE scale;
    BYTE sign;
    ULONG Hi32;
    ULONG Lo32;
    ULONG Mid32;
};

// Status codes: the sign bit tells failure.
constexpr HRESULT makeStatus(std::uint32_t bits) {
    return static_cast<HRESULT>(bits);
}
constexpr bool SUCCEEDED(HRESULT status) {
    return status >= 0;
}
constexpr bool FAILED(HRESULT status) {
    return status < 0;
}

inline constexpr HRESULT S_OK = 0;
inline constexpr HRESULT S_FALSE = 1;
inline constexpr HRESULT E_NOTIMPL = makeStatus(0x80004001);
inline constexpr HRESULT E_NOINTERFACE = makeStatus(0x80004002);
inline constexpr HRESULT E_POINTER = makeStatus(0x80004003);
inline constexpr HRESULT E_ABORT = makeStatus(0x80004004);
inline constexpr HRESULT E_FAIL = makeStatus(0x80004005);
inline constexpr HRESULT E_UNEXPECTED = makeStatus(0x8000FFFF);
inline constexpr HRESULT E_ACCESSDENIED = makeStatus(0x80070005);
inline constexpr HRESULT E_OUTOFMEMORY = makeStatus(0x8007000E);
inline constexpr HRESULT E_INVALIDARG = makeStatus(0x80070057);
inline constexpr HRESULT RPC_E_CHANGED_MODE = makeStatus(0x80010106);
inline constexpr HRESULT RPC_E_WRONG_THREAD = makeStatus(0x8001010E);
inline constexpr HRESULT DISP_E_UNKNOWNINTERFACE = makeStatus(0x80020001);
inline constexpr HRESULT DISP_E_MEMBERNOTFOUND = makeStatus(0x80020003);
inline constexpr HRESULT DISP_E_PARAMNOTFOUND = makeStatus(0x80020004);
inline constexpr HRESULT DISP_E_TYPEMISMATCH = makeStatus(0x80020005);
inline constexpr HRESULT DISP_E_UNKNOWNNAME = makeStatus(0x80020006);
inline constexpr HRESULT DISP_E_NONAMEDARGS = makeStatus(0x80020007);
inline constexpr HRESULT DISP_E_BADVARTYPE = makeStatus(0x80020008);
inline constexpr HRESULT DISP_E_EXCEPTION = makeStatus(0x80020009);
inline constexpr HRESULT DISP_E_OVERFLOW = makeStatus(0x8002000A);
inline constexpr HRESULT DISP_E_BADINDEX = makeStatus(0x8002000B);
inline constexpr HRESULT DISP_E_UNKNOWNLCID = makeStatus(0x8002000C);
inline constexpr HRESULT DISP_E_ARRAYISLOCKED = makeStatus(0x8002000D);
inline constexpr HRESULT DISP_E_BADPARAMCOUNT = makeStatus(0x8002000E);
inline constexpr HRESULT DISP_E_PARAMNOTOPTIONAL = makeStatus(0x8002000F);
inline constexpr HRESULT DISP_E_DIVBYZERO = makeStatus(0x80020012);
inline constexpr HRESULT TYPE_E_ELEMENTNOTFOUND = makeStatus(0x8002802B);
inline constexpr HRESULT TYPE_E_FIELDNOTFOUND = makeStatus(0x80028017);
inline constexpr HRESULT TYPE_E_UNSUPFORMAT = makeStatus(0x80028019);
inline constexpr HRESULT TYPE_E_WRONGTYPEKIND = makeStatus(0x8002802A);
inline constexpr HRESULT TYPE_E_AMBIGUOUSNAME = makeStatus(0x8002802C);
inline constexpr HRESULT TYPE_E_BADMODULEKIND = makeStatus(0x800288BD);
inline constexpr HRESULT TYPE_E_CANTLOADLIBRARY = makeStatus(0x80029C4A);
inline constexpr HRESULT TYPE_E_LIBNOTREGISTERED = makeStatus(0x8002801D);
inline constexpr HRESULT TYPE_E_TYPEMISMATCH = makeStatus(0x80028CA0);
inline constexpr HRESULT CLASS_E_NOAGGREGATION = makeStatus(0x80040110);
inline constexpr HRESULT CLASS_E_CLASSNOTAVAILABLE = makeStatus(0x80040111);
inline constexpr HRESULT REGDB_E_CLASSNOTREG = makeStatus(0x80040154);
inline constexpr HRESULT CO_E_NOTINITIALIZED = makeStatus(0x800401F0);
inline constexpr HRESULT CO_E_CLASSSTRING = makeStatus(0x800401F3);
inline constexpr HRESULT CO_E_IIDSTRING = makeStatus(0x800401F4);
inline constexpr HRESULT CO_E_DLLNOTFOUND = makeStatus(0x800401F8);
inline constexpr HRESULT CO_E_ERRORINDLL = makeStatus(0x800401F9);
inline constexpr HRESULT CONNECT_E_NOCONNECTION = makeStatus(0x80040200);
inline constexpr HRESULT CONNECT_E_ADVISELIMIT = makeStatus(0x80040201);
inline constexpr HRESULT CONNECT_E_CANNOTCONNECT = makeStatus(0x80040202);
// Of a server's registration. Other operations have the same numbers.
inline constexpr HRESULT SELFREG_E_TYPELIB = makeStatus(0x80040200);
inline constexpr HRESULT SELFREG_E_CLASS = makeStatus(0x80040201);

/// The status under which a run-time error number reaches a client.
constexpr HRESULT statusOfRuntimeError(std::int32_t number) {
    return makeStatus(0x800A0000u | static_cast<std::uint16_t>(number));
}
