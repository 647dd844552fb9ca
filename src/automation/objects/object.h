// The base of every class: identity, dispatch, errors, and the uniform way from a call to a member.
#pragma once

#include "automation/objects/objectcore.h"
#include "automation/objects/runtimeerror.h"
#include "automation/typelib/dispatch.h"

#include <mox/values.h>

#include <memory>
#include <type_traits>

namespace mox {

/// Implements `Interface`, the default interface of the class `description`, for the class `Self`. The compiler of the type
/// library derives an adapter from it for each class, which brings every slot to the natural C++ member of the same name.
template <class Self, std::derived_from<IDispatch> Interface, const typelib::ClassDescription& description>
class Object : public ObjectCore, public Interface, public ISupportErrorInfo, public IProvideClassInfo2 {
public:
    HRESULT QueryInterface(REFIID iid, void** result) override { return query(iid, result); }
    ULONG AddRef() override { return addReference(); }
    ULONG Release() override { return releaseReference(); }

    HRESULT GetTypeInfoCount(UINT* count) final {
        if (!count) {
            return E_POINTER;
        }
        *count = 1;
        return S_OK;
    }
    HRESULT GetTypeInfo(UINT index, LCID, ITypeInfo** result) final {
        return index == 0 ? typelib::getTypeInfo(*description.defaultInterface, result) : DISP_E_BADINDEX;
    }
    HRESULT GetIDsOfNames(REFIID riid, LPOLESTR* names, UINT count, LCID, DISPID* ids) final {
        return isOnOwnThread() ? typelib::getIdsOfNames(*description.defaultInterface, riid, names, count, ids)
                               : RPC_E_WRONG_THREAD;
    }
    HRESULT Invoke(DISPID id, REFIID riid, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                   UINT* badArgument) final {
        if (!isOnOwnThread()) {
            return reportPlainStatus(RPC_E_WRONG_THREAD);
        }
        const Hold hold(*this);
        return typelib::invoke(*description.defaultInterface, static_cast<Interface*>(this), id, riid, flags, parameters, result,
                               exception, badArgument);
    }

    HRESULT InterfaceSupportsErrorInfo(REFIID iid) final { return iid == description.defaultInterface->id ? S_OK : S_FALSE; }
    HRESULT GetClassInfo(ITypeInfo** result) final { return typelib::getTypeInfo(description, result); }
    HRESULT GetGUID(DWORD kind, GUID* result) final {
        if (!result) {
            return E_POINTER;
        }
        *result = description.events ? description.events->id : GUID_NULL;
        return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID && description.events ? S_OK : E_INVALIDARG;
    }

protected:
    using Base = Object;
    static constexpr const typelib::ClassDescription& classDescription = description;

    Object() : ObjectCore(description.library.state) {}

    /// Interfaces beyond the standard ones that a class offers.
    virtual void* findOtherInterface(REFIID) noexcept { return nullptr; }

    IUnknown* identity() noexcept final { return static_cast<Interface*>(this); }

    HRESULT query(REFIID iid, void** result) noexcept {
        if (!result) {
            return E_POINTER;
        }
        *result = nullptr;
        if (!isOnOwnThread()) {
            return RPC_E_WRONG_THREAD;
        }
        void* const found = findInterface(iid);
        if (!found) {
            return E_NOINTERFACE;
        }
        addReference();
        *result = found;
        return S_OK;
    }

    /// Calls a member that has no result.
    template <class Function> HRESULT call(Function&& function) noexcept {
        if (!isOnOwnThread()) [[unlikely]] {
            return reportPlainStatus(RPC_E_WRONG_THREAD);
        }
        const Hold hold(*this);
        try {
            function(static_cast<Self&>(*this));
            return S_OK;
        } catch (...) {
            return reportCurrentException(description);
        }
    }

    /// Calls a member and moves what it returns into the result place, which is cleared before.
    template <class Place, class Function> HRESULT call(Place* result, Function&& function) noexcept {
        if (!result) [[unlikely]] {
            return reportPlainStatus(E_POINTER);
        }
        new (static_cast<void*>(result)) Place();
        return call([&](Self& self) { giveResult(*result, function(self)); });
    }

private:
    template <class Place, class Value> static void giveResult(Place& place, Value&& value) {
        if constexpr (requires { value.detach(); }) {
            place = value.detach();
        } else {
            place = std::forward<Value>(value);
        }
    }

    void* findInterface(REFIID iid) noexcept {
        if (iid == description.defaultInterface->id || iid == IID_IUnknown || iid == IID_IDispatch) {
            return static_cast<Interface*>(this);
        }
        if (iid == IID_ISupportErrorInfo) {
            return static_cast<ISupportErrorInfo*>(this);
        }
        if (iid == IID_IProvideClassInfo || iid == IID_IProvideClassInfo2) {
            return static_cast<IProvideClassInfo2*>(this);
        }
        if (iid == objectCoreId) {
            return static_cast<ObjectCore*>(this);
        }
        return findOtherInterface(iid);
    }
};

/// The adapter that the compiler of the type library made for a class; specialised in the generated headers.
template <class Class> struct AdapterOf;

/// What a class derives from: `class moxVarLong final : public Implements<moxVarLong>`.
template <class Class> using Implements = typename AdapterOf<Class>::type;

/// A new object of a class, under its default interface.
template <class Class, class... Arguments> auto makeObject(Arguments&&... arguments) {
    using Interface = typename AdapterOf<Class>::interface;
    return Ref<Interface>::attach(std::make_unique<Class>(std::forward<Arguments>(arguments)...).release());
}

/// The object of class `Class` behind an interface pointer of any of its interfaces, borrowed; null if it is of another class or
/// of somebody else.
template <class Class> Class* implementationOf(IUnknown* object) noexcept {
    return object ? dynamic_cast<Class*>(ObjectCore::of(*object)) : nullptr;
}

// ---- arguments as the members of a class take them

/// A text passed by value: the caller's, to read.
inline const String& byValue(const BSTR& text) noexcept {
    return reinterpret_cast<const String&>(text);
}
inline const Variant& byValue(const VARIANT& value) noexcept {
    return static_cast<const Variant&>(value);
}

/// An argument passed by reference. A null pointer fails the call with `E_POINTER`.
template <class Value> Value& byReference(Value* place) {
    if (!place) {
        throw StatusError(E_POINTER);
    }
    return *place;
}
inline String& byReference(BSTR* place) {
    return reinterpret_cast<String&>(byReference<BSTR>(place));
}
inline Variant& byReference(VARIANT* place) {
    return static_cast<Variant&>(byReference<VARIANT>(place));
}
template <std::derived_from<IUnknown> Interface> Ref<Interface>& byReference(Interface** place) {
    return reinterpret_cast<Ref<Interface>&>(byReference<Interface*>(place));
}

/// Fails with `DISP_E_TYPEMISMATCH` for elements of another type than `variant`, with `DISP_E_BADINDEX` for more dimensions than
/// one.
MOX_API void checkArray(SAFEARRAY* array, VARTYPE variant, const GUID* record);

/// An array passed by reference; no array counts as an empty one.
template <class Element> Array<Element>& arrayByReference(SAFEARRAY** place) {
    SAFEARRAY*& array = byReference<SAFEARRAY*>(place);
    if (array) {
        if constexpr (Record<Element>) {
            checkArray(array, VT_RECORD, &RecordTraits<Element>::id);
        } else {
            checkArray(array, variantType<Element>, nullptr);
        }
    }
    return reinterpret_cast<Array<Element>&>(array);
}

} // namespace mox
