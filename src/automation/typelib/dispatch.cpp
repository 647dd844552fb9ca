#include "automation/typelib/dispatch.h"

#include "automation/objects/runtimeerror.h"
#include "automation/typelib/trace.h"

#include <mox/values.h>

#include <algorithm>

namespace mox::typelib {

namespace {

bool isMissing(const VARIANT& value) {
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

bool isPut(INVOKEKIND kind) {
    return kind == INVOKE_PROPERTYPUT || kind == INVOKE_PROPERTYPUTREF;
}

/// The member that a call's flags ask for, among those of one identifier. Of a Let and a Set the one that fits the value.
const Member* memberForFlags(const InterfaceDescription& type, const Member* first, WORD flags, const DISPPARAMS& parameters) {
    const Member* found = nullptr;
    for (const Member* member = first; member; member = nextMember(type, *member)) {
        if (!(member->kind & flags)) {
            continue;
        }
        const bool bothPuts = found && isPut(found->kind) && isPut(member->kind) && parameters.cArgs > 0;
        if (bothPuts) {
            const VARTYPE given = parameters.rgvarg[0].vt & ~VT_BYREF;
            const INVOKEKIND wanted = given == VT_DISPATCH || given == VT_UNKNOWN ? INVOKE_PROPERTYPUTREF : INVOKE_PROPERTYPUT;
            found = member->kind == wanted ? member : found;
        } else if (!found) {
            found = member;
        }
    }
    return found;
}

/// Moves the thread's pending error object into `exception`.
void fillException(HRESULT status, EXCEPINFO* exception) {
    Ref<IErrorInfo> error;
    GetErrorInfo(0, error.out());
    if (!exception) {
        return;
    }
    *exception = {};
    exception->scode = status;
    if (error) {
        error->GetSource(&exception->bstrSource);
        error->GetDescription(&exception->bstrDescription);
        error->GetHelpFile(&exception->bstrHelpFile);
        error->GetHelpContext(&exception->dwHelpContext);
    }
}

/// A property without arguments that gives an object takes arguments for that object's default member.
HRESULT invokeDefaultOfResult(const InterfaceDescription& type, void* object, const Member& member, DISPPARAMS& parameters,
                              VARIANT* result, EXCEPINFO* exception, UINT* badArgument) {
    Variant owner;
    DISPPARAMS nothing{};
    const HRESULT status =
        invoke(type, object, member.id, GUID_NULL, DISPATCH_PROPERTYGET, &nothing, owner.out(), exception, badArgument);
    if (FAILED(status)) {
        return status;
    }
    if (owner.vt != VT_DISPATCH || !owner.pdispVal) {
        return DISP_E_BADPARAMCOUNT;
    }
    return owner.pdispVal->Invoke(DISPID_VALUE, GUID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &parameters, result,
                                  exception, badArgument);
}

} // namespace

void Call::place(unsigned index, VARIANT& value) noexcept {
    if (isMissing(value)) {
        complete_ = false;
    } else {
        arguments_[index] = &value;
    }
}

HRESULT Call::arrange() noexcept {
    const std::size_t declared = member_.parameters.size();
    if (parameters_.cArgs > declared) {
        return DISP_E_BADPARAMCOUNT;
    }
    std::fill_n(arguments_, declared, nullptr);
    const UINT positional = parameters_.cArgs - parameters_.cNamedArgs;
    for (UINT i = 0; i < positional; ++i) {
        place(i, parameters_.rgvarg[parameters_.cArgs - 1 - i]);
    }
    if (parameters_.cNamedArgs > 0 || isPut(member_.kind)) {
        if (const HRESULT status = arrangeNamed(); FAILED(status)) {
            return status;
        }
    }
    return complete_ && parameters_.cArgs == declared ? S_OK : checkRequired();
}

HRESULT Call::arrangeNamed() noexcept {
    if (isPut(member_.kind) && (parameters_.cNamedArgs == 0 || parameters_.rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)) {
        return DISP_E_PARAMNOTFOUND; // the value of a property has to be marked as such
    }
    const std::size_t declared = member_.parameters.size();
    const UINT positional = parameters_.cArgs - parameters_.cNamedArgs;
    for (UINT i = 0; i < parameters_.cNamedArgs; ++i) {
        const DISPID id = parameters_.rgdispidNamedArgs[i];
        const DISPID index = id == DISPID_PROPERTYPUT && isPut(member_.kind) ? static_cast<DISPID>(declared) - 1 : id;
        const bool known = index >= 0 && index < static_cast<DISPID>(declared);
        if (!known || index < static_cast<DISPID>(positional) || arguments_[index]) {
            badArgument_ = i; // unknown, or the same argument twice
            return DISP_E_PARAMNOTFOUND;
        }
        place(static_cast<unsigned>(index), parameters_.rgvarg[i]);
    }
    return S_OK;
}

HRESULT Call::checkRequired() noexcept {
    for (unsigned i = 0; i < member_.parameters.size(); ++i) {
        if (!arguments_[i] && !(member_.parameters[i].flags & PARAMFLAG_FOPT)) {
            return failed(i, DISP_E_PARAMNOTOPTIONAL);
        }
    }
    return S_OK;
}

HRESULT Call::failed(unsigned index, HRESULT status) noexcept {
    badArgument_ = arguments_[index] ? static_cast<UINT>(arguments_[index] - parameters_.rgvarg) : index;
    return status;
}

const Member* findMember(const InterfaceDescription& type, DISPID id) noexcept {
    if (id >= 0 && static_cast<std::size_t>(id) < type.membersById.size()) {
        const std::int16_t index = type.membersById[static_cast<std::size_t>(id)];
        return index < 0 ? nullptr : &type.members[static_cast<std::size_t>(index)];
    }
    const auto found = std::ranges::find(type.members, id, &Member::id);
    return found == type.members.end() ? nullptr : &*found;
}

const Member* findMember(const InterfaceDescription& type, const char16_t* name) noexcept {
    const std::size_t mask = type.membersByName.size() - 1;
    for (std::size_t slot = hashOfName(name) & mask;; slot = (slot + 1) & mask) {
        const std::int16_t index = type.membersByName[slot];
        if (index < 0) {
            return nullptr;
        }
        const Member& member = type.members[static_cast<std::size_t>(index)];
        if (sameName(member.name, name)) {
            return &member;
        }
    }
}

HRESULT getIdsOfNames(const InterfaceDescription& type, REFIID riid, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
    if (!names || !ids || count == 0) {
        return E_INVALIDARG;
    }
    if (riid != GUID_NULL) {
        return DISP_E_UNKNOWNINTERFACE;
    }
    const Member* member = names[0] ? findMember(type, names[0]) : nullptr;
    ids[0] = member ? member->id : DISPID_UNKNOWN;
    HRESULT status = member ? S_OK : DISP_E_UNKNOWNNAME;
    for (UINT i = 1; i < count; ++i) {
        ids[i] = DISPID_UNKNOWN;
        // Get, Let and Set of a property share their arguments, but a Let has one more: look through all.
        for (const Member* other = member; other && ids[i] == DISPID_UNKNOWN; other = nextMember(type, *other)) {
            for (std::size_t index = 0; names[i] && index < other->parameters.size(); ++index) {
                if (sameName(other->parameters[index].name, names[i])) {
                    ids[i] = static_cast<DISPID>(index);
                    break;
                }
            }
        }
        status = ids[i] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : status;
    }
    return status;
}

HRESULT invoke(const InterfaceDescription& type, void* object, DISPID id, REFIID riid, WORD flags, DISPPARAMS* parameters,
               VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept {
    if (result) {
        result->vt = VT_EMPTY;
    }
    if (riid != GUID_NULL) {
        return DISP_E_UNKNOWNINTERFACE;
    }
    if (!parameters || (parameters->cArgs && !parameters->rgvarg) || (parameters->cNamedArgs && !parameters->rgdispidNamedArgs) ||
        parameters->cNamedArgs > parameters->cArgs) {
        return E_INVALIDARG;
    }
    const Member* first = findMember(type, id);
    const Member* member = first ? memberForFlags(type, first, flags, *parameters) : nullptr;
    if (!member || !member->thunk) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (member->kind == INVOKE_PROPERTYGET && member->parameters.empty() && member->result.variant == VT_DISPATCH &&
        parameters->cArgs > 0) {
        return invokeDefaultOfResult(type, object, *member, *parameters, result, exception, badArgument);
    }
    Call call(*member, *parameters, result);
    Trace trace(type, *member, *parameters);
    HRESULT status = call.arrange();
    if (SUCCEEDED(status)) {
        status = member->thunk(object, call);
    }
    if (call.raised()) {
        fillException(status, exception);
        trace.finish(status, exception, result);
        return DISP_E_EXCEPTION;
    }
    if (FAILED(status) && badArgument) {
        *badArgument = call.badArgument();
    }
    trace.finish(status, nullptr, result);
    return status;
}

} // namespace mox::typelib
