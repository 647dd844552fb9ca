// The four exports of the server file: each passes its call to the run-time layer.
#include "core/classes.h"

MOX_EXPORT HRESULT DllGetClassObject(REFCLSID rclsid, REFIID riid, void** ppv) {
    return mox::server::serverModule().getClassObject(rclsid, riid, ppv);
}

MOX_EXPORT HRESULT DllCanUnloadNow() {
    return mox::server::serverModule().canUnloadNow();
}

// A server file is found by its path, so there is nothing to enter anywhere.
MOX_EXPORT HRESULT DllRegisterServer() {
    return E_NOTIMPL;
}

MOX_EXPORT HRESULT DllUnregisterServer() {
    return E_NOTIMPL;
}
