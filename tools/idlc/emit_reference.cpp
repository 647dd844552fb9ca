#include "emitters.h"
#include "output.h"
#include "spelling.h"

#include <algorithm>
#include <fstream>

namespace idlc {

namespace {

/// Text in Markdown: marks that mean something there are escaped.
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        result += std::string_view("*<>[]|`").find(c) == std::string_view::npos ? "" : "\\";
        result += c;
    }
    return result;
}

std::string lowered(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// Declarations as Visual Basic writes them.
class Declarations {
public:
    static std::string typeName(const Type& type) {
        switch (type.basic) {
        case Basic::Void:
            return "";
        case Basic::Long:
            return "Long";
        case Basic::Integer:
            return "Integer";
        case Basic::Byte:
            return "Byte";
        case Basic::Single:
            return "Single";
        case Basic::Double:
            return "Double";
        case Basic::Boolean:
            return "Boolean";
        case Basic::String:
            return "String";
        case Basic::Date:
            return "Date";
        case Basic::Currency:
            return "Currency";
        case Basic::Variant:
            return "Variant";
        case Basic::Dispatch:
            return "Object";
        case Basic::Unknown:
            return "Unknown";
        case Basic::Named:
            break;
        }
        return type.definition->ownerClass ? type.definition->ownerClass->name : type.definition->name;
    }

    static std::string variable(const std::string& name, const Type& type) {
        return name + (type.array ? "()" : "") + " As " + typeName(type);
    }

    static std::string declaration(const Member& member, const char* methodWord = nullptr) {
        std::string arguments;
        for (const Parameter& parameter : member.parameters) {
            arguments += (arguments.empty() ? "" : ", ") + argument(parameter);
        }
        const bool hasResult = member.result.basic != Basic::Void;
        const std::string result = hasResult ? " As " + typeName(member.result) + (member.result.array ? "()" : "") : "";
        return std::string(methodWord ? methodWord : word(member)) + " " + member.name + "(" + arguments + ")" + result;
    }

private:
    static const char* word(const Member& member) {
        switch (member.kind) {
        case MemberKind::Get:
            return "Property Get";
        case MemberKind::Put:
            return "Property Let";
        case MemberKind::PutRef:
            return "Property Set";
        case MemberKind::Method:
            break;
        }
        return member.result.basic == Basic::Void ? "Sub" : "Function";
    }

    static std::string argument(const Parameter& parameter) {
        std::string result = parameter.optional ? "Optional " : "";
        result += parameter.byReference() ? "ByRef " : "";
        result += variable(parameter.name, parameter.type);
        return parameter.defaultValue ? result + " = " + constant(parameter) : result;
    }

    static std::string constant(const Parameter& parameter) {
        const Constant& value = *parameter.defaultValue;
        if (const auto* text = std::get_if<std::string>(&value.value)) {
            return inQuotes(*text);
        }
        if (const auto* real = std::get_if<double>(&value.value)) {
            return literal(*real);
        }
        if (isObject(parameter.type)) {
            return "Nothing";
        }
        const auto number = std::get<std::int64_t>(value.value);
        if (parameter.type.basic == Basic::Boolean) {
            return number ? "True" : "False";
        }
        return value.name.empty() ? std::to_string(number) : value.name;
    }
};

/// The pages of a library and of those that it imports.
class Reference {
public:
    Reference(const Library& library, std::filesystem::path folder) : library_(library), folder_(std::move(folder)) {
        add(library, sectionsOf(library));
        for (const Library* imported : library.imported) {
            add(*imported, {{0, imported->help}});
        }
    }

    void write() const {
        writeIndex();
        for (const Section& section : sections_) {
            for (const Definition* type : section.types) {
                if (type->kind == DefinitionKind::Class) {
                    writeClass(*type, section);
                }
            }
        }
        writeList("Enums", "enums.md", DefinitionKind::Enum);
        writeList("Records", "records.md", DefinitionKind::Record);
    }

private:
    /// A part of a library: from a line of its file on.
    struct Heading {
        int line = 0;
        std::string text;
    };
    struct Section {
        std::string title;
        std::string text;
        std::vector<const Definition*> types;
    };

    /// The headings of an IDL file are its comments of the form `// Printing: the printer list, ...`.
    static std::vector<Heading> sectionsOf(const Library& library) {
        static constexpr std::string_view mark = "    // ";
        std::vector<Heading> headings;
        std::ifstream file(library.place.file);
        std::string line;
        for (int number = 1; std::getline(file, line); ++number) {
            const std::size_t colon = line.find(": ");
            if (line.starts_with(mark) && colon != std::string::npos) {
                headings.push_back({number, line.substr(mark.size())});
            }
        }
        if (headings.empty()) {
            headings.push_back({0, library.help});
        }
        return headings;
    }

    void add(const Library& library, const std::vector<Heading>& headings) {
        for (const Heading& heading : headings) {
            const std::size_t colon = heading.text.find(": ");
            Section section{heading.text.substr(0, colon), "", {}};
            section.text = colon == std::string::npos ? "" : heading.text.substr(colon + 2);
            const auto next = std::ranges::find_if(headings, [&](const Heading& other) { return other.line > heading.line; });
            for (const auto& type : library.definitions) {
                if (type->place.line > heading.line && (next == headings.end() || type->place.line < next->line)) {
                    section.types.push_back(type.get());
                }
            }
            sections_.push_back(std::move(section));
        }
    }

    static std::string pageOf(const Definition& type) {
        switch (type.kind) {
        case DefinitionKind::Enum:
            return "enums.md#" + lowered(type.name);
        case DefinitionKind::Record:
            return "records.md#" + lowered(type.name);
        default:
            return type.name + ".md";
        }
    }

    static std::string link(const Definition& type) { return "[" + type.name + "](" + pageOf(type) + ")"; }

    void writeIndex() const {
        Output out;
        out << "# Reference of " << library_.name << "\n\n"
            << escaped(library_.help) << ".\n\nClasses marked with * can be created; objects of the "
            << "others come from members. All [enums](enums.md) and [records](records.md) have a page of their own.\n";
        for (const Section& section : sections_) {
            out << "\n## " << section.title << "\n";
            if (!section.text.empty()) {
                out << "\n" << escaped(capitalised(section.text)) << ".\n";
            }
            out << "\n| Class | | |\n|---|---|---|\n";
            for (const Definition* type : section.types) {
                if (type->kind == DefinitionKind::Class) {
                    out << "| " << link(*type) << " | " << (type->creatable ? "\\*" : "") << " | " << escaped(type->help)
                        << " |\n";
                }
            }
            writeNames(out, "Records", section, DefinitionKind::Record);
            writeNames(out, "Enums", section, DefinitionKind::Enum);
        }
        out.save(folder_ / "README.md");
    }

    static std::string capitalised(std::string text) {
        text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
        return text;
    }

    static void writeNames(Output& out, std::string_view title, const Section& section, DefinitionKind kind) {
        std::string names;
        for (const Definition* type : section.types) {
            if (type->kind == kind) {
                names += (names.empty() ? "" : ", ") + link(*type);
            }
        }
        if (!names.empty()) {
            out << "\n" << title << ": " << names << "\n";
        }
    }

    void writeClass(const Definition& type, const Section& section) const {
        Output out;
        const Library& library = *type.library;
        out << "# " << type.name << "\n\n"
            << escaped(type.help) << ".\n\nPart of [" << section.title << "](README.md#" << anchorOf(section.title) << ")."
            << (type.creatable && &library == &library_ ? creation(type) : "") << "\n\n- Class identifier `{" << type.uuid
            << "}`\n- Interface `" << type.defaultInterface->name << "`, `{" << type.defaultInterface->uuid << "}`\n";
        if (type.events) {
            out << "- Events `" << type.events->name << "`, `{" << type.events->uuid << "}`\n";
        }
        out << "\n## Members\n";
        for (const MemberGroup& group : membersByName(*type.defaultInterface)) {
            writeMember(out, group);
        }
        if (type.events) {
            out << "\n## Events\n";
            for (const Member& event : type.events->members) {
                out << "\n### " << event.name << "\n\n"
                    << escaped(event.help) << ".\n\n```vb\n"
                    << Declarations::declaration(event, "Event") << "\n```\n\n```python\n{\"" << event.name << "\": lambda "
                    << names(event) << ": ...}\n```\n";
                writeLinks(out, {&event});
            }
        }
        out.save(folder_ / (type.name + ".md"));
    }

    static std::string creation(const Definition& type) {
        return " Created by its ProgID `" + type.library->name + "." + type.name + "`; in Python `mox.create(\"" + type.name +
               "\")`.";
    }

    static std::string anchorOf(const std::string& title) {
        std::string result = lowered(title);
        std::ranges::replace(result, ' ', '-');
        std::erase_if(result, [](unsigned char c) { return !std::isalnum(c) && c != '-' && c != '_'; });
        return result;
    }

    static std::string names(const Member& member) {
        std::string result;
        for (const Parameter& parameter : member.parameters) {
            result += (result.empty() ? "" : ", ") + parameter.name;
        }
        return result;
    }

    void writeMember(Output& out, const MemberGroup& group) const {
        const Member& first = *group.front();
        out << "\n### " << first.name << "\n\n";
        for (const Member* member : group) {
            out << (group.size() > 1 ? std::string("- ") + use(*member) + ": " : "") << escaped(member->help) << ".\n";
        }
        if (first.id == 0) {
            out << "\nThe default member: the object itself can be used in its place.\n";
        }
        if (first.hidden) {
            out << "\nNot shown in object browsers.\n";
        }
        out << "\n```vb\n";
        for (const Member* member : group) {
            out << Declarations::declaration(*member) << "\n";
        }
        out << "```\n\n```python\n" << python(group) << "```\n";
        writeLinks(out, group);
    }

    static const char* use(const Member& member) {
        return member.kind == MemberKind::Get ? "Get" : member.kind == MemberKind::Put ? "Let" : "Set";
    }

    std::string python(const MemberGroup& group) const {
        const Member& first = *group.front();
        if (first.kind == MemberKind::Method) {
            return call(first);
        }
        if (!isIndexed(group)) {
            const bool isRead = std::ranges::any_of(group, [](const Member* m) { return m->kind == MemberKind::Get; });
            const bool isSet = std::ranges::any_of(group, [](const Member* m) { return m->kind != MemberKind::Get; });
            const char* uses = !isSet ? "read" : isRead ? "read and set" : "set";
            return first.name + ": " + spelling_.value(first) + "  # " + uses + "\n";
        }
        std::string result;
        for (const Member* member : group) {
            result += member->kind == MemberKind::Get
                          ? call(*member)
                          : member->name + "[" + spelling_.arguments(*member) + "] = value: " + spelling_.value(*member) + "\n";
        }
        return result;
    }

    std::string call(const Member& member) const {
        return member.name + "(" + spelling_.arguments(member) + ") -> " + spelling_.value(member) + "\n";
    }

    /// Where the types of a member are described.
    static void writeLinks(Output& out, const MemberGroup& group) {
        std::vector<const Definition*> types;
        const auto note = [&](const Type& type) {
            const Definition* named = type.definition;
            named = named && named->ownerClass ? named->ownerClass : named;
            const bool hasPage = named && named->kind != DefinitionKind::Alias && !named->isInterface();
            if (hasPage && std::ranges::find(types, named) == types.end()) {
                types.push_back(named);
            }
        };
        for (const Member* member : group) {
            for (const Parameter& parameter : member->parameters) {
                note(parameter.type);
            }
            note(member->result);
        }
        std::string links;
        for (const Definition* type : types) {
            links += (links.empty() ? "" : ", ") + link(*type);
        }
        if (!links.empty()) {
            out << "\nSee " << links << ".\n";
        }
    }

    void writeList(std::string_view title, const char* file, DefinitionKind kind) const {
        Output out;
        out << "# " << title << " of " << library_.name << "\n";
        for (const Section& section : sections_) {
            for (const Definition* type : section.types) {
                if (type->kind == kind) {
                    kind == DefinitionKind::Enum ? writeEnum(out, *type) : writeRecord(out, *type);
                }
            }
        }
        out.save(folder_ / file);
    }

    static void writeEnum(Output& out, const Definition& type) {
        out << "\n## " << type.name << "\n\n" << escaped(type.help) << ".\n\n| Name | Value | |\n|---|---:|---|\n";
        for (const EnumValue& value : type.values) {
            out << "| `" << value.name << "` | " << static_cast<int>(value.number) << " | " << escaped(value.help) << " |\n";
        }
    }

    static void writeRecord(Output& out, const Definition& type) {
        out << "\n## " << type.name << "\n\n" << escaped(type.help) << ".\n\n| Field | Type | |\n|---|---|---|\n";
        for (const Field& field : type.fields) {
            const Definition* named = field.type.definition;
            const bool isLink = named && (named->kind == DefinitionKind::Enum || named->kind == DefinitionKind::Record);
            out << "| `" << field.name << (field.type.array ? "()" : "") << "` | "
                << (isLink ? link(*named) : Declarations::typeName(field.type)) << " | " << escaped(field.help) << " |\n";
        }
    }

    const Library& library_;
    const std::filesystem::path folder_;
    const PythonSpelling spelling_{"", ""};
    std::vector<Section> sections_;
};

} // namespace

void emitReference(const Library& library, const std::filesystem::path& folder) {
    Reference(library, folder).write();
}

} // namespace idlc
