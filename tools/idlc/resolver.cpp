#include "resolver.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

namespace idlc {

namespace {

constexpr std::size_t mostParameters = 32;

std::string lowerCase(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

class Resolver {
public:
    explicit Resolver(Library& library) : library_(library) {}

    void run() {
        checkUuid(library_.place, library_.uuid);
        for (const Library* imported : library_.imported) {
            for (const auto& definition : imported->definitions) {
                names_.emplace(definition->name, definition.get());
            }
        }
        for (const auto& definition : library_.definitions) {
            if (!names_.emplace(definition->name, definition.get()).second) {
                throw Failure(definition->place, definition->name + " is defined twice");
            }
            needHelp(definition->place, definition->name, definition->help);
        }
        for (const auto& definition : library_.definitions) {
            resolveDefinition(*definition);
        }
        checkEnumValues();
    }

private:
    static void needHelp(const Place& place, const std::string& name, const std::string& help) {
        if (help.empty()) {
            throw Failure(place, name + " has no helpstring");
        }
        if (std::ranges::any_of(help, [](unsigned char c) { return c < 0x20 || c > 0x7E; })) {
            throw Failure(place, "the helpstring of " + name + " is not plain ASCII");
        }
    }

    void checkUuid(const Place& place, const std::string& uuid) {
        static constexpr std::string_view form = "XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX";
        const bool good = uuid.size() == form.size() && std::ranges::equal(uuid, form, [](unsigned char c, char wanted) {
                              return wanted == 'X' ? std::isxdigit(c) != 0 : c == '-';
                          });
        if (!good) {
            throw Failure(place, "'" + uuid + "' is no uuid");
        }
        if (!uuids_.insert(lowerCase(uuid)).second) {
            throw Failure(place, "uuid " + uuid + " stands twice");
        }
    }

    const Definition* lookUp(const Place& place, const std::string& name) {
        const auto found = names_.find(name);
        if (found == names_.end()) {
            throw Failure(place, "nothing is called " + name);
        }
        return found->second;
    }

    void resolveType(const Place& place, Type& type) {
        if (type.basic == Basic::Named) {
            type.definition = lookUp(place, type.name);
            if (type.definition->kind == DefinitionKind::Class) {
                throw Failure(place, type.name + " is a class; name its interface");
            }
        }
    }

    /// Objects are named by their interface with one star; everything else by value has none.
    static int naturalPointers(const Type& type) {
        const bool object = type.basic == Basic::Dispatch || type.basic == Basic::Unknown ||
                            (type.basic == Basic::Named && type.definition->isInterface());
        return object && !type.array ? 1 : 0;
    }

    static bool isRecord(const Type& type) {
        return type.definition && type.definition->kind == DefinitionKind::Record && !type.array;
    }

    void resolveDefinition(Definition& definition) {
        switch (definition.kind) {
        case DefinitionKind::Enum:
            for (const EnumValue& value : definition.values) {
                needHelp(value.place, value.name, value.help);
            }
            break;
        case DefinitionKind::Record:
            checkUuid(definition.place, definition.uuid);
            for (Field& field : definition.fields) {
                needHelp(field.place, definition.name + "." + field.name, field.help);
                resolveType(field.place, field.type);
                if (field.type.pointers != naturalPointers(field.type)) {
                    throw Failure(field.place, "a field cannot be a pointer");
                }
            }
            break;
        case DefinitionKind::Alias:
            resolveType(definition.place, definition.target);
            break;
        case DefinitionKind::Interface:
        case DefinitionKind::DispatchInterface:
            checkUuid(definition.place, definition.uuid);
            resolveMembers(definition);
            break;
        case DefinitionKind::Class:
            checkUuid(definition.place, definition.uuid);
            resolveClass(definition);
            break;
        }
    }

    void resolveClass(Definition& definition) {
        if (definition.defaultName.empty()) {
            throw Failure(definition.place, definition.name + " has no default interface");
        }
        definition.defaultInterface = interfaceOf(definition, definition.defaultName);
        mutableDefinition(definition.defaultInterface).ownerClass = &definition;
        if (!definition.eventsName.empty()) {
            definition.events = interfaceOf(definition, definition.eventsName);
            Definition& events = mutableDefinition(definition.events);
            events.isEvents = true;
            events.ownerClass = &definition;
        }
    }

    const Definition* interfaceOf(const Definition& owner, const std::string& name) {
        const Definition* found = lookUp(owner.place, name);
        if (!found->isInterface() || found->library != &library_) {
            throw Failure(owner.place, name + " is no interface of this library");
        }
        return found;
    }

    Definition& mutableDefinition(const Definition* wanted) {
        return **std::ranges::find(library_.definitions, wanted, &std::unique_ptr<Definition>::get);
    }

    void resolveMembers(Definition& definition) {
        std::map<std::string, std::int32_t> idOfName;
        std::map<std::int32_t, std::string> nameOfId;
        std::set<std::pair<std::string, MemberKind>> slots;
        for (Member& member : definition.members) {
            const std::string name = lowerCase(member.name);
            if (!slots.emplace(name, member.kind).second) {
                throw Failure(member.place, definition.name + "." + member.name + " stands twice");
            }
            if (idOfName.emplace(name, member.id).first->second != member.id) {
                throw Failure(member.place, member.name + " has two identifiers");
            }
            if (nameOfId.emplace(member.id, name).first->second != name) {
                throw Failure(member.place, "identifier " + std::to_string(member.id) + " is taken");
            }
            needHelp(member.place, definition.name + "." + member.name, member.help);
            resolveMember(member);
        }
    }

    void resolveMember(Member& member) {
        resolveType(member.place, member.result);
        if (member.result.basic != Basic::Void && member.result.pointers != naturalPointers(member.result)) {
            throw Failure(member.place, "the result of " + member.name + " has the wrong number of stars");
        }
        const bool isPut = member.kind == MemberKind::Put || member.kind == MemberKind::PutRef;
        if (isPut != (member.result.basic == Basic::Void) && member.kind != MemberKind::Method) {
            throw Failure(member.place, member.name + ": a Get has a result, a Let or Set has none");
        }
        if (isPut && (member.parameters.empty() || member.parameters.back().optional)) {
            throw Failure(member.place, member.name + ": the last argument of a Let or Set is the value");
        }
        if (member.parameters.size() > mostParameters) {
            throw Failure(member.place, member.name + " has too many arguments");
        }
        std::set<std::string> parameterNames;
        bool optionalBefore = false;
        for (Parameter& parameter : member.parameters) {
            if (!parameterNames.insert(lowerCase(parameter.name)).second) {
                throw Failure(parameter.place, "argument " + parameter.name + " stands twice");
            }
            const bool isValue = isPut && &parameter == &member.parameters.back();
            if (optionalBefore && !parameter.optional && !isValue) {
                throw Failure(parameter.place, parameter.name + " stands behind optional arguments and is not optional");
            }
            optionalBefore |= parameter.optional;
            resolveParameter(parameter);
        }
    }

    void resolveParameter(Parameter& parameter) {
        resolveType(parameter.place, parameter.type);
        if (parameter.retval || !parameter.in) {
            throw Failure(parameter.place, parameter.name + ": arguments are [in] or [in, out], the result comes last");
        }
        if (parameter.type.pointers != naturalPointers(parameter.type) + (parameter.byReference() ? 1 : 0)) {
            throw Failure(parameter.place, parameter.name + " has the wrong number of stars");
        }
        if ((isRecord(parameter.type) || parameter.type.array) && !parameter.byReference()) {
            throw Failure(parameter.place, parameter.name + ": records and arrays pass by reference");
        }
        if (parameter.defaultValue && !parameter.optional) {
            throw Failure(parameter.place, parameter.name + " has a default and is not optional");
        }
        if (parameter.optional && !parameter.defaultValue && parameter.type.basic != Basic::Variant) {
            throw Failure(parameter.place, parameter.name + " is optional and has no default");
        }
        if (parameter.defaultValue && !parameter.defaultValue->name.empty()) {
            resolveConstant(parameter);
        }
    }

    void resolveConstant(Parameter& parameter) {
        Constant& constant = *parameter.defaultValue;
        if (constant.name == "TRUE" || constant.name == "FALSE") {
            constant.value = std::int64_t{constant.name == "TRUE" ? -1 : 0};
            constant.name.clear();
            return;
        }
        const Definition* owner = parameter.type.definition;
        if (owner && owner->kind == DefinitionKind::Enum) {
            const auto found = std::ranges::find(owner->values, constant.name, &EnumValue::name);
            if (found != owner->values.end()) {
                constant.value = std::int64_t{found->number};
                return;
            }
        }
        throw Failure(parameter.place, constant.name + " is no value of the type of " + parameter.name);
    }

    /// Enum values are constants without their enum's name in front, so they share one space with the types.
    void checkEnumValues() {
        std::set<std::string> taken;
        for (const auto& [name, definition] : names_) {
            taken.insert(name);
        }
        for (const auto& definition : library_.definitions) {
            for (const EnumValue& value : definition->values) {
                if (!taken.insert(value.name).second) {
                    throw Failure(value.place, value.name + " is taken");
                }
            }
        }
    }

    Library& library_;
    std::map<std::string, const Definition*> names_;
    std::set<std::string> uuids_;
};

} // namespace

void resolve(Library& library) {
    Resolver(library).run();
}

} // namespace idlc
