// A small library with one of everything, written by hand, and objects of its classes.
#pragma once

#include "automation/objects/object.h"
#include "automation/typelib/description.h"

#include <mox/values.h>

namespace mox::sample {

extern typelib::LibraryState sampleState;
extern typelib::LibraryState otherState;

// ---- the second library, whose types the first one uses

extern const typelib::LibraryDescription otherLibrary;
extern const typelib::AliasDescription otherColour; // Long

// ---- types

enum SampleKind : Long { kindNone = 0, kindRound = 1, kindSquare = 2, kindLast = -1 };

struct SamplePoint {
    Long X = 0;
    Long Y = 0;
    friend bool operator==(const SamplePoint&, const SamplePoint&) = default;
};

struct SampleRecord {
    String Name;
    Array<Long> Values;
    SamplePoint Position;
    Boolean Visible;
    SampleKind Kind = kindNone;
    Variant Anything;
    Ref<IDispatch> Object;
    Array<SamplePoint> Corners;
    Long Colour = 0;
};

} // namespace mox::sample

template <> struct mox::RecordTraits<mox::sample::SamplePoint> {
    static constexpr GUID library{0x5A3B1E00, 0x1111, 0x4222, {0x83, 0x33, 1, 2, 3, 4, 5, 6}};
    static constexpr ULONG major = 2;
    static constexpr ULONG minor = 3;
    static constexpr GUID id{0x5A3B1E01, 0x1111, 0x4222, {0x83, 0x33, 1, 2, 3, 4, 5, 6}};
};
template <> struct mox::RecordTraits<mox::sample::SampleRecord> : mox::RecordTraits<mox::sample::SamplePoint> {
    static constexpr GUID id{0x5A3B1E02, 0x1111, 0x4222, {0x83, 0x33, 1, 2, 3, 4, 5, 6}};
};

namespace mox::sample {

// ---- interfaces

struct ISampleItems : IDispatch {
    virtual HRESULT get_Item(Long Index, BSTR* result) = 0; // the default member
    virtual HRESULT get_Count(Long* result) = 0;
};

struct ISample : IDispatch {
    virtual HRESULT get_Name(BSTR* result) = 0;
    virtual HRESULT put_Name(BSTR Value) = 0;
    virtual HRESULT get_Anything(VARIANT* result) = 0;
    virtual HRESULT put_Anything(VARIANT Value) = 0;
    virtual HRESULT putref_Anything(IDispatch* Value) = 0;
    virtual HRESULT get_Cell(Long Row, Long Column, Long* result) = 0;
    virtual HRESULT put_Cell(Long Row, Long Column, Long Value) = 0;
    virtual HRESULT get_Items(ISampleItems** result) = 0;
    virtual HRESULT get__NewEnum(IUnknown** result) = 0;
    virtual HRESULT MinMax(Long LongValue, Long MinValue, Long MaxValue, Long* result) = 0;
    virtual HRESULT Add(Long A, Long B, Long* result) = 0;
    virtual HRESULT Describe(BSTR Text, BSTR Suffix, Boolean Upper, Single Factor, SampleKind Kind, IDispatch* Object,
                             VARIANT Extra, BSTR* result) = 0;
    virtual HRESULT Swap(Long* A, Long* B) = 0;
    virtual HRESULT AppendTo(BSTR* Text, Integer* Count) = 0;
    virtual HRESULT Change(VARIANT* Value) = 0;
    virtual HRESULT Replace(IDispatch** Object) = 0;
    virtual HRESULT Shift(SamplePoint* Point, Long Distance, SamplePoint* result) = 0;
    virtual HRESULT Extend(SAFEARRAY** Values, Long Upper) = 0;
    virtual HRESULT Paint(Long Colour, BSTR* result) = 0;
    virtual HRESULT Fail(Long Number) = 0;
    virtual HRESULT Refuse(Long* Place, Long Status) = 0;
    virtual HRESULT EchoByte(Byte Value, Byte* result) = 0;
    virtual HRESULT EchoInteger(Integer Value, Integer* result) = 0;
    virtual HRESULT EchoSingle(Single Value, Single* result) = 0;
    virtual HRESULT EchoDouble(Double Value, Double* result) = 0;
    virtual HRESULT EchoBoolean(Boolean Value, Boolean* result) = 0;
    virtual HRESULT EchoDate(Date Value, Date* result) = 0;
    virtual HRESULT EchoCurrency(Currency Value, Currency* result) = 0;
    virtual HRESULT EchoString(BSTR Value, BSTR* result) = 0;
    virtual HRESULT EchoKind(SampleKind Value, SampleKind* result) = 0;
    virtual HRESULT EchoVariant(VARIANT Value, VARIANT* result) = 0;
    virtual HRESULT EchoObject(ISample* Value, ISample** result) = 0;
    virtual HRESULT Corners(SampleRecord* Of, SAFEARRAY** result) = 0;
};

} // namespace mox::sample

template <>
inline constexpr IID mox::interfaceId<mox::sample::ISample>{0x5A3B1E10, 0x1111, 0x4222, {0x83, 0x33, 1, 2, 3, 4, 5, 6}};
template <>
inline constexpr IID mox::interfaceId<mox::sample::ISampleItems>{0x5A3B1E11, 0x1111, 0x4222, {0x83, 0x33, 1, 2, 3, 4, 5, 6}};

namespace mox::sample {

extern const typelib::LibraryDescription sampleLibrary;
extern const typelib::EnumDescription kindType;
extern const typelib::EnumDescription shapeType; // has a value named as one of the other enum
extern const typelib::RecordDescription pointType;
extern const typelib::RecordDescription recordType;
extern const typelib::AliasDescription colourType; // an alias of the alias in the other library
extern const typelib::InterfaceDescription sampleInterface;
extern const typelib::InterfaceDescription sampleEvents;
extern const typelib::InterfaceDescription itemsInterface;
extern const typelib::ClassDescription sampleClass; // creatable, with events
extern const typelib::ClassDescription itemsClass;  // neither
extern const typelib::ClassDescription rootClass;   // an application object with the default interface of Sample

/// A new object of class Sample. Its `Items` are "alpha", "beta" and "gamma".
Ref<ISample> makeSample();

/// Types of the first library by their position.
enum TypeIndex : UINT {
    kindIndex,
    shapeIndex,
    pointIndex,
    recordIndex,
    colourIndex,
    sampleInterfaceIndex,
    sampleEventsIndex,
    itemsInterfaceIndex,
    sampleClassIndex,
    itemsClassIndex,
    rootClassIndex,
    typeCount,
};

/// Identifiers of members of Sample's interface, in the order of their slots.
enum SampleId : DISPID {
    nameId,
    anythingId,
    cellId,
    itemsId,
    minMaxId,
    addId,
    describeId,
    swapId,
    appendToId,
    changeId,
    replaceId,
    shiftId,
    extendId,
    paintId,
    failId,
    refuseId,
    echoByteId,
    echoIntegerId,
    echoSingleId,
    echoDoubleId,
    echoBooleanId,
    echoDateId,
    echoCurrencyId,
    echoStringId,
    echoKindId,
    echoVariantId,
    echoObjectId,
    cornersId,
};

} // namespace mox::sample
