#include "automation/types/errorobject.h"

#include "automation/types/bstr.h"

namespace mox::automation {

namespace {

HRESULT store(LPCOLESTR text, String& place) {
    String fresh = String::attach(SysAllocString(text));
    if (text && !fresh.get()) {
        return E_OUTOFMEMORY;
    }
    place = std::move(fresh);
    return S_OK;
}

HRESULT handOut(const String& text, BSTR* place) {
    return place ? copyText(text.get(), *place) : E_POINTER;
}

template <class Value> HRESULT handOut(const Value& value, Value* place) {
    if (!place) {
        return E_POINTER;
    }
    *place = value;
    return S_OK;
}

} // namespace

HRESULT ErrorObject::SetGUID(REFGUID rguid) {
    interface_ = rguid;
    return S_OK;
}

HRESULT ErrorObject::SetSource(LPOLESTR szSource) {
    return store(szSource, source_);
}

HRESULT ErrorObject::SetDescription(LPOLESTR szDescription) {
    return store(szDescription, description_);
}

HRESULT ErrorObject::SetHelpFile(LPOLESTR szHelpFile) {
    return store(szHelpFile, helpFile_);
}

HRESULT ErrorObject::SetHelpContext(DWORD dwHelpContext) {
    helpContext_ = dwHelpContext;
    return S_OK;
}

HRESULT ErrorObject::GetGUID(GUID* pGUID) {
    return handOut(interface_, pGUID);
}

HRESULT ErrorObject::GetSource(BSTR* pBstrSource) {
    return handOut(source_, pBstrSource);
}

HRESULT ErrorObject::GetDescription(BSTR* pBstrDescription) {
    return handOut(description_, pBstrDescription);
}

HRESULT ErrorObject::GetHelpFile(BSTR* pBstrHelpFile) {
    return handOut(helpFile_, pBstrHelpFile);
}

HRESULT ErrorObject::GetHelpContext(DWORD* pdwHelpContext) {
    return handOut(helpContext_, pdwHelpContext);
}

namespace {

thread_local constinit bool threadEnds = false;

/// The error that waits for the caller on this thread.
struct Pending {
    Ref<IErrorInfo> error;
    // Objects that end later on this thread may still report errors, which nobody will ask for.
    ~Pending() { threadEnds = true; }
};
thread_local Pending pending;

} // namespace

} // namespace mox::automation

using namespace mox::automation;

HRESULT CreateErrorInfo(ICreateErrorInfo** pperrinfo) {
    if (!pperrinfo) {
        return E_INVALIDARG;
    }
    *pperrinfo = nullptr;
    try {
        *pperrinfo = mox::makeShared<ICreateErrorInfo, ErrorObject>().detach();
        return S_OK;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    }
}

HRESULT SetErrorInfo(ULONG dwReserved, IErrorInfo* perrinfo) {
    if (dwReserved != 0) {
        return E_INVALIDARG;
    }
    if (!threadEnds) {
        pending.error = perrinfo;
    }
    return S_OK;
}

HRESULT GetErrorInfo(ULONG dwReserved, IErrorInfo** pperrinfo) {
    if (!pperrinfo || dwReserved != 0) {
        return E_INVALIDARG;
    }
    *pperrinfo = threadEnds ? nullptr : pending.error.detach();
    return *pperrinfo ? S_OK : S_FALSE;
}
