#include "automation/objects/connectionpoint.h"

#include "automation/objects/enumerator.h"
#include "automation/objects/runtimeerror.h"

#include <algorithm>

namespace mox {

HRESULT ConnectionPoint::QueryInterface(REFIID iid, void** result) {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    if (!source_.isOnOwnThread()) {
        return RPC_E_WRONG_THREAD;
    }
    if (iid != IID_IUnknown && iid != IID_IConnectionPoint) {
        return E_NOINTERFACE;
    }
    AddRef();
    *result = static_cast<IConnectionPoint*>(this);
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionInterface(IID* result) {
    if (!result) {
        return E_POINTER;
    }
    *result = events_.id;
    return S_OK;
}

HRESULT ConnectionPoint::GetConnectionPointContainer(IConnectionPointContainer** result) {
    if (!result) {
        return E_POINTER;
    }
    *result = Ref<IConnectionPointContainer>(&container_).detach();
    return S_OK;
}

HRESULT ConnectionPoint::Advise(IUnknown* sink, DWORD* cookie) {
    if (!sink || !cookie) {
        return E_POINTER;
    }
    *cookie = 0;
    if (!source_.isOnOwnThread()) {
        return RPC_E_WRONG_THREAD;
    }
    // A sink answers for the event interface or at least for dispatch calls in general.
    void* object = nullptr;
    if (FAILED(sink->QueryInterface(events_.id, &object)) && FAILED(sink->QueryInterface(IID_IDispatch, &object))) {
        return CONNECT_E_CANNOTCONNECT;
    }
    sinks_.push_back({++lastCookie_, Ref<IDispatch>::attach(static_cast<IDispatch*>(object))});
    *cookie = lastCookie_;
    return S_OK;
}

HRESULT ConnectionPoint::Unadvise(DWORD cookie) {
    if (!source_.isOnOwnThread()) {
        return RPC_E_WRONG_THREAD;
    }
    const auto found = std::ranges::find(sinks_, cookie, &Sink::cookie);
    if (found == sinks_.end()) {
        return CONNECT_E_NOCONNECTION;
    }
    const Ref<IDispatch> last = std::move(found->object); // its end may come back here
    sinks_.erase(found);
    return S_OK;
}

HRESULT ConnectionPoint::EnumConnections(IEnumConnections** result) {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    if (!source_.isOnOwnThread()) {
        return RPC_E_WRONG_THREAD;
    }
    std::vector<HeldConnection> connections;
    for (const Sink& sink : sinks_) {
        connections.push_back({Ref<IUnknown>(sink.object.get()), sink.cookie});
    }
    *result = makeShared<IEnumConnections, Enumerator<IEnumConnections, CONNECTDATA, HeldConnection>>(Ref<IUnknown>(this),
                                                                                                      std::move(connections))
                  .detach();
    return S_OK;
}

HRESULT ConnectionPoint::enumerateAlone(IEnumConnectionPoints** result) {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    if (!source_.isOnOwnThread()) {
        return RPC_E_WRONG_THREAD;
    }
    std::vector<Ref<IConnectionPoint>> points{Ref<IConnectionPoint>(this)};
    *result = makeShared<IEnumConnectionPoints, Enumerator<IEnumConnectionPoints, IConnectionPoint*, Ref<IConnectionPoint>>>(
                  Ref<IUnknown>(&container_), std::move(points))
                  .detach();
    return S_OK;
}

void ConnectionPoint::raise(DISPID id, const VARIANT* arguments, UINT count) noexcept {
    const std::vector<Sink> listeners = sinks_;
    for (const Sink& listener : listeners) {
        if (std::ranges::find(sinks_, listener.cookie, &Sink::cookie) == sinks_.end()) {
            continue;
        }
        // Each sink gets its own copy of the list, so that one which changes it does no harm to the next.
        std::vector<VARIANT> own(arguments, arguments + count);
        DISPPARAMS parameters{own.data(), nullptr, count, 0};
        EXCEPINFO exception{};
        Variant result;
        try {
            listener.object->Invoke(id, GUID_NULL, 0, DISPATCH_METHOD, &parameters, result.out(), &exception, nullptr);
        } catch (...) {
            // Written in C++ or not, a sink has no business to throw through the interface.
        }
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
    }
}

} // namespace mox
