// The operations that libmoxplatform exports under their standard names. Their meaning is the documented one; what
// differs or is worth saying stands here. Every out place must not be null unless it says so.
#pragma once

#include <mox/abi/typeinfo.h>

#define MOX_EXPORT extern "C" __attribute__((visibility("default")))

// ---- strings: a BSTR of null counts as empty everywhere
MOX_EXPORT BSTR SysAllocString(LPCOLESTR psz);
MOX_EXPORT BSTR SysAllocStringLen(LPCOLESTR strIn, UINT ui);
MOX_EXPORT BSTR SysAllocStringByteLen(const char* psz, UINT len);
MOX_EXPORT INT SysReAllocString(BSTR* pbstr, LPCOLESTR psz);
MOX_EXPORT INT SysReAllocStringLen(BSTR* pbstr, LPCOLESTR psz, UINT len);
MOX_EXPORT void SysFreeString(BSTR bstrString);
MOX_EXPORT UINT SysStringLen(BSTR bstr);
MOX_EXPORT UINT SysStringByteLen(BSTR bstr);

// ---- variants
MOX_EXPORT void VariantInit(VARIANTARG* pvarg);
MOX_EXPORT HRESULT VariantClear(VARIANTARG* pvarg);
MOX_EXPORT HRESULT VariantCopy(VARIANTARG* pvargDest, const VARIANTARG* pvargSrc);
MOX_EXPORT HRESULT VariantCopyInd(VARIANT* pvarDest, const VARIANTARG* pvargSrc);
MOX_EXPORT HRESULT VariantChangeType(VARIANTARG* pvargDest, const VARIANTARG* pvarSrc, USHORT wFlags, VARTYPE vt);
MOX_EXPORT HRESULT VariantChangeTypeEx(VARIANTARG* pvargDest, const VARIANTARG* pvarSrc, LCID lcid, USHORT wFlags, VARTYPE vt);
MOX_EXPORT INT SystemTimeToVariantTime(const SYSTEMTIME* lpSystemTime, DOUBLE* pvtime);
MOX_EXPORT INT VariantTimeToSystemTime(DOUBLE vtime, SYSTEMTIME* lpSystemTime);

// ---- arrays
MOX_EXPORT SAFEARRAY* SafeArrayCreate(VARTYPE vt, UINT cDims, SAFEARRAYBOUND* rgsabound);
MOX_EXPORT SAFEARRAY* SafeArrayCreateEx(VARTYPE vt, UINT cDims, SAFEARRAYBOUND* rgsabound, PVOID pvExtra);
MOX_EXPORT SAFEARRAY* SafeArrayCreateVector(VARTYPE vt, LONG lLbound, ULONG cElements);
MOX_EXPORT SAFEARRAY* SafeArrayCreateVectorEx(VARTYPE vt, LONG lLbound, ULONG cElements, PVOID pvExtra);
MOX_EXPORT HRESULT SafeArrayAllocDescriptor(UINT cDims, SAFEARRAY** ppsaOut);
MOX_EXPORT HRESULT SafeArrayAllocDescriptorEx(VARTYPE vt, UINT cDims, SAFEARRAY** ppsaOut);
MOX_EXPORT HRESULT SafeArrayAllocData(SAFEARRAY* psa);
MOX_EXPORT HRESULT SafeArrayDestroyDescriptor(SAFEARRAY* psa);
MOX_EXPORT HRESULT SafeArrayDestroyData(SAFEARRAY* psa);
MOX_EXPORT HRESULT SafeArrayDestroy(SAFEARRAY* psa);
MOX_EXPORT HRESULT SafeArrayRedim(SAFEARRAY* psa, SAFEARRAYBOUND* psaboundNew);
MOX_EXPORT HRESULT SafeArrayCopy(SAFEARRAY* psa, SAFEARRAY** ppsaOut);
MOX_EXPORT HRESULT SafeArrayCopyData(SAFEARRAY* psaSource, SAFEARRAY* psaTarget);
MOX_EXPORT UINT SafeArrayGetDim(SAFEARRAY* psa);
MOX_EXPORT UINT SafeArrayGetElemsize(SAFEARRAY* psa);
MOX_EXPORT HRESULT SafeArrayGetUBound(SAFEARRAY* psa, UINT nDim, LONG* plUbound);
MOX_EXPORT HRESULT SafeArrayGetLBound(SAFEARRAY* psa, UINT nDim, LONG* plLbound);
MOX_EXPORT HRESULT SafeArrayGetVartype(SAFEARRAY* psa, VARTYPE* pvt);
MOX_EXPORT HRESULT SafeArrayLock(SAFEARRAY* psa);
MOX_EXPORT HRESULT SafeArrayUnlock(SAFEARRAY* psa);
MOX_EXPORT HRESULT SafeArrayAccessData(SAFEARRAY* psa, PVOID* ppvData);
MOX_EXPORT HRESULT SafeArrayUnaccessData(SAFEARRAY* psa);
MOX_EXPORT HRESULT SafeArrayGetElement(SAFEARRAY* psa, LONG* rgIndices, PVOID pv);
MOX_EXPORT HRESULT SafeArrayPutElement(SAFEARRAY* psa, LONG* rgIndices, PVOID pv);
MOX_EXPORT HRESULT SafeArrayPtrOfIndex(SAFEARRAY* psa, LONG* rgIndices, PVOID* ppvData);
MOX_EXPORT HRESULT SafeArraySetRecordInfo(SAFEARRAY* psa, IRecordInfo* prinfo);
MOX_EXPORT HRESULT SafeArrayGetRecordInfo(SAFEARRAY* psa, IRecordInfo** prinfo);
MOX_EXPORT HRESULT SafeArraySetIID(SAFEARRAY* psa, REFGUID guid);
MOX_EXPORT HRESULT SafeArrayGetIID(SAFEARRAY* psa, GUID* pguid);

