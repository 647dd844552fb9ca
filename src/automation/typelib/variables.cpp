#include "automation/typelib/variables.h"

namespace mox::typelib {

namespace {

template <class Matches, class Described> NamedVariable findAmong(std::span<const Described> variables, Matches matches) {
    MEMBERID id = firstVariableId;
    for (const Described& variable : variables) {
        if (matches(variable.name, id)) {
            return {variable.name, variable.help, id};
        }
        ++id;
    }
    return {};
}

template <class Matches> NamedVariable findIn(const TypeDescription& type, Matches matches) {
    switch (type.kind) {
    case TypeKind::Enum:
        return findAmong(static_cast<const EnumDescription&>(type).values, matches);
    case TypeKind::Record:
        return findAmong(static_cast<const RecordDescription&>(type).fields, matches);
    default:
        return {};
    }
}

} // namespace

NamedVariable findVariable(const TypeDescription& type, const char16_t* name) noexcept {
    return findIn(type, [&](const char16_t* candidate, MEMBERID) { return sameName(candidate, name); });
}

NamedVariable findVariable(const TypeDescription& type, MEMBERID id) noexcept {
    return findIn(type, [&](const char16_t*, MEMBERID candidate) { return candidate == id; });
}

} // namespace mox::typelib
