// The base of the smart pointers that the client headers are made of.
#pragma once

#include <mox/client/error.h>

#include <utility>

namespace mox {

/// An argument by reference: names a variable of the caller, which the call may change, or holds a plain value, whose change is
/// lost.
template <class Value> class InOut {
public:
    InOut(Value& place) noexcept : place_(&place) {}
    InOut(InOut&& other) noexcept : own_(std::move(other.own_)), place_(other.place_ == &other.own_ ? &own_ : other.place_) {}
    template <class Given>
    requires std::convertible_to<Given, Value> &&(!std::same_as<Given, Value&>)InOut(Given&& value)
        : own_(static_cast<Value>(std::forward<Given>(value))), place_(&own_) {}
    Value& value() noexcept { return *place_; }

private:
    Value own_{};
    Value* place_;
};

/// Runs the calling thread's message loop for so many milliseconds: timers fire, events arrive.
inline void pump(UINT milliseconds);

namespace client {

// The place of a value as a slot takes it.
template <class Value> Value* slot(Value& value) {
    return &value;
}
inline BSTR* slot(String& value) {
    return reinterpret_cast<BSTR*>(&value);
}
inline VARIANT* slot(Variant& value) {
    return &value;
}
template <class Interface> Interface** slot(Ref<Interface>& value) {
    return reinterpret_cast<Interface**>(&value);
}
template <class Element> SAFEARRAY** slot(Array<Element>& value) {
    return reinterpret_cast<SAFEARRAY**>(&value);
}
template <class Value> auto slot(InOut<Value>& argument) {
    return slot(argument.value());
}

/// The calling thread takes part in Automation from its first object on, to its end.
inline void joinApartment() {
    static thread_local const HRESULT joined = CoInitialize(nullptr);
    client::succeed(joined);
}

/// A counted pointer to an object under its default interface. Calling through an empty one throws error 91.
template <class Interface> class ObjectPointer {
public:
    ObjectPointer() = default;
    ObjectPointer(std::nullptr_t) {}
    explicit ObjectPointer(Ref<Interface> object) : object_(std::move(object)) {}

    Interface* get() const noexcept { return object_.get(); }
    explicit operator bool() const noexcept { return static_cast<bool>(object_); }
    friend bool operator==(const ObjectPointer& a, const ObjectPointer& b) noexcept { return a.object_ == b.object_; }

protected:
    Interface& raw() const {
        if (!object_) [[unlikely]] {
            raise(statusOfRuntimeError(91), nullptr, IID_IUnknown);
        }
        return *object_;
    }
    void check(HRESULT status) const {
        if (FAILED(status)) [[unlikely]] {
            raise(status, object_.get(), interfaceId<Interface>);
        }
    }

    static Ref<Interface> createInstance(REFCLSID id) {
        joinApartment();
        void* object = nullptr;
        client::succeed(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, interfaceId<Interface>, &object));
        return Ref<Interface>::attach(static_cast<Interface*>(object));
    }

private:
    Ref<Interface> object_;
};

/// An object whose members are called by identifier.
template <class Interface> class DispatchPointer : public ObjectPointer<Interface> {
public:
    using ObjectPointer<Interface>::ObjectPointer;

protected:
    template <class Result, class... Arguments> Result invoke(DISPID id, WORD flags, Arguments&&... arguments) const {
        // Last argument first, as the call wants them.
        Variant given[sizeof...(Arguments) + 1];
        std::size_t place = sizeof...(Arguments);
        static_cast<void>(((given[--place] = Variant(std::forward<Arguments>(arguments))), ...));
        DISPID value = DISPID_PROPERTYPUT;
        const bool put = flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
        DISPPARAMS parameters{given, put ? &value : nullptr, sizeof...(Arguments), put ? 1u : 0u};
        Variant result;
        EXCEPINFO exception{};
        const HRESULT status =
            this->raw().Invoke(id, GUID_NULL, 0, flags, &parameters, put ? nullptr : result.out(), &exception, nullptr);
        const String source = String::attach(exception.bstrSource);
        const String description = String::attach(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
        if (status == DISP_E_EXCEPTION) {
            throw Error(exception.scode, description, source);
        }
        this->check(status);
        if constexpr (!std::is_void_v<Result>) {
            return result.as<Result>();
        }
    }
};

} // namespace client
inline void pump(UINT milliseconds) {
    client::succeed(MoxPump(milliseconds));
}

} // namespace mox
