#include "automation/typelib/typecontents.h"

#include "automation/typelib/arguments.h"
#include "automation/typelib/variables.h"

#include <algorithm>

namespace mox::typelib {

namespace {

/// The functions of IDispatch, which come before the slots of every interface.
constexpr unsigned inheritedSlots = 7;

struct Extent {
    std::uint32_t size;
    std::uint32_t alignment;
};

Extent extentOf(const TypeReference& type) {
    const TypeReference& target = behindAliases(type);
    if (target.array) {
        return {sizeof(void*), alignof(void*)};
    }
    switch (variantOf(target)) {
    case VT_RECORD: {
        const auto& record = static_cast<const RecordDescription&>(*target.type);
        return {record.size, record.alignment};
    }
    case VT_I1:
    case VT_UI1:
        return {1, 1};
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return {2, 2};
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
    case VT_HRESULT:
        return {4, 4};
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return {sizeof(void*), alignof(void*)};
    case VT_VARIANT:
        return {sizeof(VARIANT), alignof(VARIANT)};
    case VT_DECIMAL:
        return {sizeof(DECIMAL), alignof(DECIMAL)};
    default:
        return {8, 8};
    }
}

ELEMDESC element(const TYPEDESC& type) {
    ELEMDESC result{};
    result.tdesc = type;
    return result;
}

TYPEDESC plainType(VARTYPE variant) {
    TYPEDESC result{};
    result.vt = variant;
    return result;
}

VARDESC variable(std::size_t index, VARKIND kind, const TYPEDESC& type) {
    VARDESC result{};
    result.memid = firstVariableId + static_cast<MEMBERID>(index);
    result.varkind = kind;
    result.elemdescVar = element(type);
    return result;
}

} // namespace

TypeContents::TypeContents(const TypeDescription& type, View view) {
    attributes_.guid = type.id;
    attributes_.lcid = type.library.lcid;
    attributes_.memidConstructor = MEMBERID_NIL;
    attributes_.memidDestructor = MEMBERID_NIL;
    attributes_.wMajorVerNum = type.library.major;
    attributes_.wMinorVerNum = type.library.minor;
    attributes_.cbSizeInstance = sizeof(void*);
    attributes_.cbAlignment = alignof(void*);
    switch (type.kind) {
    case TypeKind::Enum:
        describe(static_cast<const EnumDescription&>(type));
        break;
    case TypeKind::Record:
        describe(static_cast<const RecordDescription&>(type));
        break;
    case TypeKind::Alias:
        describe(static_cast<const AliasDescription&>(type));
        break;
    case TypeKind::Interface:
    case TypeKind::Events:
        describe(static_cast<const InterfaceDescription&>(type), view);
        break;
    case TypeKind::Class:
        describe(static_cast<const ClassDescription&>(type));
        break;
    }
    attributes_.cFuncs = static_cast<WORD>(functions_.size());
    attributes_.cVars = static_cast<WORD>(variables_.size());
    attributes_.cImplTypes = static_cast<WORD>(implemented_.size());
}

void TypeContents::describe(const EnumDescription& type) {
    attributes_.typekind = TKIND_ENUM;
    attributes_.cbSizeInstance = sizeof(LONG);
    attributes_.cbAlignment = alignof(LONG);
    values_.resize(type.values.size());
    for (std::size_t i = 0; i < type.values.size(); ++i) {
        values_[i].vt = VT_I4;
        values_[i].lVal = type.values[i].value;
        VARDESC value = variable(i, VAR_CONST, plainType(VT_I4));
        value.lpvarValue = &values_[i];
        variables_.push_back(value);
    }
}

void TypeContents::describe(const RecordDescription& type) {
    attributes_.typekind = TKIND_RECORD;
    attributes_.cbSizeInstance = type.size;
    attributes_.cbAlignment = static_cast<WORD>(type.alignment);
    for (std::size_t i = 0; i < type.fields.size(); ++i) {
        VARDESC field = variable(i, VAR_PERINSTANCE, typeOf(type.fields[i].type));
        field.oInst = type.fields[i].offset;
        variables_.push_back(field);
    }
}

void TypeContents::describe(const AliasDescription& type) {
    const Extent extent = extentOf(type.target);
    attributes_.typekind = TKIND_ALIAS;
    attributes_.cbSizeInstance = extent.size;
    attributes_.cbAlignment = static_cast<WORD>(extent.alignment);
    attributes_.tdescAlias = typeOf(type.target);
}

void TypeContents::describe(const InterfaceDescription& type, View view) {
    const bool dual = type.kind == TypeKind::Interface;
    unsigned slots = inheritedSlots;
    for (const Member& member : type.members) {
        functions_.push_back(functionOf(member, view, dual));
        slots = std::max(slots, inheritedSlots + member.slot + 1u);
    }
    attributes_.typekind = view == View::Slots ? TKIND_INTERFACE : TKIND_DISPATCH;
    attributes_.wTypeFlags = TYPEFLAG_FDISPATCHABLE;
    attributes_.cbSizeVft = static_cast<WORD>((view == View::Slots ? slots : inheritedSlots) * sizeof(void*));
    if (dual) {
        attributes_.wTypeFlags |= TYPEFLAG_FDUAL | TYPEFLAG_FOLEAUTOMATION;
        otherView_ = handleOf(type, view == View::Slots ? View::Dispatch : View::Slots);
    }
}

void TypeContents::describe(const ClassDescription& type) {
    attributes_.typekind = TKIND_COCLASS;
    if (type.creatable) {
        attributes_.wTypeFlags |= TYPEFLAG_FCANCREATE;
    }
    if (type.defaultInterface) {
        implemented_.push_back({handleOf(*type.defaultInterface), IMPLTYPEFLAG_FDEFAULT});
    }
    if (type.events) {
        implemented_.push_back({handleOf(*type.events), IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE});
    }
    if (type.appObject) {
        attributes_.wTypeFlags |= TYPEFLAG_FAPPOBJECT | TYPEFLAG_FPREDECLID;
        TYPEDESC own = plainType(VT_USERDEFINED);
        own.hreftype = handleOf(type);
        instance_ = variable(0, VAR_STATIC, pointerTo(own));
        instance_->memid = MEMBERID_DEFAULTINST;
    }
}

FUNCDESC TypeContents::functionOf(const Member& member, View view, bool dual) {
    FUNCDESC function{};
    function.memid = member.id;
    function.invkind = member.kind;
    function.callconv = CC_STDCALL;
    function.wFuncFlags = member.flags;
    if (dual) {
        function.oVft = static_cast<SHORT>((inheritedSlots + member.slot) * sizeof(void*));
    }
    std::vector<ELEMDESC>& arguments = arguments_.emplace_back();
    for (const Parameter& parameter : member.parameters) {
        ELEMDESC& argument = arguments.emplace_back(element(typeOf(parameter.type)));
        argument.paramdesc = argumentOf(parameter);
        // Only variants can say themselves that they are left out.
        function.cParamsOpt +=
            (parameter.flags & PARAMFLAG_FOPT) && parameter.type.variant == VT_VARIANT && !parameter.type.array;
    }
    if (view == View::Dispatch) {
        function.funckind = FUNC_DISPATCH;
        function.elemdescFunc = element(typeOf(member.result));
    } else {
        function.funckind = FUNC_PUREVIRTUAL;
        function.elemdescFunc = element(plainType(VT_HRESULT));
        if (member.result.variant != VT_VOID) {
            ELEMDESC& result = arguments.emplace_back(element(pointerTo(typeOf(member.result))));
            result.paramdesc.wParamFlags = PARAMFLAG_FOUT | PARAMFLAG_FRETVAL;
        }
    }
    function.cParams = static_cast<SHORT>(arguments.size());
    function.lprgelemdescParam = arguments.data();
    return function;
}

HREFTYPE TypeContents::handleOf(const TypeDescription& type, View view) {
    const auto same = [&](const Target& target) { return target.type == &type && target.view == view; };
    const auto found = std::ranges::find_if(targets_, same);
    const auto handle = static_cast<HREFTYPE>(found - targets_.begin());
    if (found == targets_.end()) {
        targets_.push_back({&type, view});
    }
    return handle;
}

TYPEDESC TypeContents::typeOf(const TypeReference& type) {
    TYPEDESC result = plainType(type.variant);
    if (type.type) {
        result.vt = VT_USERDEFINED;
        result.hreftype = handleOf(*type.type);
        if (type.variant == VT_DISPATCH) {
            result = pointerTo(result);
        }
    }
    if (type.array) {
        const TYPEDESC elements = result;
        result = pointerTo(elements);
        result.vt = VT_SAFEARRAY;
    }
    return type.byReference ? pointerTo(result) : result;
}

TYPEDESC TypeContents::pointerTo(const TYPEDESC& type) {
    TYPEDESC result = plainType(VT_PTR);
    result.lptdesc = &types_.emplace_back(type);
    return result;
}

PARAMDESC TypeContents::argumentOf(const Parameter& parameter) {
    PARAMDESC result{nullptr, parameter.flags};
    if (!(parameter.flags & PARAMFLAG_FHASDEFAULT)) {
        return result;
    }
    DefaultValue& value = defaults_.emplace_back();
    const VARTYPE variant = variantOf(parameter.type);
    if (parameter.defaultValue.kind == Constant::Kind::Nothing) {
        value.varDefaultValue.vt = variant;
    } else {
        succeed(defaultArgument(parameter, variant, value.varDefaultValue));
    }
    result.pparamdescex = &value;
    return result;
}

} // namespace mox::typelib
