#include "emitters.h"
#include "output.h"
#include "spelling.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace idlc {

namespace {

bool isPut(const Member& member) {
    return member.kind == MemberKind::Put || member.kind == MemberKind::PutRef;
}

/// The arguments of a property without its value, or those of a method.
std::span<const Parameter> indexesOf(const Member& member) {
    return std::span(member.parameters).first(member.parameters.size() - (isPut(member) ? 1 : 0));
}

const Member* find(const MemberGroup& group, MemberKind kind) {
    const auto found = std::ranges::find(group, kind, &Member::kind);
    return found == group.end() ? nullptr : *found;
}

const Member* putOf(const MemberGroup& group) {
    const Member* put = find(group, MemberKind::Put);
    return put ? put : find(group, MemberKind::PutRef);
}

bool isIdentifier(const EnumValue& value) {
    return identifier(value.name) == value.name;
}

} // namespace

std::vector<MemberGroup> membersByName(const Definition& interface) {
    std::vector<MemberGroup> groups;
    for (const Member& member : interface.members) {
        const auto group = std::ranges::find_if(groups, [&](const MemberGroup& g) { return g.front()->name == member.name; });
        (group == groups.end() ? groups.emplace_back() : *group).push_back(&member);
    }
    return groups;
}

bool isIndexed(const MemberGroup& group) {
    return group.front()->kind != MemberKind::Method &&
           std::ranges::any_of(group, [](const Member* m) { return !indexesOf(*m).empty(); });
}

std::string PythonSpelling::elementType(const Type& type, bool passed) const {
    switch (type.basic) {
    case Basic::Void:
        return "None";
    case Basic::Long:
    case Basic::Integer:
    case Basic::Byte:
        return "int";
    case Basic::Single:
    case Basic::Double:
        return "float";
    case Basic::Boolean:
        return "bool";
    case Basic::String:
        return "str";
    case Basic::Date:
        return passed ? "float | datetime" : package_ + "Date";
    case Basic::Currency:
        return passed ? "float | Decimal" : "Decimal";
    case Basic::Dispatch:
        return passed ? package_ + "Object | None" : "Any";
    case Basic::Variant:
    case Basic::Unknown:
        return "Any";
    case Basic::Named:
        break;
    }
    const Definition& named = *type.definition;
    switch (named.kind) {
    case DefinitionKind::Alias:
        return elementType(named.target, passed);
    case DefinitionKind::Enum:
        return enums_ + named.name + (passed ? " | int" : "");
    case DefinitionKind::Record:
    case DefinitionKind::Class:
        return package_ + named.name;
    case DefinitionKind::Interface:
    case DefinitionKind::DispatchInterface:
        break;
    }
    return package_ + (named.ownerClass ? named.ownerClass->name : "Object") + (passed ? " | None" : "");
}

std::string PythonSpelling::type(const Type& type, bool passed) const {
    if (!type.array) {
        return elementType(type, passed);
    }
    return type.basic == Basic::Byte ? "bytes" : "list[" + elementType(type, passed) + "]";
}

std::string PythonSpelling::argumentType(const Parameter& parameter) const {
    return type(parameter.type, true) + (parameter.byReference() ? " | " + package_ + "ByRef" : "");
}

std::string PythonSpelling::defaultValue(const Parameter& parameter) const {
    if (!parameter.defaultValue) {
        return "...";
    }
    const Constant& constant = *parameter.defaultValue;
    if (const auto* text = std::get_if<std::string>(&constant.value)) {
        return inQuotes(*text);
    }
    if (const auto* real = std::get_if<double>(&constant.value)) {
        return literal(*real);
    }
    if (isObject(parameter.type)) {
        return "None";
    }
    const auto number = std::get<std::int64_t>(constant.value);
    if (parameter.type.basic == Basic::Boolean) {
        return number ? "True" : "False";
    }
    return constant.name.empty() || identifier(constant.name) != constant.name ? std::to_string(number)
                                                                               : package_ + constant.name;
}

std::string PythonSpelling::arguments(const Member& member) const {
    const auto parameters = indexesOf(member);
    // An optional argument before a required one cannot be left out in this notation.
    const auto required = std::find_if(parameters.rbegin(), parameters.rend(), [](const Parameter& p) { return !p.optional; });
    const auto firstOptional = required.base();
    std::string result;
    for (auto parameter = parameters.begin(); parameter != parameters.end(); ++parameter) {
        result += (result.empty() ? "" : ", ") + parameter->name + ": " + argumentType(*parameter);
        result += parameter < firstOptional ? "" : " = " + defaultValue(*parameter);
    }
    return result;
}

