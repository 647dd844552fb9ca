// Type information: what a library, its interfaces, records and enums look like at run time.
#pragma once

#include <mox/abi/interfaces.h>

enum SYSKIND : std::int32_t { SYS_WIN16, SYS_WIN32, SYS_MAC, SYS_WIN64 };

enum TYPEKIND : std::int32_t {
    TKIND_ENUM = 0,
    TKIND_RECORD,
    TKIND_MODULE,
    TKIND_INTERFACE,
    TKIND_DISPATCH,
    TKIND_COCLASS,
    TKIND_ALIAS,
    TKIND_UNION,
};

enum FUNCKIND : std::int32_t { FUNC_VIRTUAL, FUNC_PUREVIRTUAL, FUNC_NONVIRTUAL, FUNC_STATIC, FUNC_DISPATCH };
enum INVOKEKIND : std::int32_t { INVOKE_FUNC = 1, INVOKE_PROPERTYGET = 2, INVOKE_PROPERTYPUT = 4, INVOKE_PROPERTYPUTREF = 8 };
enum CALLCONV : std::int32_t { CC_FASTCALL, CC_CDECL, CC_PASCAL, CC_MACPASCAL, CC_STDCALL };
enum VARKIND : std::int32_t { VAR_PERINSTANCE, VAR_STATIC, VAR_CONST, VAR_DISPATCH };
enum DESCKIND : std::int32_t { DESCKIND_NONE, DESCKIND_FUNCDESC, DESCKIND_VARDESC, DESCKIND_TYPECOMP, DESCKIND_IMPLICITAPPOBJ };

inline constexpr WORD TYPEFLAG_FAPPOBJECT = 0x1;
inline constexpr WORD TYPEFLAG_FCANCREATE = 0x2;
inline constexpr WORD TYPEFLAG_FPREDECLID = 0x8;
inline constexpr WORD TYPEFLAG_FHIDDEN = 0x10;
inline constexpr WORD TYPEFLAG_FDUAL = 0x40;
inline constexpr WORD TYPEFLAG_FNONEXTENSIBLE = 0x80;
inline constexpr WORD TYPEFLAG_FOLEAUTOMATION = 0x100;
inline constexpr WORD TYPEFLAG_FDISPATCHABLE = 0x1000;

inline constexpr WORD FUNCFLAG_FHIDDEN = 0x40;
inline constexpr WORD FUNCFLAG_FNONBROWSABLE = 0x400;

inline constexpr INT IMPLTYPEFLAG_FDEFAULT = 0x1;
inline constexpr INT IMPLTYPEFLAG_FSOURCE = 0x2;

inline constexpr USHORT PARAMFLAG_NONE = 0x0;
inline constexpr USHORT PARAMFLAG_FIN = 0x1;
inline constexpr USHORT PARAMFLAG_FOUT = 0x2;
inline constexpr USHORT PARAMFLAG_FLCID = 0x4;
inline constexpr USHORT PARAMFLAG_FRETVAL = 0x8;
inline constexpr USHORT PARAMFLAG_FOPT = 0x10;
inline constexpr USHORT PARAMFLAG_FHASDEFAULT = 0x20;

struct ARRAYDESC;

/// No member: the type itself.
inline constexpr MEMBERID MEMBERID_NIL = -1;
/// The instance of an application object that is there without being named.
inline constexpr MEMBERID MEMBERID_DEFAULTINST = -2;

/// A type: a plain one by its `vt`, a pointer or an array by `lptdesc`, one of the library's own by `hreftype`.
struct TYPEDESC {
    union {
        TYPEDESC* lptdesc;
        ARRAYDESC* lpadesc;
        HREFTYPE hreftype;
    };
    VARTYPE vt;
};

struct ARRAYDESC {
    TYPEDESC tdescElem;
    USHORT cDims;
    SAFEARRAYBOUND rgbounds[1];
};

struct PARAMDESCEX {
    ULONG cBytes;
    VARIANTARG varDefaultValue;
};

struct PARAMDESC {
    PARAMDESCEX* pparamdescex;
    USHORT wParamFlags;
};

struct IDLDESC {
    std::uintptr_t dwReserved;
    USHORT wIDLFlags;
};

struct ELEMDESC {
    TYPEDESC tdesc;
    union {
        IDLDESC idldesc;
        PARAMDESC paramdesc;
    };
};

struct TYPEATTR {
    GUID guid;
    LCID lcid;
    DWORD dwReserved;
    MEMBERID memidConstructor;
    MEMBERID memidDestructor;
    LPOLESTR lpstrSchema;
    ULONG cbSizeInstance;
    TYPEKIND typekind;
    WORD cFuncs;
    WORD cVars;
    WORD cImplTypes;
    WORD cbSizeVft;
    WORD cbAlignment;
    WORD wTypeFlags;
    WORD wMajorVerNum;
    WORD wMinorVerNum;
    TYPEDESC tdescAlias;
    IDLDESC idldescType;
};

struct FUNCDESC {
    MEMBERID memid;
    SCODE* lprgscode;
    ELEMDESC* lprgelemdescParam;
    FUNCKIND funckind;
    INVOKEKIND invkind;
    CALLCONV callconv;
    SHORT cParams;
    SHORT cParamsOpt;
    SHORT oVft;
    SHORT cScodes;
    ELEMDESC elemdescFunc;
    WORD wFuncFlags;
};

