// The standard interfaces of components: identity, creation, Automation calls, errors, events.
#pragma once

#include <mox/abi/variant.h>

struct ITypeInfo;

namespace mox {
/// The identifier of an interface type: `interfaceId<IDispatch>`.
template <class Interface> inline constexpr IID interfaceId{};
} // namespace mox

/// Identity and lifetime. `QueryInterface` for `IUnknown` gives one pointer per object, always the same.
struct IUnknown {
    virtual HRESULT QueryInterface(REFIID riid, void** ppvObject) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default;
};

struct IClassFactory : IUnknown {
    virtual HRESULT CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppvObject) = 0;
    virtual HRESULT LockServer(BOOL fLock) = 0;
};

struct IDispatch : IUnknown {
    virtual HRESULT GetTypeInfoCount(UINT* pctinfo) = 0;
    virtual HRESULT GetTypeInfo(UINT iTInfo, LCID lcid, ITypeInfo** ppTInfo) = 0;
    virtual HRESULT GetIDsOfNames(REFIID riid, LPOLESTR* rgszNames, UINT cNames, LCID lcid, DISPID* rgDispId) = 0;
    virtual HRESULT Invoke(DISPID dispIdMember, REFIID riid, LCID lcid, WORD wFlags, DISPPARAMS* pDispParams, VARIANT* pVarResult,
                           EXCEPINFO* pExcepInfo, UINT* puArgErr) = 0;
};

struct IErrorInfo : IUnknown {
    virtual HRESULT GetGUID(GUID* pGUID) = 0;
    virtual HRESULT GetSource(BSTR* pBstrSource) = 0;
    virtual HRESULT GetDescription(BSTR* pBstrDescription) = 0;
    virtual HRESULT GetHelpFile(BSTR* pBstrHelpFile) = 0;
    virtual HRESULT GetHelpContext(DWORD* pdwHelpContext) = 0;
};

struct ICreateErrorInfo : IUnknown {
    virtual HRESULT SetGUID(REFGUID rguid) = 0;
    virtual HRESULT SetSource(LPOLESTR szSource) = 0;
    virtual HRESULT SetDescription(LPOLESTR szDescription) = 0;
    virtual HRESULT SetHelpFile(LPOLESTR szHelpFile) = 0;
    virtual HRESULT SetHelpContext(DWORD dwHelpContext) = 0;
};

struct ISupportErrorInfo : IUnknown {
    virtual HRESULT InterfaceSupportsErrorInfo(REFIID riid) = 0;
};

struct IProvideClassInfo : IUnknown {
    virtual HRESULT GetClassInfo(ITypeInfo** ppTI) = 0;
};

inline constexpr DWORD GUIDKIND_DEFAULT_SOURCE_DISP_IID = 1;

struct IProvideClassInfo2 : IProvideClassInfo {
    virtual HRESULT GetGUID(DWORD dwGuidKind, GUID* pGUID) = 0;
};

struct IConnectionPointContainer;

struct CONNECTDATA {
    IUnknown* pUnk;
    DWORD dwCookie;
};

struct IEnumConnections : IUnknown {
    virtual HRESULT Next(ULONG cConnections, CONNECTDATA* rgcd, ULONG* pcFetched) = 0;
    virtual HRESULT Skip(ULONG cConnections) = 0;
    virtual HRESULT Reset() = 0;
    virtual HRESULT Clone(IEnumConnections** ppEnum) = 0;
};

struct IConnectionPoint : IUnknown {
    virtual HRESULT GetConnectionInterface(IID* pIID) = 0;
    virtual HRESULT GetConnectionPointContainer(IConnectionPointContainer** ppCPC) = 0;
    virtual HRESULT Advise(IUnknown* pUnkSink, DWORD* pdwCookie) = 0;
    virtual HRESULT Unadvise(DWORD dwCookie) = 0;
    virtual HRESULT EnumConnections(IEnumConnections** ppEnum) = 0;
};

struct IEnumConnectionPoints : IUnknown {
    virtual HRESULT Next(ULONG cConnections, IConnectionPoint** ppCP, ULONG* pcFetched) = 0;
    virtual HRESULT Skip(ULONG cConnections) = 0;
    virtual HRESULT Reset() = 0;
    virtual HRESULT Clone(IEnumConnectionPoints** ppEnum) = 0;
};

struct IConnectionPointContainer : IUnknown {
    virtual HRESULT EnumConnectionPoints(IEnumConnectionPoints** ppEnum) = 0;
    virtual HRESULT FindConnectionPoint(REFIID riid, IConnectionPoint** ppCP) = 0;
};