std::string PythonSpelling::value(const Member& member) const {
    return isPut(member) ? argumentType(member.parameters.back()) : type(member.result, false);
}

namespace {

/// A text as a docstring.
std::string docstring(const std::string& text) {
    const std::string quoted = inQuotes(text);
    return "\"\"" + quoted + "\"\"";
}

/// The stubs of a library and of those that it imports.
class Stubs {
public:
    explicit Stubs(const Library& library) : library_(library) {
        for (const Library* imported : library.imported) {
            add(*imported);
        }
        add(library);
    }

    Output enums() const {
        Output out = begin("Enums");
        out << "from enum import IntEnum\n";
        for (const Definition* type : ofKind(DefinitionKind::Enum)) {
            out << "\nclass " << type->name << "(IntEnum):\n    " << docstring(type->help) << "\n";
            for (const EnumValue& value : type->values) {
                out << "    " << identifier(value.name) << " = " << static_cast<int>(value.number) << "\n    "
                    << docstring(value.help) << "\n";
            }
        }
        return out;
    }

    Output types() const {
        Output out = begin("Classes, records and enum values");
        out << "from datetime import datetime\nfrom decimal import Decimal\nfrom typing import Any, Literal, overload\n\nimport "
               "mox\nimport mox.enums\n";
        for (const Definition* type : ofKind(DefinitionKind::Class)) {
            const std::vector<MemberGroup> groups = membersByName(*type->defaultInterface);
            for (const MemberGroup& group : groups) {
                if (isIndexed(group)) {
                    writeIndexed(out, *type, group);
                }
            }
            writeClass(out, *type, groups);
        }
        writeRecordBase(out);
        for (const Definition* type : ofKind(DefinitionKind::Record)) {
            writeRecord(out, *type);
        }
        writeCreate(out);
        writeValues(out);
        return out;
    }

private:
    void add(const Library& library) {
        for (const auto& definition : library.definitions) {
            definitions_.push_back(definition.get());
        }
    }

    Output begin(std::string_view what) const {
        Output out;
        out << "# " << what << " of " << library_.name << ". Generated from "
            << std::filesystem::path(library_.place.file).filename().string() << "; do not edit.\n";
        return out;
    }

    std::vector<const Definition*> ofKind(DefinitionKind kind) const {
        std::vector<const Definition*> result;
        std::ranges::copy_if(definitions_, std::back_inserter(result),
                             [&](const Definition* type) { return type->kind == kind; });
        return result;
    }

    static std::string indexedName(const Definition& type, const MemberGroup& group) {
        return "_" + type.name + "_" + group.front()->name;
    }

    static std::string afterSelf(const std::string& arguments) { return arguments.empty() ? "" : ", " + arguments; }

    std::string indexType(const Member& member) const {
        const auto indexes = indexesOf(member);
        if (indexes.empty()) {
            return "Any";
        }
        return spelling_.argumentType(indexes.front()) + (indexes.size() > 1 ? " | tuple[Any, ...]" : "");
    }

    /// What a property with arguments is while it is neither called nor indexed.
    void writeIndexed(Output& out, const Definition& type, const MemberGroup& group) const {
        const std::string name = indexedName(type, group);
        const Member* get = find(group, MemberKind::Get);
        const Member* put = putOf(group);
        out << "\nclass " << name << ":\n    " << docstring((get ? get : put)->help)
            << "\n    def __get__(self, object: Any, owner: Any = ...) -> " << name << ": ...\n";
        if (get) {
            const std::string value = spelling_.value(*get);
            out << "    def __call__(self" << afterSelf(spelling_.arguments(*get)) << ") -> " << value
                << ": ...\n    def __getitem__(self, index: " << indexType(*get) << ") -> " << value << ": ...\n";
        }
        if (put) {
            const std::string value = spelling_.value(*put);
            out << "    def __set__(self, object: Any, value: " << value
                << ") -> None: ...\n    def __setitem__(self, index: " << indexType(*put) << ", value: " << value
                << ") -> None: ...\n";
        }
    }

