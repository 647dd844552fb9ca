#include "sample_library.h"

#include "automation/typelib/arguments.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <string>

namespace mox::sample {

using namespace typelib;

namespace {

constexpr GUID sampleId(std::uint32_t number) {
    return {0x5A3B1E00u + number, 0x1111, 0x4222, {0x83, 0x33, 1, 2, 3, 4, 5, 6}};
}

// ---- the look-up tables of an interface, as the compiler of a library works them out

template <std::size_t size> constexpr std::array<std::int16_t, size> tableById(std::span<const Member> members) {
    std::array<std::int16_t, size> table;
    table.fill(-1);
    for (std::size_t i = members.size(); i-- > 0;) {
        if (members[i].id >= 0) {
            table[static_cast<std::size_t>(members[i].id)] = static_cast<std::int16_t>(i);
        }
    }
    return table;
}

template <std::size_t size> constexpr std::array<std::int16_t, size> tableByName(std::span<const Member> members) {
    std::array<std::int16_t, size> table;
    table.fill(-1);
    for (std::size_t i = 0; i < members.size(); ++i) {
        std::size_t slot = hashOfName(members[i].name) % size;
        while (table[slot] >= 0 && !sameName(members[static_cast<std::size_t>(table[slot])].name, members[i].name)) {
            slot = (slot + 1) % size;
        }
        if (table[slot] < 0) {
            table[slot] = static_cast<std::int16_t>(i);
        }
    }
    return table;
}

// ---- types of arguments

constexpr TypeReference none{};
constexpr TypeReference plain(VARTYPE variant) {
    return {variant};
}
constexpr TypeReference reference(TypeReference type) {
    type.byReference = true;
    return type;
}
constexpr TypeReference arrayOf(TypeReference type) {
    type.array = true;
    return type;
}
constexpr TypeReference named(const TypeDescription& type) {
    return {VT_USERDEFINED, false, false, &type};
}
constexpr TypeReference object(const TypeDescription& type) {
    return {VT_DISPATCH, false, false, &type};
}

constexpr TypeReference longType = plain(VT_I4);
constexpr TypeReference textType = plain(VT_BSTR);

constexpr USHORT in = PARAMFLAG_FIN;
constexpr USHORT inOut = PARAMFLAG_FIN | PARAMFLAG_FOUT;
constexpr USHORT optional = PARAMFLAG_FIN | PARAMFLAG_FOPT;
constexpr USHORT defaulted = optional | PARAMFLAG_FHASDEFAULT;

// ---- arguments

constexpr std::array valueText{Parameter{u"Value", textType, in, {}}};
constexpr std::array valueVariant{Parameter{u"Value", plain(VT_VARIANT), in, {}}};
constexpr std::array valueDispatch{Parameter{u"Value", plain(VT_DISPATCH), in, {}}};
constexpr std::array valueByte{Parameter{u"Value", plain(VT_UI1), in, {}}};
constexpr std::array valueInteger{Parameter{u"Value", plain(VT_I2), in, {}}};
constexpr std::array valueSingle{Parameter{u"Value", plain(VT_R4), in, {}}};
constexpr std::array valueDouble{Parameter{u"Value", plain(VT_R8), in, {}}};
constexpr std::array valueBoolean{Parameter{u"Value", plain(VT_BOOL), in, {}}};
constexpr std::array valueDate{Parameter{u"Value", plain(VT_DATE), in, {}}};
constexpr std::array valueCurrency{Parameter{u"Value", plain(VT_CY), in, {}}};
constexpr std::array valueKind{Parameter{u"Value", named(kindType), in, {}}};
constexpr std::array valueSample{Parameter{u"Value", object(sampleInterface), in, {}}};
constexpr std::array cellArguments{Parameter{u"Row", longType, in, {}}, Parameter{u"Column", longType, in, {}},
                                   Parameter{u"Value", longType, in, {}}};
constexpr std::array minMaxArguments{Parameter{u"LongValue", longType, in, {}},
                                     Parameter{u"MinValue", longType, defaulted, {Constant::Kind::Integer, 0}},
                                     Parameter{u"MaxValue", longType, defaulted, {Constant::Kind::Integer, 100}}};
constexpr std::array addArguments{Parameter{u"A", longType, in, {}}, Parameter{u"B", longType, in, {}}};
constexpr std::array describeArguments{
    Parameter{u"Text", textType, in, {}},
    Parameter{u"Suffix", textType, defaulted, {Constant::Kind::Text, 0, 0, u"!"}},
    Parameter{u"Upper", plain(VT_BOOL), defaulted, {Constant::Kind::Integer, -1}},
    Parameter{u"Factor", plain(VT_R4), defaulted, {Constant::Kind::Real, 0, 1.5}},
    Parameter{u"Kind", named(kindType), defaulted, {Constant::Kind::Integer, kindSquare}},
    Parameter{u"Object", plain(VT_DISPATCH), defaulted, {Constant::Kind::Nothing}},
    Parameter{u"Extra", plain(VT_VARIANT), optional, {}},
};
constexpr std::array swapArguments{Parameter{u"A", reference(longType), inOut, {}},
                                   Parameter{u"B", reference(longType), inOut, {}}};
constexpr std::array appendArguments{Parameter{u"Text", reference(textType), inOut, {}},
                                     Parameter{u"Count", reference(plain(VT_I2)), inOut, {}}};
constexpr std::array changeArguments{Parameter{u"Value", reference(plain(VT_VARIANT)), inOut, {}}};
constexpr std::array replaceArguments{Parameter{u"Object", reference(plain(VT_DISPATCH)), inOut, {}}};
constexpr std::array shiftArguments{Parameter{u"Point", reference(named(pointType)), inOut, {}},
                                    Parameter{u"Distance", longType, in, {}}};
constexpr std::array extendArguments{Parameter{u"Values", reference(arrayOf(longType)), inOut, {}},
                                     Parameter{u"Upper", longType, in, {}}};
constexpr std::array paintArguments{Parameter{u"Colour", named(otherColour), in, {}}};
constexpr std::array numberArguments{Parameter{u"Number", longType, in, {}}};
constexpr std::array refuseArguments{Parameter{u"Place", reference(longType), inOut, {}}, Parameter{u"Status", longType, in, {}}};
constexpr std::array cornersArguments{Parameter{u"Of", reference(named(recordType)), inOut, {}}};
constexpr std::array indexArguments{Parameter{u"Index", longType, in, {}}};

// ---- members: a table in the order of the slots

template <auto method> constexpr Thunk procedure = &SlotThunk<method, false>::invoke;
template <auto method> constexpr Thunk function = &SlotThunk<method, true>::invoke;

constexpr Member member(std::uint16_t slot, const char16_t* name, DISPID id, INVOKEKIND kind,
                        std::span<const Parameter> parameters, TypeReference result, Thunk thunk, std::int16_t nextSameId = -1) {
    return {name, nullptr, id, kind, 0, slot, nextSameId, parameters, result, thunk};
}

constexpr auto sampleMembers = [] {
    const std::span<const Parameter> nothing;
    const std::span<const Parameter> cell(cellArguments);
    std::array members{
        member(0, u"Name", nameId, INVOKE_PROPERTYGET, nothing, textType, function<&ISample::get_Name>, 1),
        member(1, u"Name", nameId, INVOKE_PROPERTYPUT, valueText, none, procedure<&ISample::put_Name>),
        member(2, u"Anything", anythingId, INVOKE_PROPERTYGET, nothing, plain(VT_VARIANT), function<&ISample::get_Anything>, 3),
        member(3, u"Anything", anythingId, INVOKE_PROPERTYPUT, valueVariant, none, procedure<&ISample::put_Anything>, 4),
        member(4, u"Anything", anythingId, INVOKE_PROPERTYPUTREF, valueDispatch, none, procedure<&ISample::putref_Anything>),
        member(5, u"Cell", cellId, INVOKE_PROPERTYGET, cell.first(2), longType, function<&ISample::get_Cell>, 6),
        member(6, u"Cell", cellId, INVOKE_PROPERTYPUT, cell, none, procedure<&ISample::put_Cell>),
        member(7, u"Items", itemsId, INVOKE_PROPERTYGET, nothing, object(itemsInterface), function<&ISample::get_Items>),
        member(8, u"_NewEnum", DISPID_NEWENUM, INVOKE_PROPERTYGET, nothing, plain(VT_UNKNOWN), function<&ISample::get__NewEnum>),
        member(9, u"MinMax", minMaxId, INVOKE_FUNC, minMaxArguments, longType, function<&ISample::MinMax>),
        member(10, u"Add", addId, INVOKE_FUNC, addArguments, longType, function<&ISample::Add>),
        member(11, u"Describe", describeId, INVOKE_FUNC, describeArguments, textType, function<&ISample::Describe>),
        member(12, u"Swap", swapId, INVOKE_FUNC, swapArguments, none, procedure<&ISample::Swap>),
        member(13, u"AppendTo", appendToId, INVOKE_FUNC, appendArguments, none, procedure<&ISample::AppendTo>),
        member(14, u"Change", changeId, INVOKE_FUNC, changeArguments, none, procedure<&ISample::Change>),
        member(15, u"Replace", replaceId, INVOKE_FUNC, replaceArguments, none, procedure<&ISample::Replace>),
        member(16, u"Shift", shiftId, INVOKE_FUNC, shiftArguments, named(pointType), function<&ISample::Shift>),
        member(17, u"Extend", extendId, INVOKE_FUNC, extendArguments, none, procedure<&ISample::Extend>),
        member(18, u"Paint", paintId, INVOKE_FUNC, paintArguments, textType, function<&ISample::Paint>),
        member(19, u"Fail", failId, INVOKE_FUNC, numberArguments, none, procedure<&ISample::Fail>),
        member(20, u"Refuse", refuseId, INVOKE_FUNC, refuseArguments, none, procedure<&ISample::Refuse>),
        member(21, u"EchoByte", echoByteId, INVOKE_FUNC, valueByte, plain(VT_UI1), function<&ISample::EchoByte>),
        member(22, u"EchoInteger", echoIntegerId, INVOKE_FUNC, valueInteger, plain(VT_I2), function<&ISample::EchoInteger>),
        member(23, u"EchoSingle", echoSingleId, INVOKE_FUNC, valueSingle, plain(VT_R4), function<&ISample::EchoSingle>),
        member(24, u"EchoDouble", echoDoubleId, INVOKE_FUNC, valueDouble, plain(VT_R8), function<&ISample::EchoDouble>),
        member(25, u"EchoBoolean", echoBooleanId, INVOKE_FUNC, valueBoolean, plain(VT_BOOL), function<&ISample::EchoBoolean>),
        member(26, u"EchoDate", echoDateId, INVOKE_FUNC, valueDate, plain(VT_DATE), function<&ISample::EchoDate>),
        member(27, u"EchoCurrency", echoCurrencyId, INVOKE_FUNC, valueCurrency, plain(VT_CY), function<&ISample::EchoCurrency>),
        member(28, u"EchoString", echoStringId, INVOKE_FUNC, valueText, textType, function<&ISample::EchoString>),
        member(29, u"EchoKind", echoKindId, INVOKE_FUNC, valueKind, named(kindType), function<&ISample::EchoKind>),
        member(30, u"EchoVariant", echoVariantId, INVOKE_FUNC, valueVariant, plain(VT_VARIANT), function<&ISample::EchoVariant>),
        member(31, u"EchoObject", echoObjectId, INVOKE_FUNC, valueSample, object(sampleInterface),
               function<&ISample::EchoObject>),
        member(32, u"Corners", cornersId, INVOKE_FUNC, cornersArguments, arrayOf(named(pointType)), function<&ISample::Corners>),
    };
    members[8].flags = FUNCFLAG_FHIDDEN | FUNCFLAG_FNONBROWSABLE;
    members[9].help = u"Keeps a value between two bounds";
    return members;
}();
constexpr auto sampleById = tableById<28>(sampleMembers);
constexpr auto sampleByName = tableByName<64>(sampleMembers);

constexpr std::array eventMembers{
    member(0, u"Changed", 1, INVOKE_FUNC, valueText, none, nullptr),
    member(1, u"Closed", 2, INVOKE_FUNC, {}, none, nullptr),
};
constexpr auto eventsById = tableById<3>(eventMembers);
constexpr auto eventsByName = tableByName<4>(eventMembers);

constexpr std::array itemsMembers{
    member(0, u"Item", DISPID_VALUE, INVOKE_PROPERTYGET, indexArguments, textType, function<&ISampleItems::get_Item>),
    member(1, u"Count", 1, INVOKE_PROPERTYGET, {}, longType, function<&ISampleItems::get_Count>),
};
constexpr auto itemsById = tableById<2>(itemsMembers);
constexpr auto itemsByName = tableByName<4>(itemsMembers);

// ---- values and fields

constexpr std::array kindValues{
    EnumValue{u"kindNone", nullptr, kindNone},
    EnumValue{u"kindRound", u"Like a ball", kindRound},
    EnumValue{u"kindSquare", nullptr, kindSquare},
    EnumValue{u"kindLast", nullptr, kindLast},
};
constexpr std::array shapeValues{EnumValue{u"shapeLine", nullptr, 7}, EnumValue{u"kindRound", nullptr, 8}};

constexpr std::array pointFields{
    Field{u"X", u"Grows to the right", longType, offsetof(SamplePoint, X)},
    Field{u"Y", nullptr, longType, offsetof(SamplePoint, Y)},
};
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
constexpr std::array recordFields{
    Field{u"Name", nullptr, textType, offsetof(SampleRecord, Name)},
    Field{u"Values", nullptr, arrayOf(longType), offsetof(SampleRecord, Values)},
    Field{u"Position", nullptr, named(pointType), offsetof(SampleRecord, Position)},
    Field{u"Visible", nullptr, plain(VT_BOOL), offsetof(SampleRecord, Visible)},
    Field{u"Kind", nullptr, named(kindType), offsetof(SampleRecord, Kind)},
    Field{u"Anything", nullptr, plain(VT_VARIANT), offsetof(SampleRecord, Anything)},
    Field{u"Object", nullptr, plain(VT_DISPATCH), offsetof(SampleRecord, Object)},
    Field{u"Corners", nullptr, arrayOf(named(pointType)), offsetof(SampleRecord, Corners)},
    Field{u"Colour", nullptr, named(colourType), offsetof(SampleRecord, Colour)},
};
#pragma GCC diagnostic pop

constexpr std::array<const TypeDescription*, 1> otherTypes{&otherColour};
constexpr std::array<const TypeDescription*, typeCount> sampleTypes{
    &kindType,     &shapeType,      &pointType,   &recordType, &colourType, &sampleInterface,
    &sampleEvents, &itemsInterface, &sampleClass, &itemsClass, &rootClass,
};

} // namespace

LibraryState sampleState;
LibraryState otherState;

constinit const LibraryDescription otherLibrary{u"OtherLib", nullptr, sampleId(0x80), 1, 0, 1033, otherTypes, otherState};
constinit const AliasDescription otherColour{{TypeKind::Alias, u"OtherColour", nullptr, GUID_NULL, otherLibrary, 0}, longType};

constinit const LibraryDescription sampleLibrary{
    u"SampleLib", u"One of everything", RecordTraits<SamplePoint>::library, 2, 3, 1033, sampleTypes, sampleState};

constinit const EnumDescription kindType{{TypeKind::Enum, u"SampleKind", u"How it looks", GUID_NULL, sampleLibrary, kindIndex},
                                         kindValues};
constinit const EnumDescription shapeType{{TypeKind::Enum, u"SampleShape", nullptr, GUID_NULL, sampleLibrary, shapeIndex},
                                          shapeValues};
constinit const RecordDescription pointType{
    {TypeKind::Record, u"SamplePoint", nullptr, RecordTraits<SamplePoint>::id, sampleLibrary, pointIndex},
    pointFields,
    sizeof(SamplePoint),
    alignof(SamplePoint),
    &constructRecord<SamplePoint>,
    &destroyRecord<SamplePoint>,
    &assignRecord<SamplePoint>};
constinit const RecordDescription recordType{
    {TypeKind::Record, u"SampleRecord", nullptr, RecordTraits<SampleRecord>::id, sampleLibrary, recordIndex},
    recordFields,
    sizeof(SampleRecord),
    alignof(SampleRecord),
    &constructRecord<SampleRecord>,
    &destroyRecord<SampleRecord>,
    &assignRecord<SampleRecord>};
constinit const AliasDescription colourType{{TypeKind::Alias, u"SampleColour", nullptr, GUID_NULL, sampleLibrary, colourIndex},
                                            named(otherColour)};
constinit const InterfaceDescription sampleInterface{
    {TypeKind::Interface, u"_Sample", u"Does samples", interfaceId<ISample>, sampleLibrary, sampleInterfaceIndex},
    sampleMembers,
    sampleById,
    sampleByName};
constinit const InterfaceDescription sampleEvents{
    {TypeKind::Events, u"__Sample", nullptr, sampleId(0x12), sampleLibrary, sampleEventsIndex},
    eventMembers,
    eventsById,
    eventsByName};
constinit const InterfaceDescription itemsInterface{
    {TypeKind::Interface, u"_SampleItems", nullptr, interfaceId<ISampleItems>, sampleLibrary, itemsInterfaceIndex},
    itemsMembers,
    itemsById,
    itemsByName};
constinit const ClassDescription sampleClass{
    {TypeKind::Class, u"Sample", u"A sample", sampleId(0x20), sampleLibrary, sampleClassIndex},
    &sampleInterface,
    &sampleEvents,
    true,
    false};
constinit const ClassDescription itemsClass{
    {TypeKind::Class, u"SampleItems", nullptr, sampleId(0x21), sampleLibrary, itemsClassIndex},
    &itemsInterface,
    nullptr,
    false,
    false};
constinit const ClassDescription rootClass{
    {TypeKind::Class, u"SampleRoot", nullptr, sampleId(0x22), sampleLibrary, rootClassIndex},
    &sampleInterface,
    nullptr,
    true,
    true};

// ---- the objects

namespace {

class SampleItems final : public Object<SampleItems, ISampleItems, itemsClass> {
public:
    HRESULT get_Item(Long Index, BSTR* result) override {
        return call(result, [&](SampleItems&) {
            constexpr std::array texts{u"alpha", u"beta", u"gamma"};
            if (Index < 0 || Index > 2) {
                throw RuntimeError(errSubscript);
            }
            return String(texts[static_cast<std::size_t>(Index)]);
        });
    }
    HRESULT get_Count(Long* result) override {
        return call(result, [](SampleItems&) { return Long{3}; });
    }
};

class Sample final : public Object<Sample, ISample, sampleClass> {
public:
    HRESULT get_Name(BSTR* result) override {
        return call(result, [](Sample& self) { return self.name_; });
    }
    HRESULT put_Name(BSTR Value) override {
        return call([&](Sample& self) { self.name_ = byValue(Value); });
    }
    HRESULT get_Anything(VARIANT* result) override {
        return call(result, [](Sample& self) { return self.anything_; });
    }
    HRESULT put_Anything(VARIANT Value) override {
        return call([&](Sample& self) { self.anything_ = byValue(Value); });
    }
    HRESULT putref_Anything(IDispatch* Value) override {
        return call([&](Sample& self) { self.anything_ = Array<Variant>{String(u"by reference"), Ref<IDispatch>(Value)}; });
    }
    HRESULT get_Cell(Long Row, Long Column, Long* result) override {
        return call(result, [&](Sample& self) { return self.cells_[{Row, Column}]; });
    }
    HRESULT put_Cell(Long Row, Long Column, Long Value) override {
        return call([&](Sample& self) { self.cells_[{Row, Column}] = Value; });
    }
    HRESULT get_Items(ISampleItems** result) override {
        return call(result, [](Sample&) { return Ref<ISampleItems>::attach(std::make_unique<SampleItems>().release()); });
    }
    HRESULT get__NewEnum(IUnknown** result) override {
        return call(result, [](Sample& self) { return Ref<IUnknown>(&static_cast<ISample&>(self)); });
    }
    HRESULT MinMax(Long LongValue, Long MinValue, Long MaxValue, Long* result) override {
        return call(result, [&](Sample&) { return std::max(MinValue, std::min(MaxValue, LongValue)); });
    }
    HRESULT Add(Long A, Long B, Long* result) override {
        return call(result, [&](Sample&) { return A + B; });
    }
    HRESULT Describe(BSTR Text, BSTR Suffix, Boolean Upper, Single Factor, SampleKind Kind, IDispatch* Subject, VARIANT Extra,
                     BSTR* result) override {
        return call(result, [&](Sample&) {
            std::string text = byValue(Text).utf8() + byValue(Suffix).utf8() + (Upper ? " upper" : " lower");
            text += " " + std::to_string(Factor).substr(0, 4) + " " + std::to_string(Kind) + (Subject ? " object" : " nothing");
            const bool missing = Extra.vt == VT_ERROR && Extra.scode == DISP_E_PARAMNOTFOUND;
            return String::fromUtf8(text + (missing ? " missing" : " " + byValue(Extra).as<String>().utf8()));
        });
    }
    HRESULT Swap(Long* A, Long* B) override {
        return call([&](Sample&) { std::swap(byReference(A), byReference(B)); });
    }
    HRESULT AppendTo(BSTR* Text, Integer* Count) override {
        return call([&](Sample&) {
            byReference(Text) = String(std::u16string(byReference(Text).view()) + u"+");
            ++byReference(Count);
        });
    }
    HRESULT Change(VARIANT* Value) override {
        return call([&](Sample&) {
            const bool missing = Value->vt == VT_ERROR && Value->scode == DISP_E_PARAMNOTFOUND;
            byReference(Value) =
                missing ? String(u"missing") : String(std::u16string(byReference(Value).as<String>().view()) + u" changed");
        });
    }
    HRESULT Replace(IDispatch** Subject) override {
        return call([&](Sample&) {
            Ref<IDispatch>& place = byReference(Subject);
            place = place ? nullptr : Ref<IDispatch>(makeSample());
        });
    }
    HRESULT Shift(SamplePoint* Point, Long Distance, SamplePoint* result) override {
        return call(result, [&](Sample&) {
            const SamplePoint before = byReference(Point);
            Point->X += Distance;
            Point->Y += Distance;
            return before;
        });
    }
    HRESULT Extend(SAFEARRAY** Values, Long Upper) override {
        return call([&](Sample&) {
            Array<Long>& values = arrayByReference<Long>(Values);
            const Long before = values.upper();
            values.redimPreserve(Upper);
            for (Long i = before + 1; i <= Upper; ++i) {
                values[i] = i;
            }
        });
    }
    HRESULT Paint(Long Colour, BSTR* result) override {
        return call(result, [&](Sample&) { return String::fromUtf8("colour " + std::to_string(Colour)); });
    }
    HRESULT Fail(Long Number) override {
        return call([&](Sample&) { throw RuntimeError(Number); });
    }
    HRESULT Refuse(Long* Place, Long Status) override {
        *Place = 77;
        return reportPlainStatus(Status);
    }
    HRESULT EchoByte(Byte Value, Byte* result) override { return echo(Value, result); }
    HRESULT EchoInteger(Integer Value, Integer* result) override { return echo(Value, result); }
    HRESULT EchoSingle(Single Value, Single* result) override { return echo(Value, result); }
    HRESULT EchoDouble(Double Value, Double* result) override { return echo(Value, result); }
    HRESULT EchoBoolean(Boolean Value, Boolean* result) override { return echo(Value, result); }
    HRESULT EchoDate(Date Value, Date* result) override { return echo(Value, result); }
    HRESULT EchoCurrency(Currency Value, Currency* result) override { return echo(Value, result); }
    HRESULT EchoString(BSTR Value, BSTR* result) override { return echo(byValue(Value), result); }
    HRESULT EchoKind(SampleKind Value, SampleKind* result) override { return echo(Value, result); }
    HRESULT EchoVariant(VARIANT Value, VARIANT* result) override { return echo(byValue(Value), result); }
    HRESULT EchoObject(ISample* Value, ISample** result) override { return echo(Ref<ISample>(Value), result); }
    HRESULT Corners(SampleRecord* Of, SAFEARRAY** result) override {
        return call(result, [&](Sample&) { return byReference(Of).Corners; });
    }

private:
    template <class Value, class Place> HRESULT echo(const Value& value, Place* result) {
        return call(result, [&](Sample&) { return value; });
    }

    String name_;
    Variant anything_;
    std::map<std::pair<Long, Long>, Long> cells_;
};

} // namespace

Ref<ISample> makeSample() {
    return Ref<ISample>::attach(std::make_unique<Sample>().release());
}

} // namespace mox::sample
