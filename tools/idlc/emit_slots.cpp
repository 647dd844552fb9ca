#include "emitters.h"
#include "output.h"
#include "spelling.h"

namespace idlc {

void emitSlots(const Library& library, const Options& options) {
    Output out;
    out << "// Every slot of every class, for tests that go through all of them. Generated; do not edit.\n#pragma "
           "once\n\n#include <mox/"
        << library.name << ".h>\n\n#include <string_view>\n\nnamespace " << library.name
        << " {\n\n/// Calls `visit.template operator()<slot, hasResult>(name of the class, name of the slot)` for each slot of "
           "each class.\n"
           "template <class Visit>\nvoid visitSlots(Visit&& visit) {\n";
    for (const auto& definition : library.definitions) {
        if (definition->kind != DefinitionKind::Class) {
            continue;
        }
        const Definition& interface = *definition->defaultInterface;
        const std::string slots = qualified(interface) + (interface.kind == DefinitionKind::DispatchInterface ? "Slots" : "");
        for (const Member& member : interface.members) {
            out << "    visit.template operator()<&" << slots << "::" << slotName(member) << ", "
                << (member.result.basic == Basic::Void ? "false" : "true") << ">(u\"" << definition->name << "\", \""
                << naturalName(member) << "\");\n";
        }
    }
    out << "}\n\n} // namespace " << library.name << "\n";
    out.save(options.output / library.name / "slots.h");
}

} // namespace idlc
