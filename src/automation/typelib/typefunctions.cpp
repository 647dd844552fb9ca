// The exported operations that work on any ITypeInfo, whoever implements it.
#include <mox/values.h>

using namespace mox;

HRESULT DispGetIDsOfNames(ITypeInfo* ptinfo, LPOLESTR* rgszNames, UINT cNames, DISPID* rgdispid) {
    return ptinfo ? ptinfo->GetIDsOfNames(rgszNames, cNames, rgdispid) : E_INVALIDARG;
}

HRESULT DispInvoke(PVOID _this, ITypeInfo* ptinfo, DISPID dispidMember, WORD wFlags, DISPPARAMS* pparams, VARIANT* pvarResult,
                   EXCEPINFO* pexcepinfo, UINT* puArgErr) {
    return ptinfo ? ptinfo->Invoke(_this, dispidMember, wFlags, pparams, pvarResult, pexcepinfo, puArgErr) : E_INVALIDARG;
}

HRESULT GetRecordInfoFromTypeInfo(ITypeInfo* pTypeInfo, IRecordInfo** ppRecInfo) {
    if (!pTypeInfo || !ppRecInfo) {
        return E_INVALIDARG;
    }
    *ppRecInfo = nullptr;
    TYPEATTR* attributes = nullptr;
    if (const HRESULT status = pTypeInfo->GetTypeAttr(&attributes); FAILED(status)) {
        return status;
    }
    const TYPEKIND kind = attributes->typekind;
    const GUID recordId = attributes->guid;
    const TYPEDESC alias = attributes->tdescAlias;
    pTypeInfo->ReleaseTypeAttr(attributes);
    if (kind == TKIND_ALIAS && alias.vt == VT_USERDEFINED) {
        Ref<ITypeInfo> target;
        const HRESULT status = pTypeInfo->GetRefTypeInfo(alias.hreftype, target.out());
        return FAILED(status) ? status : GetRecordInfoFromTypeInfo(target.get(), ppRecInfo);
    }
    if (kind != TKIND_RECORD) {
        return TYPE_E_UNSUPFORMAT;
    }
    Ref<ITypeLib> library;
    TLIBATTR* libraryAttributes = nullptr;
    HRESULT status = pTypeInfo->GetContainingTypeLib(library.out(), nullptr);
    if (FAILED(status) || FAILED(status = library->GetLibAttr(&libraryAttributes))) {
        return status;
    }
    status = GetRecordInfoFromGuids(libraryAttributes->guid, libraryAttributes->wMajorVerNum, libraryAttributes->wMinorVerNum,
                                    libraryAttributes->lcid, recordId, ppRecInfo);
    library->ReleaseTLibAttr(libraryAttributes);
    return status;
}
