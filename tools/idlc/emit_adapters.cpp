#include "emitters.h"
#include "output.h"
#include "spelling.h"

namespace idlc {

namespace {

/// The argument as the natural member takes it.
std::string passed(const Parameter& parameter) {
    if (parameter.type.array) {
        Type element = parameter.type;
        element.array = false;
        return "mox::arrayByReference<" + valueType(element) + ">(" + parameter.name + ")";
    }
    if (parameter.byReference()) {
        return "mox::byReference(" + parameter.name + ")";
    }
    if (parameter.type.basic == Basic::String || parameter.type.basic == Basic::Variant) {
        return "mox::byValue(" + parameter.name + ")";
    }
    return parameter.name;
}

class AdapterHeader {
public:
    AdapterHeader(const Definition& type, const Options& options, Output& out)
        : class_(type), interface_(*type.defaultInterface), options_(options), out_(out) {}

    void write() {
        const std::string& library = class_.library->name;
        const std::string self = options_.classes + "::" + class_.name;
        out_ << "// From the slots of " << interface_.name << " to the members of " << class_.name
             << ". Generated; do not edit.\n#pragma once\n\n#include \"" << library
             << "/descriptions.h\"\n\n#include \"automation/objects/" << (class_.events ? "eventsource.h" : "object.h")
             << "\"\n\nnamespace " << options_.classes << " {\nclass " << class_.name << ";\n}\n\nnamespace " << library
             << " {\n\n/// " << class_.help << ".\ntemplate <class Self>\nclass " << class_.name << "Adapter : public " << base()
             << " {\npublic:\n";
        for (const Member& member : interface_.members) {
            writeSlot(member);
        }
        if (class_.events) {
            out_ << "\nprotected:\n";
            for (const Member& event : class_.events->members) {
                writeEvent(event);
            }
        }
        out_ << "};\n\n} // namespace " << library << "\n\ntemplate <>\nstruct mox::AdapterOf<" << self
             << "> {\n    using type = " << library << "::" << class_.name << "Adapter<" << self
             << ">;\n    using interface = " << slots() << ";\n};\n";
    }

private:
    std::string slots() const {
        return qualified(interface_) + (interface_.kind == DefinitionKind::DispatchInterface ? "Slots" : "");
    }

    std::string base() const {
        return std::string(class_.events ? "mox::EventSource" : "mox::Object") + "<Self, " + slots() +
               ", description::" + class_.name + ">";
    }

    void writeSlot(const Member& member) {
        std::string arguments;
        for (const Parameter& parameter : member.parameters) {
            arguments += (arguments.empty() ? "" : ", ") + passed(parameter);
        }
        const bool hasResult = member.result.basic != Basic::Void;
        out_ << "    HRESULT " << slotName(member) << "(" << slotParameters(member) << ") final {\n        return this->call("
             << (hasResult ? "result, " : "") << "[&](Self& self)" << (hasResult ? " -> decltype(auto)" : "") << " { "
             << (hasResult ? "return " : "") << "self." << naturalName(member) << "(" << arguments << "); });\n    }\n";
    }

    void writeEvent(const Member& event) {
        std::string parameters;
        std::string arguments;
        for (const Parameter& parameter : event.parameters) {
            const bool text = parameter.type.basic == Basic::String && !parameter.byReference();
            parameters += (parameters.empty() ? "" : ", ") + std::string(text ? "const " : "") + valueType(parameter.type) +
                          (parameter.byReference() || text ? "& " : " ") + parameter.name;
            arguments += ", " + parameter.name;
        }
        out_ << "    /// " << event.help << ".\n    void raise_" << event.name << "(" << parameters << ") { this->raise("
             << literal(std::int64_t{event.id}) << arguments << "); }\n";
    }

    const Definition& class_;
    const Definition& interface_;
    const Options& options_;
    Output& out_;
};

} // namespace

void emitAdapters(const Library& library, const Options& options) {
    for (const auto& definition : library.definitions) {
        if (definition->kind == DefinitionKind::Class) {
            Output out;
            AdapterHeader(*definition, options, out).write();
            out.save(options.output / library.name / (definition->name + ".h"));
        }
    }
}

} // namespace idlc
