// A value that carries its type.
#pragma once

#include <mox/values/array.h>

#include <cstring>

namespace mox {

/// Owns what a VARIANT holds and has its layout.
class Variant : public VARIANT {
public:
    Variant() noexcept : VARIANT{} {}
    template <class Value>
    requires(AutomationValue<std::remove_cvref_t<Value>> && !std::derived_from<std::remove_cvref_t<Value>, VARIANT>)
        Variant(Value&& value)
        : VARIANT{} {
        set(std::remove_cvref_t<Value>(std::forward<Value>(value)));
    }
    Variant(const char16_t* text) : Variant(String(text)) {}
    Variant(const VARIANT& other) : VARIANT{} { succeed(VariantCopy(this, &other)); }
    Variant(const Variant& other) : Variant(static_cast<const VARIANT&>(other)) {}
    Variant(Variant&& other) noexcept : VARIANT(other.detach()) {}
    ~Variant() {
        if (vt > VT_DATE) { // the types up to there own nothing
            VariantClear(this);
        }
    }
    Variant& operator=(Variant other) noexcept {
        std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
        return *this;
    }

    /// An argument that is left out.
    static Variant missing() {
        Variant result;
        result.vt = VT_ERROR;
        result.scode = DISP_E_PARAMNOTFOUND;
        return result;
    }
    /// Takes over what a VARIANT owns.
    static Variant attach(const VARIANT& value) noexcept {
        Variant result;
        static_cast<VARIANT&>(result) = value;
        return result;
    }
    VARIANT detach() noexcept {
        VARIANT value = *this;
        vt = VT_EMPTY;
        return value;
    }
    VARIANT* out() noexcept {
        VariantClear(this);
        return this;
    }

    bool empty() const noexcept { return vt == VT_EMPTY; }

    /// The value as another type, converted where that is possible. Throws `StatusError` where it is not.
    template <class Value> Value as() const {
        Variant converted;
        if constexpr (Record<Value> || (variantType<Value> & VT_ARRAY) != 0) {
            succeed(VariantCopyInd(&converted, this));
            if (converted.vt != variantType<Value>) {
                throw StatusError(DISP_E_TYPEMISMATCH);
            }
        } else {
            succeed(VariantChangeType(&converted, this, 0, variantType<Value>));
        }
        return converted.take<Value>();
    }

private:
    template <class Value> void set(Value&& value) {
        if constexpr (Record<Value>) {
            Ref<IRecordInfo> info = recordInfo<Value>();
            auto* place = static_cast<Value*>(info->RecordCreate());
            if (!place) {
                throw std::bad_alloc();
            }
            *place = std::move(value);
            pvRecord = place;
            pRecInfo = info.detach();
        } else {
            // All others lie in the data part, in their own layout.
            static_assert(sizeof(Value) <= sizeof(llVal));
            new (static_cast<void*>(&llVal)) Value(std::move(value));
        }
        vt = variantType<Value>;
    }

    template <class Value> Value take() {
        if constexpr (Record<Value>) {
            if (!pvRecord || !pRecInfo || !pRecInfo->IsMatchingType(recordInfo<Value>().get())) {
                throw StatusError(DISP_E_TYPEMISMATCH);
            }
            return std::move(*static_cast<Value*>(pvRecord));
        } else {
            Value value;
            static_assert(sizeof(Value) <= sizeof(llVal));
            std::memcpy(static_cast<void*>(&value), &llVal, sizeof(Value));
            vt = VT_EMPTY;
            return value;
        }
    }
};
static_assert(sizeof(Variant) == sizeof(VARIANT));

} // namespace mox
