// The standard error object: what a failing call says besides its status.
#pragma once

#include <mox/sharedobject.h>

namespace mox::automation {

/// Is written through `ICreateErrorInfo` and read through `IErrorInfo`.
class ErrorObject final : public SharedObject<ICreateErrorInfo, IErrorInfo> {
public:
    HRESULT SetGUID(REFGUID rguid) override;
    HRESULT SetSource(LPOLESTR szSource) override;
    HRESULT SetDescription(LPOLESTR szDescription) override;
    HRESULT SetHelpFile(LPOLESTR szHelpFile) override;
    HRESULT SetHelpContext(DWORD dwHelpContext) override;

    HRESULT GetGUID(GUID* pGUID) override;
    HRESULT GetSource(BSTR* pBstrSource) override;
    HRESULT GetDescription(BSTR* pBstrDescription) override;
    HRESULT GetHelpFile(BSTR* pBstrHelpFile) override;
    HRESULT GetHelpContext(DWORD* pdwHelpContext) override;

private:
    GUID interface_{};
    String source_;
    String description_;
    String helpFile_;
    DWORD helpContext_ = 0;
};

} // namespace mox::automation