// ---- task memory and identifiers
MOX_EXPORT PVOID CoTaskMemAlloc(std::size_t cb);
MOX_EXPORT PVOID CoTaskMemRealloc(PVOID pv, std::size_t cb);
MOX_EXPORT void CoTaskMemFree(PVOID pv);
MOX_EXPORT HRESULT CoCreateGuid(GUID* pguid);
MOX_EXPORT BOOL IsEqualGUID(REFGUID rguid1, REFGUID rguid2);
MOX_EXPORT INT StringFromGUID2(REFGUID rguid, LPOLESTR lpsz, INT cchMax);
MOX_EXPORT HRESULT StringFromCLSID(REFCLSID rclsid, LPOLESTR* lplpsz);
MOX_EXPORT HRESULT StringFromIID(REFIID rclsid, LPOLESTR* lplpsz);
/// Takes the text form of an identifier, or a ProgID.
MOX_EXPORT HRESULT CLSIDFromString(LPCOLESTR lpsz, CLSID* pclsid);
MOX_EXPORT HRESULT IIDFromString(LPCOLESTR lpsz, IID* lpiid);

// ---- error objects: one pending error object a thread
MOX_EXPORT HRESULT SetErrorInfo(ULONG dwReserved, IErrorInfo* perrinfo);
MOX_EXPORT HRESULT GetErrorInfo(ULONG dwReserved, IErrorInfo** pperrinfo);
MOX_EXPORT HRESULT CreateErrorInfo(ICreateErrorInfo** pperrinfo);

// ---- apartments and creation
inline constexpr DWORD COINIT_MULTITHREADED = 0x0;
inline constexpr DWORD COINIT_APARTMENTTHREADED = 0x2;
inline constexpr DWORD CLSCTX_INPROC_SERVER = 0x1;

/// Every thread that creates or calls objects is an apartment of its own; there is no multithreaded apartment, so
/// `COINIT_MULTITHREADED` gives `RPC_E_CHANGED_MODE`.
MOX_EXPORT HRESULT CoInitializeEx(PVOID pvReserved, DWORD dwCoInit);
MOX_EXPORT HRESULT CoInitialize(PVOID pvReserved);
MOX_EXPORT void CoUninitialize();
MOX_EXPORT HRESULT CoGetClassObject(REFCLSID rclsid, DWORD dwClsContext, PVOID pvReserved, REFIID riid, PVOID* ppv);
MOX_EXPORT HRESULT CoCreateInstance(REFCLSID rclsid, IUnknown* pUnkOuter, DWORD dwClsContext, REFIID riid, PVOID* ppv);
MOX_EXPORT HRESULT CLSIDFromProgID(LPCOLESTR lpszProgID, CLSID* lpclsid);
MOX_EXPORT HRESULT ProgIDFromCLSID(REFCLSID clsid, LPOLESTR* lplpszProgID);
MOX_EXPORT void CoFreeUnusedLibraries();

