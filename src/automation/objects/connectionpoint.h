// The place where the listeners of one object connect.
#pragma once

#include "automation/objects/export.h"
#include "automation/objects/objectcore.h"

#include <mox/values.h>

#include <vector>

namespace mox {

/// The connection point of a source for its one event interface. Part of the source: it shares the source's count of references,
/// but is an object of its own to those who ask for interfaces.
class MOX_API ConnectionPoint final : public IConnectionPoint {
public:
    ConnectionPoint(ObjectCore& source, IConnectionPointContainer& container, const typelib::InterfaceDescription& events)
        : source_(source), container_(container), events_(events) {}

    HRESULT QueryInterface(REFIID iid, void** result) override;
    ULONG AddRef() override { return source_.addReference(); }
    ULONG Release() override { return source_.releaseReference(); }

    HRESULT GetConnectionInterface(IID* result) override;
    HRESULT GetConnectionPointContainer(IConnectionPointContainer** result) override;
    HRESULT Advise(IUnknown* sink, DWORD* cookie) override;
    HRESULT Unadvise(DWORD cookie) override;
    HRESULT EnumConnections(IEnumConnections** result) override;

    /// An enumerator over this one connection point.
    HRESULT enumerateAlone(IEnumConnectionPoints** result);

    /// Calls every sink that is connected when the event begins and has not left before its turn, in the order of connection.
    void raise(DISPID id, const VARIANT* arguments, UINT count) noexcept;

private:
    struct Sink {
        DWORD cookie;
        Ref<IDispatch> object;
    };

    ObjectCore& source_;
    IConnectionPointContainer& container_;
    const typelib::InterfaceDescription& events_;
    std::vector<Sink> sinks_;
    DWORD lastCookie_ = 0;
};

} // namespace mox
