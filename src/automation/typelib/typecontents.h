// A type of the tables in the structures that type information is asked for.
#pragma once

#include "automation/typelib/description.h"

#include <mox/values.h>

#include <deque>
#include <optional>
#include <vector>

namespace mox::typelib {

/// How a default interface is looked at: as its clients call it through IDispatch, or slot by slot. All other types have one view
/// only.
enum class View : std::uint8_t { Dispatch, Slots };

/// Holds the TYPEATTR, FUNCDESC and VARDESC structures of one type in one view. They are made once and stay until the end of this
/// object.
class TypeContents {
public:
    /// What a handle on another type, or on another view, stands for.
    struct Target {
        const TypeDescription* type;
        View view;
    };
    struct Implemented {
        HREFTYPE handle;
        INT flags;
    };

    TypeContents(const TypeDescription& type, View view);
    TypeContents(const TypeContents&) = delete;
    TypeContents& operator=(const TypeContents&) = delete;

    TYPEATTR& attributes() noexcept { return attributes_; }
    /// In the order of the members, the values or the fields of the type.
    std::vector<FUNCDESC>& functions() noexcept { return functions_; }
    std::vector<VARDESC>& variables() noexcept { return variables_; }
    /// The interfaces of a class.
    const std::vector<Implemented>& implemented() const noexcept { return implemented_; }
    /// The handle of the other view of a default interface.
    std::optional<HREFTYPE> otherView() const noexcept { return otherView_; }
    /// Describes the instance of an application object; null for other types.
    VARDESC* instance() noexcept { return instance_ ? &*instance_ : nullptr; }
    /// Null for a handle that this type has not given out.
    const Target* target(HREFTYPE handle) const noexcept { return handle < targets_.size() ? &targets_[handle] : nullptr; }

private:
    struct DefaultValue : PARAMDESCEX {
        DefaultValue() : PARAMDESCEX{sizeof(PARAMDESCEX), {}} {}
        ~DefaultValue() { VariantClear(&varDefaultValue); }
        DefaultValue(const DefaultValue&) = delete;
        DefaultValue& operator=(const DefaultValue&) = delete;
    };

    void describe(const EnumDescription& type);
    void describe(const RecordDescription& type);
    void describe(const AliasDescription& type);
    void describe(const InterfaceDescription& type, View view);
    void describe(const ClassDescription& type);
    FUNCDESC functionOf(const Member& member, View view, bool dual);

    HREFTYPE handleOf(const TypeDescription& type, View view = View::Dispatch);
    TYPEDESC typeOf(const TypeReference& type);
    TYPEDESC pointerTo(const TYPEDESC& type);
    PARAMDESC argumentOf(const Parameter& parameter);

    TYPEATTR attributes_{};
    std::vector<FUNCDESC> functions_;
    std::vector<VARDESC> variables_;
    std::vector<Implemented> implemented_;
    std::optional<HREFTYPE> otherView_;
    std::optional<VARDESC> instance_;
    std::vector<Target> targets_;
    // What the structures point at, at addresses that stay.
    std::deque<TYPEDESC> types_;
    std::deque<std::vector<ELEMDESC>> arguments_;
    std::deque<DefaultValue> defaults_;
    std::vector<VARIANT> values_;
};

} // namespace mox::typelib