// ---- dispatch and type libraries
MOX_EXPORT HRESULT DispGetIDsOfNames(ITypeInfo* ptinfo, LPOLESTR* rgszNames, UINT cNames, DISPID* rgdispid);
MOX_EXPORT HRESULT DispInvoke(PVOID _this, ITypeInfo* ptinfo, DISPID dispidMember, WORD wFlags, DISPPARAMS* pparams,
                              VARIANT* pvarResult, EXCEPINFO* pexcepinfo, UINT* puArgErr);
/// Loads the type library of a server file.
MOX_EXPORT HRESULT LoadTypeLib(LPCOLESTR szFile, ITypeLib** pptlib);
/// Finds a record of a library that is loaded in this process.
MOX_EXPORT HRESULT GetRecordInfoFromGuids(REFGUID rGuidTypeLib, ULONG uVerMajor, ULONG uVerMinor, LCID lcid,
                                          REFGUID rGuidTypeInfo, IRecordInfo** ppRecInfo);
MOX_EXPORT HRESULT GetRecordInfoFromTypeInfo(ITypeInfo* pTypeInfo, IRecordInfo** ppRecInfo);

// ---- pictures

/// What a picture object is made of.
struct PICTDESC {
    /// 16.
    UINT cbSizeofstruct;
    /// 0 none, 1 bitmap, 2 metafile, 3 icon, 4 enhanced metafile.
    UINT picType;
    /// A handle of that kind.
    LONG handle;
    /// The palette of a bitmap. Of a metafile, its extents in hundredths of a millimetre: width in the low, height in the high
    /// word.
    LONG hpal;
};
/// A new picture object; without a description an uninitialised one. With `fOwn` it frees the handle with its last reference; on
/// failure the handle stays the caller's. `E_INVALIDARG` for a handle that is none of that kind or a wrong size.
MOX_EXPORT HRESULT OleCreatePictureIndirect(const PICTDESC* lpPictDesc, REFIID riid, BOOL fOwn, PVOID* lplpvObj);

// Pictures for programs that have no image files of their own. Rows run from the top down; a pixel is the four bytes blue, green,
// red and one that does not count.

/// The size in pixels of a picture object or, without one, of what a device context draws on. `E_INVALIDARG` if it has none.
MOX_EXPORT HRESULT MoxGetPixelSize(IUnknown* picture, LONG hdc, LONG* width, LONG* height);
/// Copies a rectangle of a picture object or, without one, of a device context, whose logical units count. Icons and metafiles
/// are shown on white. `E_INVALIDARG` for an area that is not all inside, or if `size` is not 4 * cx * cy.
MOX_EXPORT HRESULT MoxGetPixels(IUnknown* picture, LONG hdc, LONG x, LONG y, LONG cx, LONG cy, BYTE* rows, std::size_t size);
/// A new picture object that shows a bitmap of such rows. `E_INVALIDARG` if there are no pixels, or if `size` is not
/// 4 * width * height.
MOX_EXPORT HRESULT MoxCreatePicture(LONG width, LONG height, const BYTE* rows, std::size_t size, REFIID riid, PVOID* picture);
/// A new picture object from the bytes of an image file: BMP, ICO, CUR, WMF, EMF, PNG, JPEG or GIF. 0x800A01E1 (481) for what is
/// none of them.
MOX_EXPORT HRESULT MoxLoadPicture(const BYTE* file, std::size_t size, REFIID riid, PVOID* picture);
/// The bytes of an image file with a picture object, an array of bytes that becomes the caller's: in the format of its kind, or
/// as PNG with 8 bits a channel, for which icons and metafiles are shown on white. `E_INVALIDARG` for an empty picture.
MOX_EXPORT HRESULT MoxSavePicture(IUnknown* picture, BOOL asPng, SAFEARRAY** file);

// ---- what is ours
/// Runs the calling thread's message loop for so many milliseconds, and releases what other threads handed over.
MOX_EXPORT HRESULT MoxPump(UINT milliseconds);
/// Configures and inspects the machine: request and reply are JSON texts, the reply belongs to the caller. What can be asked
/// stands in docs/host.md. `E_INVALIDARG` with an error object for a request that is not understood.
MOX_EXPORT HRESULT MoxControl(BSTR request, BSTR* reply);
