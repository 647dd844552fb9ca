// Events by function objects.
#pragma once

#include <mox/client/object.h>
#include <mox/sharedobject.h>

#include <functional>

namespace mox {

/// A connection to an object's events. It ends with this object, or by `disconnect`.
class [[nodiscard]] Connection {
public:
    Connection() = default;
    Connection(Ref<IConnectionPoint> point, DWORD cookie) : point_(std::move(point)), cookie_(cookie) {}
    Connection(Connection&& other) noexcept : point_(std::move(other.point_)), cookie_(other.cookie_) {}
    Connection& operator=(Connection other) noexcept {
        std::swap(point_, other.point_);
        std::swap(cookie_, other.cookie_);
        return *this;
    }
    ~Connection() { disconnect(); }

    void disconnect() noexcept {
        if (const Ref<IConnectionPoint> point = std::move(point_)) {
            point->Unadvise(cookie_);
        }
    }

private:
    Ref<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

namespace client {

/// The arguments of one event, for a handler of matching signature.
class EventArguments {
public:
    explicit EventArguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

    template <class... Arguments> HRESULT deliver(const std::function<void(Arguments...)>& handler) const {
        if (!handler) {
            return S_OK;
        }
        if (parameters_.cArgs != sizeof...(Arguments)) {
            return DISP_E_BADPARAMCOUNT;
        }
        return deliver(handler, std::index_sequence_for<Arguments...>());
    }

private:
    template <class... Arguments, std::size_t... indexes>
    HRESULT deliver(const std::function<void(Arguments...)>& handler, std::index_sequence<indexes...>) const {
        handler(argument<Arguments>(indexes)...);
        return S_OK;
    }

    /// What a handler's argument binds to: the source's own place for a reference that may be written, else a value.
    template <class Argument>
    using Given =
        std::conditional_t<std::is_same_v<Argument, std::remove_cvref_t<Argument>&>, Argument, std::remove_cvref_t<Argument>>;

    template <class Argument> Given<Argument> argument(std::size_t index) const {
        using Value = std::remove_cvref_t<Argument>;
        VARIANT& given = parameters_.rgvarg[parameters_.cArgs - 1 - index];
        if constexpr (std::is_reference_v<Given<Argument>>) {
            if (given.vt != (VT_BYREF | variantType<Value>) || !given.byref) {
                throw StatusError(DISP_E_TYPEMISMATCH);
            }
            return *static_cast<Value*>(given.byref);
        } else {
            return Variant(given).as<Value>();
        }
    }

    const DISPPARAMS& parameters_;
};

/// What a source calls: passes each event to the handlers through `deliver(handlers, identifier, arguments)`, which is generated
/// for each event interface.
template <class Handlers> class EventSink final : public SharedObject<IDispatch> {
public:
    EventSink(Handlers handlers, REFIID events) : handlers_(std::move(handlers)), events_(events) {}

    HRESULT GetTypeInfoCount(UINT* count) override {
        if (!count) {
            return E_POINTER;
        }
        *count = 0;
        return S_OK;
    }
    HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    HRESULT Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*, UINT*) override {
        try {
            return parameters ? deliver(handlers_, id, EventArguments(*parameters)) : E_INVALIDARG;
        } catch (const StatusError& error) {
            return error.status();
        } catch (...) {
            return E_FAIL;
        }
    }

protected:
    void* findOtherInterface(REFIID iid) noexcept override { return iid == events_ ? static_cast<IDispatch*>(this) : nullptr; }

private:
    const Handlers handlers_;
    const IID events_;
};

/// Connects handlers to the events `events` of an object.
template <class Handlers> Connection connect(IUnknown* source, REFIID events, Handlers handlers) {
    const auto container = Ref<IUnknown>(source).as<IConnectionPointContainer>();
    Ref<IConnectionPoint> point;
    client::succeed(container ? container->FindConnectionPoint(events, point.out()) : E_NOINTERFACE);
    const auto sink = makeShared<IDispatch, EventSink<Handlers>>(std::move(handlers), events);
    DWORD cookie = 0;
    client::succeed(point->Advise(sink.get(), &cookie));
    return Connection(std::move(point), cookie);
}

} // namespace client
} // namespace mox
