// Automation calls by name and identifier, served from the tables of the type library.
#pragma once

#include "automation/objects/export.h"
#include "automation/typelib/description.h"

namespace mox::typelib {

/// The arguments of one call, brought into the order of the declaration.
class MOX_API Call {
public:
    Call(const Member& member, const DISPPARAMS& parameters, VARIANT* result) noexcept
        : member_(member), parameters_(parameters), result_(result) {}

    /// Puts every argument into its place. Gives the status of the first that does not fit.
    HRESULT arrange() noexcept;

    /// The argument in declared position `index`; null if it was left out.
    VARIANT* argument(unsigned index) const noexcept { return arguments_[index]; }
    const Parameter& parameter(unsigned index) const noexcept { return member_.parameters[index]; }
    const Member& member() const noexcept { return member_; }
    /// Where the caller wants the result, or null.
    VARIANT* result() const noexcept { return result_; }

    /// Notes which argument a failing status belongs to, and gives the status.
    HRESULT failed(unsigned index, HRESULT status) noexcept;
    /// The position of the bad argument among those that the caller gave; for an argument that is left out, its declared
    /// position.
    UINT badArgument() const noexcept { return badArgument_; }

    /// Says that the status came from the member itself, with the thread's pending error object.
    void setRaised() noexcept { raised_ = true; }
    bool raised() const noexcept { return raised_; }

private:
    HRESULT arrangeNamed() noexcept;
    HRESULT checkRequired() noexcept;
    void place(unsigned index, VARIANT& value) noexcept;

    const Member& member_;
    const DISPPARAMS& parameters_;
    VARIANT* result_;
    VARIANT* arguments_[maxParameters];
    UINT badArgument_ = 0;
    bool complete_ = true;
    bool raised_ = false;
};

/// `ITypeInfo` of a type, with a reference for the caller.
MOX_API HRESULT getTypeInfo(const TypeDescription& type, ITypeInfo** result) noexcept;

/// Finds a member, and after it the names of its arguments; names compare without regard to case.
MOX_API HRESULT getIdsOfNames(const InterfaceDescription& type, REFIID riid, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

/// Calls a member of `object`, which has to be of interface `type`.
MOX_API HRESULT invoke(const InterfaceDescription& type, void* object, DISPID id, REFIID riid, WORD flags, DISPPARAMS* parameters,
                       VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept;

/// The first member of that identifier; the others follow through `nextSameId`. Null if there is none.
MOX_API const Member* findMember(const InterfaceDescription& type, DISPID id) noexcept;
/// The first member of that name. Null if there is none.
MOX_API const Member* findMember(const InterfaceDescription& type, const char16_t* name) noexcept;
/// The next member of the same identifier. Null after the last.
inline const Member* nextMember(const InterfaceDescription& type, const Member& member) noexcept {
    return member.nextSameId < 0 ? nullptr : &type.members[static_cast<std::size_t>(member.nextSameId)];
}

} // namespace mox::typelib