    void writeClass(Output& out, const Definition& type, const std::vector<MemberGroup>& groups) const {
        out << "\nclass " << type.name << "(mox.Object):\n    " << docstring(type.help) << "\n";
        for (const MemberGroup& group : groups) {
            const Member& first = *group.front();
            if (first.kind == MemberKind::Method) {
                out << "    def " << first.name << "(self" << afterSelf(spelling_.arguments(first)) << ") -> "
                    << spelling_.value(first) << ":\n        " << docstring(first.help) << "\n";
            } else if (isIndexed(group)) {
                out << "    " << first.name << ": " << indexedName(type, group) << "\n";
            } else {
                writeProperty(out, group);
            }
            if (first.id == 0) {
                writeDefault(out, *(find(group, MemberKind::Get) ? find(group, MemberKind::Get) : &first));
            }
        }
    }

    void writeProperty(Output& out, const MemberGroup& group) const {
        const Member* get = find(group, MemberKind::Get);
        const Member* put = putOf(group);
        const std::string name = group.front()->name;
        out << "    @property\n    def " << name << "(self) -> " << (get ? spelling_.value(*get) : std::string("Any"))
            << ":\n        " << docstring((get ? get : put)->help) << "\n";
        if (put) {
            out << "    @" << name << ".setter\n    def " << name << "(self, value: " << spelling_.value(*put)
                << ") -> None: ...\n";
        }
    }

    /// An object can be called and indexed in place of its default member, or of the default member of what that gives.
    void writeDefault(Output& out, const Member& member) const {
        const bool hasArguments = !indexesOf(member).empty();
        const std::string result = hasArguments ? spelling_.value(member) : "Any";
        out << "    def __call__(self, " << (hasArguments ? spelling_.arguments(member) : "*arguments: Any") << ") -> " << result
            << ": ...\n    def __getitem__(self, index: Any) -> " << result
            << ": ...\n    def __setitem__(self, index: Any, value: Any) -> None: ...\n";
    }

    std::string fieldArguments(const Definition& record) const {
        std::string result = "*";
        for (const Field& field : record.fields) {
            result += ", " + field.name + ": " + spelling_.type(field.type, true) + " = ...";
        }
        return result;
    }

    void writeRecordBase(Output& out) const {
        out << "\nclass Record:\n    \"\"\"A record of the type library, by its name and with its fields.\"\"\"\n";
        for (const Definition* type : ofKind(DefinitionKind::Record)) {
            out << "    @overload\n    def __new__(cls, name: Literal[\"" << type->name << "\"], /, " << fieldArguments(*type)
                << ") -> mox." << type->name << ": ...\n";
        }
        out << "    @overload\n    def __new__(cls, name: str, /, **fields: Any) -> mox.Record: ...\n";
    }

    void writeRecord(Output& out, const Definition& type) const {
        out << "\nclass " << type.name << "(Record):\n    " << docstring(type.help) << "\n    def __new__(cls, "
            << fieldArguments(type) << ") -> mox." << type.name << ": ...\n";
        for (const Field& field : type.fields) {
            out << "    " << field.name << ": " << spelling_.type(field.type, false) << "\n    " << docstring(field.help) << "\n";
        }
    }

    void writeCreate(Output& out) const {
        out << "\n";
        for (const auto& type : library_.definitions) {
            if (type->kind == DefinitionKind::Class && type->creatable) {
                out << "@overload\ndef create(name: Literal[\"" << type->name << "\", \"" << library_.name << "." << type->name
                    << "\"]) -> " << type->name << ": ...\n";
            }
        }
        out << "@overload\ndef create(name: str) -> Any: ...\n\n";
    }

    void writeValues(Output& out) const {
        for (const Definition* type : ofKind(DefinitionKind::Enum)) {
            for (const EnumValue& value : type->values) {
                if (isIdentifier(value)) {
                    out << value.name << ": mox.enums." << type->name << "\n";
                }
            }
        }
    }

    const Library& library_;
    const PythonSpelling spelling_{"mox.", "mox.enums."};
    std::vector<const Definition*> definitions_;
};

} // namespace

void emitStubs(const Library& library, const std::filesystem::path& folder) {
    const Stubs stubs(library);
    stubs.enums().save(folder / "enums.pyi");
    stubs.types().save(folder / "_library.pyi");
}

} // namespace idlc
