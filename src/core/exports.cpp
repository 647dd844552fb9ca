// The four exports of the server file: each passes its call to the run-time layer.
#include "core/classes.h"

MOX_EXPORT HRESULT DllGetClassObject(REFCLSID rclsid, REFIID riid, void** ppv) {
    return mox::server::serverModule().getClassObject(rclsid, riid, ppv);
}

MOX_EXPORT HRESULT DllCanUnloadNow() {
    return mox::server::serverModule().canUnloadNow();
}

MOX_EXPORT HRESULT DllRegisterServer() {
    return mox::server::serverModule().registerServer();
}

MOX_EXPORT HRESULT DllUnregisterServer() {
    return mox::server::serverModule().unregisterServer();
}
