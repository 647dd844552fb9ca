#include "emitters.h"
#include "output.h"
#include "spelling.h"

#include "automation/typelib/description.h"

#include <algorithm>
#include <map>

namespace idlc {

namespace {

std::string utf16Literal(const std::string& text) {
    return "u" + inQuotes(text);
}

std::string descriptionOf(const Definition& definition) {
    return definition.library->name + "::description::" + definition.name;
}

const char* variantOf(Basic basic) {
    static const std::map<Basic, const char*> names = {
        {Basic::Void, "VT_VOID"},       {Basic::Long, "VT_I4"},          {Basic::Integer, "VT_I2"},
        {Basic::Byte, "VT_UI1"},        {Basic::Single, "VT_R4"},        {Basic::Double, "VT_R8"},
        {Basic::Boolean, "VT_BOOL"},    {Basic::String, "VT_BSTR"},      {Basic::Date, "VT_DATE"},
        {Basic::Currency, "VT_CY"},     {Basic::Variant, "VT_VARIANT"},  {Basic::Dispatch, "VT_DISPATCH"},
        {Basic::Unknown, "VT_UNKNOWN"}, {Basic::Named, "VT_USERDEFINED"}};
    return names.at(basic);
}

std::string typeReference(const Type& type, bool byReference = false) {
    const bool object = type.basic == Basic::Named && type.definition->isInterface();
    std::string result = std::string("{") + (object ? "VT_DISPATCH" : variantOf(type.basic));
    result += type.array ? ", true" : ", false";
    result += byReference ? ", true" : ", false";
    result += type.definition ? ", &" + descriptionOf(*type.definition) : ", nullptr";
    return result + "}";
}

std::string constant(const Parameter& parameter) {
    if (!parameter.defaultValue) {
        return "{}";
    }
    const Constant& value = *parameter.defaultValue;
    if (const auto* text = std::get_if<std::string>(&value.value)) {
        return "{Constant::Kind::Text, 0, 0, " + utf16Literal(*text) + "}";
    }
    if (const auto* real = std::get_if<double>(&value.value)) {
        return "{Constant::Kind::Real, 0, " + literal(*real) + ", nullptr}";
    }
    if (isObject(parameter.type)) {
        return "{Constant::Kind::Nothing, 0, 0, nullptr}";
    }
    return "{Constant::Kind::Integer, " + literal(std::get<std::int64_t>(value.value)) + ", 0, nullptr}";
}

std::string flagsOf(const Parameter& parameter) {
    std::string result = "PARAMFLAG_FIN";
    result += parameter.byReference() ? " | PARAMFLAG_FOUT" : "";
    result += parameter.optional ? " | PARAMFLAG_FOPT" : "";
    result += parameter.defaultValue ? " | PARAMFLAG_FHASDEFAULT" : "";
    return result;
}

const char* invokeKind(MemberKind kind) {
    switch (kind) {
    case MemberKind::Get:
        return "INVOKE_PROPERTYGET";
    case MemberKind::Put:
        return "INVOKE_PROPERTYPUT";
    case MemberKind::PutRef:
        return "INVOKE_PROPERTYPUTREF";
    case MemberKind::Method:
        break;
    }
    return "INVOKE_FUNC";
}

class Tables {
public:
    explicit Tables(const Library& library) : library_(library) {
        // Each type goes to the file that has the fewest members so far.
        std::size_t load[tableFiles] = {};
        for (const auto& definition : library.definitions) {
            const auto lightest = std::ranges::min_element(load);
            *lightest += definition->members.size() + 1;
            fileOf_.push_back(static_cast<std::size_t>(lightest - load));
        }
    }

    Output header() const {
        Output out;
        out << "// The run-time tables of " << library_.name << ". Generated; do not edit.\n#pragma once\n\n"
            << "#include \"automation/objects/export.h\"\n#include \"automation/typelib/description.h\"\n\n#include <mox/"
            << library_.name << ".h>\n\nnamespace " << library_.name
            << "::description {\n\nextern MOX_API const mox::typelib::LibraryDescription library;\n";
        for (const auto& definition : library_.definitions) {
            out << "extern MOX_API const mox::typelib::" << className(*definition) << " " << definition->name << ";\n";
        }
        out << "\n} // namespace " << library_.name << "::description\n\n";
        for (const auto& definition : library_.definitions) {
            if (definition->kind == DefinitionKind::Class) {
                out << "template <>\ninline constexpr const mox::typelib::ClassDescription& mox::typelib::classOf<"
                    << qualified(*definition->defaultInterface) << "> = " << descriptionOf(*definition) << ";\n";
            }
        }
        return out;
    }

