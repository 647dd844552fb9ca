// Thunks: from the variants of a dispatch call to the types of a slot and back, one template for each kind of argument.
#pragma once

#include "automation/typelib/dispatch.h"

#include <mox/values.h>

#include <tuple>
#include <utility>

namespace mox::typelib {

// The parts that need no type at compile time.

/// The variant type of a value of a declared type, or of the elements of an array.
MOX_API VARTYPE variantOf(const TypeReference& type) noexcept;
/// The type that an alias, or an alias of one, stands for; any other type is itself.
MOX_API const TypeReference& behindAliases(const TypeReference& type) noexcept;
/// Converts `value`, whatever it is, to variant type `variant` into `converted`.
MOX_API HRESULT convertArgument(const VARIANT& value, VARTYPE variant, VARIANT& converted) noexcept;
/// The default of a left-out argument as variant type `variant`, for `VT_VARIANT` in the type that it is written in; `VT_EMPTY`
/// where there is none.
MOX_API HRESULT defaultArgument(const Parameter& parameter, VARTYPE variant, VARIANT& converted) noexcept;
/// The default of a left-out variant argument; `missing` where there is none.
MOX_API HRESULT variantDefault(const Parameter& parameter, Variant& result) noexcept;
/// The place that a by-reference argument names, if it is of exactly this type.
MOX_API void* placeOf(VARIANT& argument, VARTYPE variant) noexcept;
/// Where a changed value goes that came by reference under another type: the place's own type or a variant. Takes the value over.
MOX_API HRESULT writeBack(VARIANT& argument, Variant&& value) noexcept;
/// The object in `value` under the interface `iid`, with a reference; Nothing gives null.
MOX_API HRESULT objectArgument(const VARIANT& value, REFIID iid, void** result) noexcept;
/// The value of a record argument of type `record`; an error if it is something else.
MOX_API HRESULT recordArgument(const VARIANT& value, const RecordDescription& record, void** result) noexcept;
/// The slot of an array argument whose elements are of the declared type; for a variant that is empty, a slot of `own`.
MOX_API HRESULT arrayArgument(VARIANT& value, const TypeReference& type, SAFEARRAY*& own, SAFEARRAY*** result) noexcept;
/// A new record of type `record` in `result`, and the place of its value.
MOX_API HRESULT recordResult(const RecordDescription& record, VARIANT& result, void** place) noexcept;

/// The variant type of a slot's type.
template <class T> inline constexpr VARTYPE slotType = variantType<T>;
template <> inline constexpr VARTYPE slotType<BSTR> = VT_BSTR;

/// An argument of a slot of type `T`: `load` before the call, `pass` for it, `store` after it.
template <class T> class Argument;

/// A plain value or a text passed by value.
template <class T> class ValueArgument {
public:
    HRESULT load(Call& call, unsigned index) noexcept {
        VARIANT* const given = call.argument(index);
        if (given && given->vt == slotType<T>) [[likely]] {
            value_ = reinterpret_cast<const T&>(given->llVal);
            return S_OK;
        }
        if (given) {
            if (const void* place = placeOf(*given, slotType<T>)) {
                value_ = *static_cast<const T*>(place);
                return S_OK;
            }
        }
        const HRESULT status = given ? convertArgument(*given, slotType<T>, converted_)
                                     : defaultArgument(call.parameter(index), slotType<T>, converted_);
        if (FAILED(status)) {
            return call.failed(index, status);
        }
        value_ = reinterpret_cast<const T&>(converted_.llVal);
        return S_OK;
    }
    T pass() noexcept { return value_; }
    HRESULT store(Call&, unsigned) noexcept { return S_OK; }

private:
    T value_{};
    Variant converted_;
};

template <class T> class Argument : public ValueArgument<T> {};
template <> class Argument<BSTR> : public ValueArgument<BSTR> {};

/// A plain value or a text passed by reference.
template <class T> class Argument<T*> {
public:
    HRESULT load(Call& call, unsigned index) noexcept {
        VARIANT* const given = call.argument(index);
        if (given) {
            place_ = static_cast<T*>(placeOf(*given, slotType<T>));
            if (place_) {
                return S_OK;
            }
        }
        const HRESULT status =
            given ? convertArgument(*given, slotType<T>, own_) : defaultArgument(call.parameter(index), slotType<T>, own_);
        if (FAILED(status)) {
            return call.failed(index, status);
        }
        own_.vt = slotType<T>;
        place_ = reinterpret_cast<T*>(&own_.llVal);
        return S_OK;
    }
    T* pass() noexcept { return place_; }
    HRESULT store(Call& call, unsigned index) noexcept {
        VARIANT* const given = call.argument(index);
        if (own_.vt == VT_EMPTY || !given || !(given->vt & VT_BYREF)) {
            return S_OK;
        }
        const HRESULT status = writeBack(*given, std::move(own_));
        return FAILED(status) ? call.failed(index, status) : S_OK;
    }

private:
    T* place_ = nullptr;
    Variant own_;
};

template <class T>
concept InterfaceType = std::derived_from<T, IUnknown>;

/// An object passed by value.
template <InterfaceType I> class Argument<I*> {
public:
    HRESULT load(Call& call, unsigned index) noexcept {
        const VARIANT* const given = call.argument(index);
        if (!given) {
            return S_OK; // an optional object defaults to Nothing
        }
        const HRESULT status = objectArgument(*given, interfaceId<I>, reinterpret_cast<void**>(object_.out()));
        return FAILED(status) ? call.failed(index, status) : S_OK;
    }
    I* pass() noexcept { return object_.get(); }
    HRESULT store(Call&, unsigned) noexcept { return S_OK; }

private:
    Ref<I> object_;
};

/// An object passed by reference.
template <InterfaceType I> class Argument<I**> {
public:
    HRESULT load(Call& call, unsigned index) noexcept {
        VARIANT* const given = call.argument(index);
        if (!given) {
            return S_OK;
        }
        const HRESULT status = objectArgument(*given, interfaceId<I>, reinterpret_cast<void**>(object_.out()));
        return FAILED(status) ? call.failed(index, status) : S_OK;
    }
    I** pass() noexcept { return &reinterpret_cast<I*&>(object_); }
    HRESULT store(Call& call, unsigned index) noexcept {
        VARIANT* const given = call.argument(index);
        if (!given || !(given->vt & VT_BYREF)) {
            return S_OK;
        }
        const HRESULT status = writeBack(*given, Variant(Ref<IDispatch>(std::move(object_))));
        return FAILED(status) ? call.failed(index, status) : S_OK;
    }

private:
    Ref<I> object_;
};

/// A record, always passed by reference.
template <Record R> class Argument<R*> {
public:
    HRESULT load(Call& call, unsigned index) noexcept {
        const VARIANT* const given = call.argument(index);
        if (!given) {
            place_ = &own_;
            return S_OK;
        }
        const auto& record = static_cast<const RecordDescription&>(*behindAliases(call.parameter(index).type).type);
        const HRESULT status = recordArgument(*given, record, &place_);
        return FAILED(status) ? call.failed(index, status) : S_OK;
    }
    R* pass() noexcept { return static_cast<R*>(place_); }
    HRESULT store(Call&, unsigned) noexcept { return S_OK; }

private:
    void* place_ = nullptr;
    R own_;
};

/// An array, always passed by reference.
template <> class Argument<SAFEARRAY**> {
public:
    ~Argument() { SafeArrayDestroy(own_); }
    HRESULT load(Call& call, unsigned index) noexcept {
        VARIANT* const given = call.argument(index);
        if (!given) {
            slot_ = &own_;
            return S_OK;
        }
        const HRESULT status = arrayArgument(*given, call.parameter(index).type, own_, &slot_);
        return FAILED(status) ? call.failed(index, status) : S_OK;
    }
    SAFEARRAY** pass() noexcept { return slot_; }
    HRESULT store(Call& call, unsigned index) noexcept {
        VARIANT* const given = call.argument(index);
        if (slot_ != &own_ || !given || !own_ || !(given->vt & VT_BYREF)) {
            return S_OK;
        }
        Variant array;
        array.vt = static_cast<VARTYPE>(VT_ARRAY | variantOf(call.parameter(index).type));
        array.parray = std::exchange(own_, nullptr);
        return writeBack(*given, std::move(array));
    }

private:
    SAFEARRAY* own_ = nullptr;
    SAFEARRAY** slot_ = nullptr;
};

/// A variant passed by value.
template <> class Argument<VARIANT> {
public:
    HRESULT load(Call& call, unsigned index) noexcept {
        const VARIANT* const given = call.argument(index);
        if (!given) {
            const HRESULT status = variantDefault(call.parameter(index), default_);
            value_ = default_;
            return FAILED(status) ? call.failed(index, status) : S_OK;
        }
        const bool isWrapped = given->vt == (VT_BYREF | VT_VARIANT);
        if (isWrapped && !given->pvarVal) {
            return call.failed(index, DISP_E_TYPEMISMATCH);
        }
        value_ = isWrapped ? *given->pvarVal : *given;
        return S_OK;
    }
    VARIANT pass() noexcept { return value_; }
    HRESULT store(Call&, unsigned) noexcept { return S_OK; }

private:
    VARIANT value_{}; // borrowed
    Variant default_;
};

/// A variant passed by reference.
template <> class Argument<VARIANT*> {
public:
    HRESULT load(Call& call, unsigned index) noexcept {
        const VARIANT* const given = call.argument(index);
        if (given && given->vt == (VT_BYREF | VT_VARIANT)) {
            place_ = given->pvarVal;
            return place_ ? S_OK : call.failed(index, DISP_E_TYPEMISMATCH);
        }
        // The member may change what it gets, but a value stays the caller's.
        const HRESULT status = given ? VariantCopyInd(&own_, given) : variantDefault(call.parameter(index), own_);
        place_ = &own_;
        return FAILED(status) ? call.failed(index, status) : S_OK;
    }
    VARIANT* pass() noexcept { return place_; }
    HRESULT store(Call& call, unsigned index) noexcept {
        VARIANT* const given = call.argument(index);
        if (place_ != &own_ || !given || !(given->vt & VT_BYREF)) {
            return S_OK;
        }
        const HRESULT status = writeBack(*given, std::move(own_));
        return FAILED(status) ? call.failed(index, status) : S_OK;
    }

private:
    VARIANT* place_ = nullptr;
    Variant own_;
};

/// The place of a result, and its way into the caller's variant.
template <class Place> class Result;

template <class T> class Result<T*> {
public:
    ~Result() {
        if constexpr (std::is_same_v<T, BSTR>) {
            SysFreeString(value_);
        }
    }
    HRESULT load(Call&, unsigned) noexcept { return S_OK; }
    T* pass() noexcept { return &value_; }
    HRESULT store(Call& call, unsigned) noexcept {
        if (VARIANT* result = call.result()) {
            new (static_cast<void*>(&result->llVal)) T(std::exchange(value_, T{}));
            result->vt = slotType<T>;
        }
        return S_OK;
    }

private:
    T value_{};
};

template <InterfaceType I> class Result<I**> {
public:
    HRESULT load(Call&, unsigned) noexcept { return S_OK; }
    I** pass() noexcept { return object_.out(); }
    HRESULT store(Call& call, unsigned) noexcept {
        if (VARIANT* result = call.result()) {
            if constexpr (std::derived_from<I, IDispatch>) {
                result->pdispVal = object_.detach();
                result->vt = VT_DISPATCH;
            } else {
                result->punkVal = object_.detach();
                result->vt = VT_UNKNOWN;
            }
        }
        return S_OK;
    }

private:
    Ref<I> object_;
};

template <Record R> class Result<R*> {
public:
    HRESULT load(Call&, unsigned) noexcept { return S_OK; }
    R* pass() noexcept { return &value_; }
    HRESULT store(Call& call, unsigned) noexcept {
        if (!call.result()) {
            return S_OK;
        }
        void* place = nullptr;
        const auto& record = static_cast<const RecordDescription&>(*behindAliases(call.member().result).type);
        const HRESULT status = recordResult(record, *call.result(), &place);
        if (SUCCEEDED(status)) {
            *static_cast<R*>(place) = std::move(value_);
        }
        return status;
    }

private:
    R value_;
};

template <> class Result<SAFEARRAY**> {
public:
    ~Result() { SafeArrayDestroy(array_); }
    HRESULT load(Call&, unsigned) noexcept { return S_OK; }
    SAFEARRAY** pass() noexcept { return &array_; }
    HRESULT store(Call& call, unsigned) noexcept {
        if (VARIANT* result = call.result()) {
            result->parray = std::exchange(array_, nullptr);
            result->vt = static_cast<VARTYPE>(VT_ARRAY | variantOf(call.member().result));
        }
        return S_OK;
    }

private:
    SAFEARRAY* array_ = nullptr;
};

template <> class Result<VARIANT*> {
public:
    HRESULT load(Call&, unsigned) noexcept { return S_OK; }
    VARIANT* pass() noexcept { return &value_; }
    HRESULT store(Call& call, unsigned) noexcept {
        if (VARIANT* result = call.result()) {
            *result = value_.detach();
        }
        return S_OK;
    }

private:
    Variant value_;
};

/// Calls the slot `method`. With `hasResult` its last argument is the place of the result.
template <auto method, bool hasResult> struct SlotThunk;

template <class Interface, class... Arguments, HRESULT (Interface::*method)(Arguments...), bool hasResult>
struct SlotThunk<method, hasResult> {
    static HRESULT invoke(void* object, Call& call) { return invokeWith(object, call, std::index_sequence_for<Arguments...>()); }

private:
    template <std::size_t index, class T>
    using Slot = std::conditional_t<hasResult && index + 1 == sizeof...(Arguments), Result<T>, Argument<T>>;

    template <std::size_t... indexes> static HRESULT invokeWith(void* object, Call& call, std::index_sequence<indexes...>) {
        std::tuple<Slot<indexes, Arguments>...> slots;
        HRESULT status = S_OK;
        if (!(SUCCEEDED(status = std::get<indexes>(slots).load(call, indexes)) && ...)) {
            return status;
        }
        status = (static_cast<Interface*>(object)->*method)(std::get<indexes>(slots).pass()...);
        if (FAILED(status)) {
            call.setRaised();
            return status;
        }
        static_cast<void>((SUCCEEDED(status = std::get<indexes>(slots).store(call, indexes)) && ...));
        return status;
    }
};

} // namespace mox::typelib
