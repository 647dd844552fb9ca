// Classes that raise events.
#pragma once

#include "automation/objects/connectionpoint.h"
#include "automation/objects/object.h"

namespace mox {

namespace detail {

// One argument of an event as the sinks get it: values are lent, variables of the source pass by reference.
inline VARIANT eventArgument(const String& text) noexcept {
    VARIANT argument{};
    argument.vt = VT_BSTR;
    argument.bstrVal = text.get();
    return argument;
}
template <AutomationValue Value>
requires(std::is_trivially_copyable_v<Value> && !std::is_lvalue_reference_v<Value>) VARIANT eventArgument(Value value)
noexcept {
    VARIANT argument{};
    argument.vt = variantType<Value>;
    new (static_cast<void*>(&argument.llVal)) Value(value);
    return argument;
}
template <AutomationValue Value> VARIANT eventVariable(Value& variable) noexcept {
    VARIANT argument{};
    argument.vt = VT_BYREF | variantType<Value>;
    argument.byref = &variable;
    return argument;
}

} // namespace detail

/// An object with a connection point for the events of its class. The generated adapter adds `raise_<event>` for each event.
template <class Self, std::derived_from<IDispatch> Interface, const typelib::ClassDescription& description>
class EventSource : public Object<Self, Interface, description>, public IConnectionPointContainer {
public:
    HRESULT QueryInterface(REFIID iid, void** result) final { return this->query(iid, result); }
    ULONG AddRef() final { return this->addReference(); }
    ULONG Release() final { return this->releaseReference(); }

    HRESULT EnumConnectionPoints(IEnumConnectionPoints** result) final { return point_.enumerateAlone(result); }
    HRESULT FindConnectionPoint(REFIID iid, IConnectionPoint** result) final {
        if (!result) {
            return E_POINTER;
        }
        *result = nullptr;
        if (iid != description.events->id) {
            return CONNECT_E_NOCONNECTION;
        }
        return point_.QueryInterface(IID_IConnectionPoint, reinterpret_cast<void**>(result));
    }

protected:
    EventSource() : point_(*this, *this, *description.events) {}

    void* findOtherInterface(REFIID iid) noexcept override {
        return iid == IID_IConnectionPointContainer ? static_cast<IConnectionPointContainer*>(this) : nullptr;
    }

    /// Calls every sink with event `id`. What a sink answers, throws or leaves behind does not reach the source, but for
    /// variables that pass by reference.
    template <class... Arguments> void raise(DISPID id, Arguments&&... arguments) {
        VARIANT list[sizeof...(Arguments) + 1];
        std::size_t place = sizeof...(Arguments);
        static_cast<void>(((list[--place] = lend(std::forward<Arguments>(arguments))), ...));
        const Hold hold(*this);
        point_.raise(id, list, sizeof...(Arguments));
    }

private:
    template <class Argument> static VARIANT lend(Argument&& argument) {
        if constexpr (std::is_lvalue_reference_v<Argument> && !std::is_const_v<std::remove_reference_t<Argument>>) {
            return detail::eventVariable(argument);
        } else {
            return detail::eventArgument(argument);
        }
    }

    ConnectionPoint point_;
};

} // namespace mox