    /// The types of one file, and in the first file the library itself.
    Output file(std::size_t number) const {
        Output out;
        out << "// Generated; do not edit.\n#include \"" << library_.name << "/descriptions.h\"\n\n";
        for (const Library* imported : library_.imported) {
            out << "#include \"" << imported->name << "/descriptions.h\"\n";
        }
        out << "#include \"automation/typelib/arguments.h\"\n\n#include <cstddef>\n\nnamespace " << library_.name
            << "::description {\n\nusing namespace mox::typelib;\n";
        for (std::size_t i = 0; i < library_.definitions.size(); ++i) {
            if (fileOf_[i] == number) {
                write(out, *library_.definitions[i], i);
            }
        }
        if (number == 0) {
            writeLibrary(out);
        }
        out << "\n} // namespace " << library_.name << "::description\n";
        return out;
    }

private:
    static const char* className(const Definition& definition) {
        switch (definition.kind) {
        case DefinitionKind::Enum:
            return "EnumDescription";
        case DefinitionKind::Record:
            return "RecordDescription";
        case DefinitionKind::Alias:
            return "AliasDescription";
        case DefinitionKind::Interface:
        case DefinitionKind::DispatchInterface:
            return "InterfaceDescription";
        case DefinitionKind::Class:
            break;
        }
        return "ClassDescription";
    }

    static const char* kindName(const Definition& definition) {
        switch (definition.kind) {
        case DefinitionKind::Enum:
            return "TypeKind::Enum";
        case DefinitionKind::Record:
            return "TypeKind::Record";
        case DefinitionKind::Alias:
            return "TypeKind::Alias";
        case DefinitionKind::Interface:
            return "TypeKind::Interface";
        case DefinitionKind::DispatchInterface:
            return "TypeKind::Events";
        case DefinitionKind::Class:
            break;
        }
        return "TypeKind::Class";
    }

    void begin(Output& out, const Definition& d, std::size_t index) const {
        out << "constinit const " << className(d) << " " << d.name << "{\n    {" << kindName(d) << ", " << utf16Literal(d.name)
            << ", " << utf16Literal(d.help) << ", GUID" << (d.uuid.empty() ? "{}" : guidInitialiser(d.uuid)) << ", library, "
            << index << "},\n";
    }

    void write(Output& out, const Definition& d, std::size_t index) const {
        out << "\n// ---- " << d.name << "\n";
        switch (d.kind) {
        case DefinitionKind::Enum:
            out << "static constexpr EnumValue valuesOf_" << d.name << "[] = {\n";
            for (const EnumValue& value : d.values) {
                out << "    {" << utf16Literal(value.name) << ", " << utf16Literal(value.help) << ", "
                    << literal(std::int64_t{value.number}) << "},\n";
            }
            out << "};\n";
            begin(out, d, index);
            out << "    valuesOf_" << d.name << "};\n";
            break;
        case DefinitionKind::Record:
            writeRecord(out, d, index);
            break;
        case DefinitionKind::Alias:
            begin(out, d, index);
            out << "    " << typeReference(d.target) << "};\n";
            break;
        case DefinitionKind::Interface:
        case DefinitionKind::DispatchInterface:
            writeInterface(out, d, index);
            break;
        case DefinitionKind::Class:
            begin(out, d, index);
            out << "    &" << d.defaultInterface->name << ", " << (d.events ? "&" + d.events->name : "nullptr") << ", "
                << (d.creatable ? "true" : "false") << ", " << (d.appObject ? "true" : "false") << "};\n";
            break;
        }
    }

    void writeRecord(Output& out, const Definition& d, std::size_t index) const {
        const std::string type = qualified(d);
        out << "static constexpr Field fieldsOf_" << d.name << "[] = {\n";
        for (const Field& field : d.fields) {
            out << "    {" << utf16Literal(field.name) << ", " << utf16Literal(field.help) << ", " << typeReference(field.type)
                << ", offsetof(" << type << ", " << field.name << ")},\n";
        }
        out << "};\n";
        begin(out, d, index);
        out << "    fieldsOf_" << d.name << ", sizeof(" << type << "), alignof(" << type << "), &constructRecord<" << type
            << ">,\n    &destroyRecord<" << type << ">, &assignRecord<" << type << ">};\n";
    }

    void writeInterface(Output& out, const Definition& d, std::size_t index) const {
        for (std::size_t i = 0; i < d.members.size(); ++i) {
            const Member& member = d.members[i];
            if (member.parameters.empty()) {
                continue;
            }
            out << "static constexpr Parameter parametersOf_" << d.name << "_" << i << "[] = {\n";
            for (const Parameter& parameter : member.parameters) {
                out << "    {" << utf16Literal(parameter.name) << ", " << typeReference(parameter.type, parameter.byReference())
                    << ", " << flagsOf(parameter) << ", " << constant(parameter) << "},\n";
            }
            out << "};\n";
        }
        out << "static constexpr Member membersOf_" << d.name << "[] = {\n";
        for (std::size_t i = 0; i < d.members.size(); ++i) {
            writeMember(out, d, i);
        }
        out << "};\n";
        writeIndexes(out, d);
        begin(out, d, index);
        out << "    membersOf_" << d.name << ", idsOf_" << d.name << ", namesOf_" << d.name << "};\n";
    }

