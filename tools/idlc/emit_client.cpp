#include "emitters.h"
#include "output.h"
#include "spelling.h"

#include <algorithm>

namespace idlc {

namespace {

/// The smart pointer class of an object type; empty for plain `IDispatch` and the like.
std::string clientClass(const Type& type) {
    const bool named = isObject(type) && type.basic == Basic::Named && type.definition->ownerClass;
    return named ? "mox::" + type.definition->ownerClass->name : std::string();
}

class ClientHeader {
public:
    ClientHeader(const Library& library, Output& out) : library_(library), out_(out) {}

    void write() {
        out_ << "// Smart pointers, properties, optional arguments, exceptions and events for C++ clients: " << library_.help
             << ".\n// Generated; do not edit.\n#pragma once\n\n#include <mox/" << library_.name
             << ".h>\n#include <mox/client/events.h>\n";
        for (const Library* imported : library_.imported) {
            out_ << (imported->name == "MoxRuntime" ? "#include <mox/runtime.h>\n" : "");
        }
        out_ << "\nnamespace mox {\n\nusing namespace " << library_.name << ";\n\n";
        for (const auto& definition : library_.definitions) {
            if (definition->kind == DefinitionKind::Class) {
                out_ << "class " << definition->name << ";\n";
            }
        }
        for (const auto& definition : library_.definitions) {
            if (definition->kind == DefinitionKind::Class) {
                if (definition->events) {
                    writeEvents(*definition);
                }
                writeClass(*definition);
            }
        }
        out_ << "\n// ---- the members\n";
        for (const auto& definition : library_.definitions) {
            if (definition->kind == DefinitionKind::Class) {
                for (const Member& member : definition->defaultInterface->members) {
                    writeBody(*definition, member);
                }
            }
        }
        out_ << "\n} // namespace mox\n";
    }

private:
    static bool byIdentifier(const Definition& type) { return type.defaultInterface->kind == DefinitionKind::DispatchInterface; }

    static std::string resultType(const Member& member) {
        const std::string object = clientClass(member.result);
        return object.empty() ? valueType(member.result) : object;
    }

    static std::string parameterType(const Parameter& parameter) {
        const std::string value = valueType(parameter.type);
        if (parameter.type.array || isRecord(parameter.type)) {
            return value + "&";
        }
        if (parameter.byReference()) {
            return "mox::InOut<" + value + ">";
        }
        if (const std::string object = clientClass(parameter.type); !object.empty()) {
            return "const " + object + "&";
        }
        if (isObject(parameter.type)) {
            return slotType(parameter.type);
        }
        const bool owns = parameter.type.basic == Basic::String || parameter.type.basic == Basic::Variant;
        return owns ? "const " + value + "&" : value;
    }

    static std::string parameters(const Member& member, bool withDefaults) {
        std::string result;
        for (const Parameter& parameter : member.parameters) {
            result += (result.empty() ? "" : ", ") + parameterType(parameter) + " " + parameter.name;
            if (withDefaults && parameter.optional && !isPut(member)) {
                result += " = " + (parameter.defaultValue ? defaultOf(parameter) : std::string("mox::Variant::missing()"));
            }
        }
        return result;
    }

    static std::string defaultOf(const Parameter& parameter) {
        return clientClass(parameter.type).empty() ? literal(*parameter.defaultValue, parameter.type)
                                                   : clientClass(parameter.type) + "()";
    }

    static bool isPut(const Member& member) { return member.kind == MemberKind::Put || member.kind == MemberKind::PutRef; }

    static std::string name(const Member& member) { return isPut(member) ? naturalName(member) : member.name; }

    void writeEvents(const Definition& type) {
        const std::string handlers = type.name + "Events";
        out_ << "\n/// Handlers for the events of " << type.name << "; those that are empty are not called.\nstruct " << handlers
             << " {\n";
        for (const Member& event : type.events->members) {
            std::string list;
            for (const Parameter& parameter : event.parameters) {
                const bool text = parameter.type.basic == Basic::String && !parameter.byReference();
                list += (list.empty() ? "" : ", ") + std::string(text ? "const " : "") + valueType(parameter.type) +
                        (parameter.byReference() || text ? "& " : " ") + parameter.name;
            }
            out_ << "    /// " << event.help << ".\n    std::function<void(" << list << ")> " << event.name << ";\n";
        }
        out_ << "};\ninline HRESULT deliver(const " << handlers
             << "& handlers, DISPID id, const client::EventArguments& arguments) {\n    switch (id) {\n";
        for (const Member& event : type.events->members) {
            out_ << "    case " << literal(std::int64_t{event.id}) << ":\n        return arguments.deliver(handlers."
                 << event.name << ");\n";
        }
        out_ << "    default:\n        return DISP_E_MEMBERNOTFOUND;\n    }\n}\n";
    }