/// Describes a record type and works on its values without knowing them at compile time.
struct IRecordInfo : IUnknown {
    virtual HRESULT RecordInit(PVOID pvNew) = 0;
    virtual HRESULT RecordClear(PVOID pvExisting) = 0;
    virtual HRESULT RecordCopy(PVOID pvExisting, PVOID pvNew) = 0;
    virtual HRESULT GetGuid(GUID* pguid) = 0;
    virtual HRESULT GetName(BSTR* pbstrName) = 0;
    virtual HRESULT GetSize(ULONG* pcbSize) = 0;
    virtual HRESULT GetTypeInfo(ITypeInfo** ppTypeInfo) = 0;
    virtual HRESULT GetField(PVOID pvData, LPCOLESTR szFieldName, VARIANT* pvarField) = 0;
    virtual HRESULT GetFieldNoCopy(PVOID pvData, LPCOLESTR szFieldName, VARIANT* pvarField, PVOID* ppvDataCArray) = 0;
    virtual HRESULT PutField(ULONG wFlags, PVOID pvData, LPCOLESTR szFieldName, VARIANT* pvarField) = 0;
    virtual HRESULT PutFieldNoCopy(ULONG wFlags, PVOID pvData, LPCOLESTR szFieldName, VARIANT* pvarField) = 0;
    virtual HRESULT GetFieldNames(ULONG* pcNames, BSTR* rgBstrNames) = 0;
    virtual BOOL IsMatchingType(IRecordInfo* pRecordInfo) = 0;
    virtual PVOID RecordCreate() = 0;
    virtual HRESULT RecordCreateCopy(PVOID pvSource, PVOID* ppvDest) = 0;
    virtual HRESULT RecordDestroy(PVOID pvRecord) = 0;
};

inline constexpr ULONG INVOKE_PROPERTYPUT_FIELD = 0x4;

template <> inline constexpr IID mox::interfaceId<IUnknown>{0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IUnknown = mox::interfaceId<IUnknown>;

template <> inline constexpr IID mox::interfaceId<IClassFactory>{0x00000001, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IClassFactory = mox::interfaceId<IClassFactory>;

template <> inline constexpr IID mox::interfaceId<IDispatch>{0x00020400, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IDispatch = mox::interfaceId<IDispatch>;

template <>
inline constexpr IID mox::interfaceId<IErrorInfo>{0x1CF2B120, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
inline constexpr IID IID_IErrorInfo = mox::interfaceId<IErrorInfo>;

template <>
inline constexpr IID mox::interfaceId<ICreateErrorInfo>{
    0x22F03340, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
inline constexpr IID IID_ICreateErrorInfo = mox::interfaceId<ICreateErrorInfo>;

template <>
inline constexpr IID mox::interfaceId<ISupportErrorInfo>{
    0xDF0B3D60, 0x548F, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
inline constexpr IID IID_ISupportErrorInfo = mox::interfaceId<ISupportErrorInfo>;

template <>
inline constexpr IID mox::interfaceId<IProvideClassInfo>{
    0xB196B283, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IProvideClassInfo = mox::interfaceId<IProvideClassInfo>;

template <>
inline constexpr IID mox::interfaceId<IConnectionPointContainer>{
    0xB196B284, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IConnectionPointContainer = mox::interfaceId<IConnectionPointContainer>;

template <>
inline constexpr IID mox::interfaceId<IEnumConnectionPoints>{
    0xB196B285, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IEnumConnectionPoints = mox::interfaceId<IEnumConnectionPoints>;

template <>
inline constexpr IID mox::interfaceId<IConnectionPoint>{
    0xB196B286, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IConnectionPoint = mox::interfaceId<IConnectionPoint>;

template <>
inline constexpr IID mox::interfaceId<IEnumConnections>{
    0xB196B287, 0xBAB4, 0x101A, {0xB6, 0x9C, 0x00, 0xAA, 0x00, 0x34, 0x1D, 0x07}};
inline constexpr IID IID_IEnumConnections = mox::interfaceId<IEnumConnections>;

template <>
inline constexpr IID mox::interfaceId<IProvideClassInfo2>{
    0xA6BC3AC0, 0xDBAA, 0x11CE, {0x9D, 0xE3, 0x00, 0xAA, 0x00, 0x4B, 0xB8, 0x51}};
inline constexpr IID IID_IProvideClassInfo2 = mox::interfaceId<IProvideClassInfo2>;

template <> inline constexpr IID mox::interfaceId<IRecordInfo>{0x0000002F, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline constexpr IID IID_IRecordInfo = mox::interfaceId<IRecordInfo>;