    void writeMember(Output& out, const Definition& d, std::size_t index) const {
        const Member& member = d.members[index];
        std::string flags = "0";
        flags = member.hidden ? "FUNCFLAG_FHIDDEN" : flags;
        flags = member.nonBrowsable ? (member.hidden ? flags + " | " : std::string()) + "FUNCFLAG_FNONBROWSABLE" : flags;
        int nextSameId = -1;
        for (std::size_t i = d.members.size(); i-- > index + 1;) {
            nextSameId = d.members[i].id == member.id ? static_cast<int>(i) : nextSameId;
        }
        out << "    {" << utf16Literal(member.name) << ", " << utf16Literal(member.help) << ", "
            << literal(std::int64_t{member.id}) << ", " << invokeKind(member.kind) << ", " << flags << ", " << index << ", "
            << nextSameId << ",\n     "
            << (member.parameters.empty() ? "{}" : "parametersOf_" + d.name + "_" + std::to_string(index)) << ", "
            << typeReference(member.result) << ", ";
        if (d.isEvents) {
            out << "nullptr},\n"; // clients implement events
        } else {
            const bool isDispatch = d.kind == DefinitionKind::DispatchInterface;
            out << "&SlotThunk<&" << qualified(d) << (isDispatch ? "Slots" : "") << "::" << slotName(member) << ", "
                << (member.result.basic == Basic::Void ? "false" : "true") << ">::invoke},\n";
        }
    }

    static void writeIndexes(Output& out, const Definition& d) {
        std::map<std::int32_t, std::size_t> firstOfId;
        std::map<std::string, std::size_t> firstOfName;
        std::int32_t highest = -1;
        for (std::size_t i = 0; i < d.members.size(); ++i) {
            firstOfId.emplace(d.members[i].id, i);
            firstOfName.emplace(d.members[i].name, i);
            // A wide gap is not worth a table; such members are searched.
            if (d.members[i].id >= 0 && d.members[i].id <= static_cast<std::int32_t>(2 * d.members.size() + 8)) {
                highest = std::max(highest, d.members[i].id);
            }
        }
        out << "static constexpr std::int16_t idsOf_" << d.name << "[] = {";
        for (std::int32_t id = 0; id <= std::max(highest, 0); ++id) {
            out << (id ? ", " : "") << (firstOfId.contains(id) ? static_cast<int>(firstOfId[id]) : -1);
        }
        std::size_t size = 2;
        while (size < 2 * firstOfName.size()) {
            size *= 2;
        }
        std::vector<int> slots(size, -1);
        for (const auto& [name, first] : firstOfName) {
            const std::u16string wide(name.begin(), name.end());
            std::size_t slot = mox::typelib::hashOfName(wide.c_str()) & (size - 1);
            while (slots[slot] >= 0) {
                slot = (slot + 1) & (size - 1);
            }
            slots[slot] = static_cast<int>(first);
        }
        out << "};\nstatic constexpr std::int16_t namesOf_" << d.name << "[] = {";
        for (std::size_t i = 0; i < size; ++i) {
            out << (i ? ", " : "") << slots[i];
        }
        out << "};\n";
    }

    void writeLibrary(Output& out) const {
        out << "\n// ---- the library\nstatic constexpr const TypeDescription* types[] = {\n";
        for (const auto& definition : library_.definitions) {
            out << "    &" << definition->name << ",\n";
        }
        out << "};\nstatic constinit LibraryState state;\nconstinit const LibraryDescription library{\n    "
            << utf16Literal(library_.name) << ", " << utf16Literal(library_.help) << ",\n    GUID"
            << guidInitialiser(library_.uuid) << ", " << library_.major << ", " << library_.minor << ", "
            << static_cast<long long>(library_.lcid) << ", types, state};\n";
    }

    const Library& library_;
    std::vector<std::size_t> fileOf_;
};

} // namespace

void emitDescriptions(const Library& library, const Options& options) {
    const Tables tables(library);
    const std::filesystem::path folder = options.output / library.name;
    tables.header().save(folder / "descriptions.h");
    for (std::size_t i = 0; i < tableFiles; ++i) {
        tables.file(i).save(folder / ("descriptions_" + std::to_string(i) + ".cpp"));
    }
}

} // namespace idlc