    void writeClass(const Definition& type) {
        const std::string base = std::string(byIdentifier(type) ? "client::DispatchPointer<" : "client::ObjectPointer<") +
                                 qualified(*type.defaultInterface) + ">";
        out_ << "\n/// " << type.help << ".\nclass " << type.name << " : public " << base << " {\npublic:\n    using "
             << (byIdentifier(type) ? "DispatchPointer::DispatchPointer" : "ObjectPointer::ObjectPointer") << ";\n";
        if (type.creatable) {
            out_ << "    /// A new object.\n    static " << type.name << " create() { return " << type.name << "(createInstance("
                 << library_.name << "::CLSID_" << type.name << ")); }\n";
        }
        for (const Member& member : type.defaultInterface->members) {
            out_ << "    /// " << member.help << ".\n    " << resultType(member) << " " << name(member) << "("
                 << parameters(member, true) << ") const;\n";
            if (hasShortPut(member)) {
                out_ << "    " << resultType(member) << " " << name(member) << "(" << parameterType(member.parameters.back())
                     << " value) const { " << name(member) << "(" << shortPutArguments(member) << "value); }\n";
            }
        }
        if (type.events) {
            out_ << "    /// Connects handlers to the events of this object.\n    mox::Connection connect(" << type.name
                 << "Events handlers) const {\n        return client::connect(&this->raw(), mox::interfaceId<"
                 << qualified(*type.events) << ">, std::move(handlers));\n    }\n";
        }
        out_ << "};\n";
    }

    /// A Let with nothing but optional arguments before its value can be called with the value alone.
    static bool hasShortPut(const Member& member) {
        return isPut(member) && member.parameters.size() > 1 &&
               std::all_of(member.parameters.begin(), member.parameters.end() - 1, [](const Parameter& p) { return p.optional; });
    }

    static std::string shortPutArguments(const Member& member) {
        std::string result;
        for (std::size_t i = 0; i + 1 < member.parameters.size(); ++i) {
            result += defaultOf(member.parameters[i]) + ", ";
        }
        return result;
    }

    void writeBody(const Definition& type, const Member& member) {
        out_ << "\ninline " << resultType(member) << " " << type.name << "::" << name(member) << "(" << parameters(member, false)
             << ") const {\n";
        byIdentifier(type) ? writeInvoke(member) : writeCall(member);
        out_ << "}\n";
    }

    void writeCall(const Member& member) {
        std::string arguments;
        for (const Parameter& parameter : member.parameters) {
            arguments += (arguments.empty() ? "" : ", ") + argument(parameter);
        }
        const bool hasResult = member.result.basic != Basic::Void;
        if (hasResult) {
            out_ << "    " << valueType(member.result) << " result{};\n";
            arguments += (arguments.empty() ? "" : ", ") + std::string("client::slot(result)");
        }
        out_ << "    this->check(this->raw()." << slotName(member) << "(" << arguments << "));\n";
        if (hasResult) {
            const std::string object = clientClass(member.result);
            out_ << "    return " << (object.empty() ? "result" : object + "(std::move(result))") << ";\n";
        }
    }

    static std::string argument(const Parameter& parameter) {
        if (parameter.type.array || parameter.byReference()) {
            return "client::slot(" + parameter.name + ")";
        }
        if (parameter.type.basic == Basic::String || !clientClass(parameter.type).empty()) {
            return parameter.name + ".get()";
        }
        return parameter.name;
    }

    void writeInvoke(const Member& member) {
        static const char* const flags[] = {"DISPATCH_METHOD", "DISPATCH_PROPERTYGET", "DISPATCH_PROPERTYPUT",
                                            "DISPATCH_PROPERTYPUTREF"};
        std::string arguments;
        for (const Parameter& parameter : member.parameters) {
            arguments += ", " + (isObject(parameter.type) ? "mox::Ref<IDispatch>(" + argument(parameter) + ")" : parameter.name);
        }
        out_ << "    return this->template invoke<" << resultType(member) << ">(" << literal(std::int64_t{member.id}) << ", "
             << flags[static_cast<int>(member.kind)] << arguments << ");\n";
    }

    const Library& library_;
    Output& out_;
};

} // namespace

void emitClient(const Library& library, const Options& options) {
    Output out;
    ClientHeader(library, out).write();
    out.save(options.output / "include" / options.client);
}

} // namespace idlc