struct VARDESC {
    MEMBERID memid;
    LPOLESTR lpstrSchema;
    union {
        ULONG oInst;
        VARIANT* lpvarValue;
    };
    ELEMDESC elemdescVar;
    WORD wVarFlags;
    VARKIND varkind;
};

struct TLIBATTR {
    GUID guid;
    LCID lcid;
    SYSKIND syskind;
    WORD wMajorVerNum;
    WORD wMinorVerNum;
    WORD wLibFlags;
};

struct ITypeComp;
struct ITypeLib;

union BINDPTR {
    FUNCDESC* lpfuncdesc;
    VARDESC* lpvardesc;
    ITypeComp* lptcomp;
};

/// Looks names up in a library or in one of its types.
struct ITypeComp : IUnknown {
    virtual HRESULT Bind(LPOLESTR szName, ULONG lHashVal, WORD wFlags, ITypeInfo** ppTInfo, DESCKIND* pDescKind,
                         BINDPTR* pBindPtr) = 0;
    virtual HRESULT BindType(LPOLESTR szName, ULONG lHashVal, ITypeInfo** ppTInfo, ITypeComp** ppTComp) = 0;
};

/// One type of a library. Structures that it hands out are given back with the matching Release member.
struct ITypeInfo : IUnknown {
    virtual HRESULT GetTypeAttr(TYPEATTR** ppTypeAttr) = 0;
    virtual HRESULT GetTypeComp(ITypeComp** ppTComp) = 0;
    virtual HRESULT GetFuncDesc(UINT index, FUNCDESC** ppFuncDesc) = 0;
    virtual HRESULT GetVarDesc(UINT index, VARDESC** ppVarDesc) = 0;
    virtual HRESULT GetNames(MEMBERID memid, BSTR* rgBstrNames, UINT cMaxNames, UINT* pcNames) = 0;
    virtual HRESULT GetRefTypeOfImplType(UINT index, HREFTYPE* pRefType) = 0;
    virtual HRESULT GetImplTypeFlags(UINT index, INT* pImplTypeFlags) = 0;
    virtual HRESULT GetIDsOfNames(LPOLESTR* rgszNames, UINT cNames, MEMBERID* pMemId) = 0;
    virtual HRESULT Invoke(PVOID pvInstance, MEMBERID memid, WORD wFlags, DISPPARAMS* pDispParams, VARIANT* pVarResult,
                           EXCEPINFO* pExcepInfo, UINT* puArgErr) = 0;
    virtual HRESULT GetDocumentation(MEMBERID memid, BSTR* pBstrName, BSTR* pBstrDocString, DWORD* pdwHelpContext,
                                     BSTR* pBstrHelpFile) = 0;
    virtual HRESULT GetDllEntry(MEMBERID memid, INVOKEKIND invKind, BSTR* pBstrDllName, BSTR* pBstrName, WORD* pwOrdinal) = 0;
    virtual HRESULT GetRefTypeInfo(HREFTYPE hRefType, ITypeInfo** ppTInfo) = 0;
    virtual HRESULT AddressOfMember(MEMBERID memid, INVOKEKIND invKind, PVOID* ppv) = 0;
    virtual HRESULT CreateInstance(IUnknown* pUnkOuter, REFIID riid, PVOID* ppvObj) = 0;
    virtual HRESULT GetMops(MEMBERID memid, BSTR* pBstrMops) = 0;
    virtual HRESULT GetContainingTypeLib(ITypeLib** ppTLib, UINT* pIndex) = 0;
    virtual void ReleaseTypeAttr(TYPEATTR* pTypeAttr) = 0;
    virtual void ReleaseFuncDesc(FUNCDESC* pFuncDesc) = 0;
    virtual void ReleaseVarDesc(VARDESC* pVarDesc) = 0;
};

/// A whole library of types.
struct ITypeLib : IUnknown {
    virtual UINT GetTypeInfoCount() = 0;
    virtual HRESULT GetTypeInfo(UINT index, ITypeInfo** ppTInfo) = 0;
    virtual HRESULT GetTypeInfoType(UINT index, TYPEKIND* pTKind) = 0;
    virtual HRESULT GetTypeInfoOfGuid(REFGUID guid, ITypeInfo** ppTInfo) = 0;
    virtual HRESULT GetLibAttr(TLIBATTR** ppTLibAttr) = 0;
    virtual HRESULT GetTypeComp(ITypeComp** ppTComp) = 0;
    virtual HRESULT GetDocumentation(INT index, BSTR* pBstrName, BSTR* pBstrDocString, DWORD* pdwHelpContext,
                                     BSTR* pBstrHelpFile) = 0;
    virtual HRESULT IsName(LPOLESTR szNameBuf, ULONG lHashVal, BOOL* pfName) = 0;
    virtual HRESULT FindName(LPOLESTR szNameBuf, ULONG lHashVal, ITypeInfo** ppTInfo, MEMBERID* rgMemId, USHORT* pcFound) = 0;
    virtual void ReleaseTLibAttr(TLIBATTR* pTLibAttr) = 0;
};

template <> inline constexpr IID mox::interfaceId<ITypeInfo>{0x00020401, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_ITypeInfo = mox::interfaceId<ITypeInfo>;

template <> inline constexpr IID mox::interfaceId<ITypeLib>{0x00020402, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_ITypeLib = mox::interfaceId<ITypeLib>;

template <> inline constexpr IID mox::interfaceId<ITypeComp>{0x00020403, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_ITypeComp = mox::interfaceId<ITypeComp>;
