// Which variant type belongs to which value type.
#pragma once

#include <mox/abi/functions.h>
#include <mox/values/basic.h>
#include <mox/values/ref.h>
#include <mox/values/status.h>
#include <mox/values/string.h>

#include <type_traits>

namespace mox {

class Variant;
template <class Element> class Array;

/// Where a record type comes from. The compiler of the type library specialises it for each record with the members
/// `library`, `major`, `minor` and `id`.
template <class Record> struct RecordTraits;

template <class T>
concept Record = requires {
    RecordTraits<T>::id;
};

/// The description of a record type, from the type library that is loaded in this process.
template <Record T> Ref<IRecordInfo> recordInfo() {
    Ref<IRecordInfo> info;
    succeed(GetRecordInfoFromGuids(RecordTraits<T>::library, RecordTraits<T>::major, RecordTraits<T>::minor, 0,
                                   RecordTraits<T>::id, info.out()));
    return info;
}

/// The variant type of a value type; VT_VOID for what is none.
template <class T> inline constexpr VARTYPE variantType = std::is_enum_v<T> ? VT_I4 : Record<T> ? VT_RECORD : VT_VOID;
template <> inline constexpr VARTYPE variantType<Long> = VT_I4;
template <> inline constexpr VARTYPE variantType<Integer> = VT_I2;
template <> inline constexpr VARTYPE variantType<Byte> = VT_UI1;
template <> inline constexpr VARTYPE variantType<Single> = VT_R4;
template <> inline constexpr VARTYPE variantType<Double> = VT_R8;
template <> inline constexpr VARTYPE variantType<Boolean> = VT_BOOL;
template <> inline constexpr VARTYPE variantType<Date> = VT_DATE;
template <> inline constexpr VARTYPE variantType<Currency> = VT_CY;
template <> inline constexpr VARTYPE variantType<String> = VT_BSTR;
template <> inline constexpr VARTYPE variantType<Variant> = VT_VARIANT;
template <> inline constexpr VARTYPE variantType<Ref<IUnknown>> = VT_UNKNOWN;
template <std::derived_from<IDispatch> Interface> inline constexpr VARTYPE variantType<Ref<Interface>> = VT_DISPATCH;
template <class Element> inline constexpr VARTYPE variantType<Array<Element>> = VT_ARRAY | variantType<Element>;

template <class T>
concept AutomationValue = variantType<T>
!= VT_VOID;

} // namespace mox
