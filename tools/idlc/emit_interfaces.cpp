#include "emitters.h"
#include "output.h"
#include "spelling.h"

#include <algorithm>
#include <functional>
#include <set>

namespace idlc {

namespace {

class InterfaceHeader {
public:
    InterfaceHeader(const Library& library, Output& out) : library_(library), out_(out) {}

    void write() {
        out_ << "// " << library_.help << ".\n// Generated from "
             << std::filesystem::path(library_.place.file).filename().string()
             << "; do not edit.\n#pragma once\n\n#include <mox/values.h>\n";
        for (const Library* imported : library_.imported) {
            out_ << "#include <mox/" << imported->name << ".h>\n";
        }
        out_ << "\nnamespace " << library_.name << " {\n\ninline constexpr GUID libraryId" << guidInitialiser(library_.uuid)
             << ";\n\n";
        for (const auto& definition : library_.definitions) {
            if (definition->isInterface()) {
                out_ << "struct " << definition->name << ";\n";
            }
        }
        each(DefinitionKind::Alias, [&](const Definition& d) {
            out_ << "\n/// " << d.help << ".\nusing " << d.name << " = " << valueType(d.target) << ";\n";
        });
        each(DefinitionKind::Enum, [&](const Definition& d) { writeEnum(d); });
        out_ << "\n} // namespace " << library_.name << "\n";
        out_ << "\n// Identifiers come first: records may hold objects and records.\n";
        for (const auto& definition : library_.definitions) {
            if (definition->isInterface()) {
                out_ << "template <>\ninline constexpr IID mox::interfaceId<" << qualified(*definition) << ">"
                     << guidInitialiser(definition->uuid) << ";\n";
            }
        }
        each(DefinitionKind::Record, [&](const Definition& d) { writeRecordTraits(d); });
        out_ << "\nnamespace " << library_.name << " {\n";
        for (const auto& definition : library_.definitions) {
            if (definition->isInterface()) {
                writeInterface(*definition);
            }
        }
        std::set<const Definition*> written;
        each(DefinitionKind::Record, [&](const Definition& d) { writeRecord(d, written); });
        each(DefinitionKind::Class, [&](const Definition& d) {
            out_ << "\n/// " << d.help << ".\ninline constexpr CLSID CLSID_" << d.name << guidInitialiser(d.uuid) << ";\n";
        });
        out_ << "\n} // namespace " << library_.name << "\n";
    }

private:
    void each(DefinitionKind kind, const std::function<void(const Definition&)>& write) {
        for (const auto& definition : library_.definitions) {
            if (definition->kind == kind) {
                write(*definition);
            }
        }
    }

    void writeEnum(const Definition& d) {
        out_ << "\n/// " << d.help << ".\nenum " << d.name << " : std::int32_t {\n";
        for (const EnumValue& value : d.values) {
            out_ << "    /// " << value.help << ".\n    " << identifier(value.name) << " = "
                 << literal(std::int64_t{value.number}) << ",\n";
        }
        out_ << "};\n";
    }

    void writeRecordTraits(const Definition& d) {
        out_ << "\nnamespace " << library_.name << " {\nstruct " << d.name << ";\n}\ntemplate <>\nstruct mox::RecordTraits<"
             << qualified(d) << "> {\n    static constexpr GUID library = " << library_.name
             << "::libraryId;\n    static constexpr GUID id" << guidInitialiser(d.uuid)
             << ";\n    static constexpr ULONG major = " << library_.major
             << ";\n    static constexpr ULONG minor = " << library_.minor << ";\n};\n";
    }

    /// Records that a record holds come before it.
    void writeRecord(const Definition& d, std::set<const Definition*>& written) {
        if (!written.insert(&d).second) {
            return;
        }
        for (const Field& field : d.fields) {
            if (isRecord(field.type) && field.type.definition->library == &library_) {
                writeRecord(*field.type.definition, written);
            }
        }
        out_ << "\n/// " << d.help << ".\nstruct " << d.name << " {\n";
        for (const Field& field : d.fields) {
            out_ << "    /// " << field.help << ".\n    " << valueType(field.type) << " " << field.name << "{};\n";
        }
        if (std::ranges::all_of(d.fields, [](const Field& field) { return isComparable(field.type); })) {
            out_ << "\n    friend bool operator==(const " << d.name << "&, const " << d.name << "&) = default;\n";
        }
        out_ << "};\n";
    }

    static bool isComparable(const Type& type) {
        if (isRecord(type)) {
            return std::ranges::all_of(type.definition->fields, [](const Field& field) { return isComparable(field.type); });
        }
        return !type.array && type.basic != Basic::Variant;
    }

    void writeInterface(const Definition& d) {
        out_ << "\n/// " << d.help << ".\n";
        if (d.kind == DefinitionKind::DispatchInterface) {
            out_ << "/// Called by dispatch identifier only.\nstruct " << d.name << " : IDispatch {};\n";
            if (d.isEvents) {
                return;
            }
            out_ << "\n/// The members of `" << d.name << "` as our own objects have them; other objects do not.\nstruct "
                 << d.name << "Slots : " << d.name << " {\n";
        } else {
            out_ << "struct " << d.name << " : IDispatch {\n";
        }
        for (const Member& member : d.members) {
            out_ << "    /// " << member.help << ".\n    virtual HRESULT " << slotName(member) << "(" << slotParameters(member)
                 << ") = 0;\n";
        }
        out_ << "\nprotected:\n    ~" << d.name << (d.kind == DefinitionKind::DispatchInterface ? "Slots" : "")
             << "() = default;\n};\n";
    }

    const Library& library_;
    Output& out_;
};

} // namespace

void emitInterfaces(const Library& library, const Options& options) {
    Output out;
    InterfaceHeader(library, out).write();
    out.save(options.output / "include" / "mox" / (library.name + ".h"));
}

} // namespace idlc
