// What the compiler makes of a library.
#pragma once

#include "model.h"

#include <vector>

namespace idlc {

struct Options {
    /// Where generated C++ goes.
    std::filesystem::path output;
    /// Namespace of the classes that implement the library.
    std::string classes = "mox::server";
    /// Client header, relative to the include folder: `mox/mox.h`.
    std::string client;
};

/// The number of files that the tables are cut into, so that they compile side by side.
inline constexpr std::size_t tableFiles = 4;

/// `include/mox/<library>.h`: enums, records, interfaces, identifiers.
void emitInterfaces(const Library& library, const Options& options);
/// `<library>/descriptions.h` and the table files behind it.
void emitDescriptions(const Library& library, const Options& options);
/// `<library>/<class>.h` for each class: from the slots to natural members.
void emitAdapters(const Library& library, const Options& options);
/// `<library>/slots.h`: a walk over all slots, for tests.
void emitSlots(const Library& library, const Options& options);
/// The client header.
void emitClient(const Library& library, const Options& options);
/// Reference pages in Markdown: one a class, `enums.md`, `records.md`, and `README.md` as their index. Imported libraries have
/// theirs too.
void emitReference(const Library& library, const std::filesystem::path& folder);
/// Stubs for Python's type checkers: `_library.pyi` and `enums.pyi`, imported libraries included.
void emitStubs(const Library& library, const std::filesystem::path& folder);

/// All ways to use a member that have one name: the Get, Let and Set of a property, or a method alone.
using MemberGroup = std::vector<const Member*>;
/// The members of an interface, by name, in the order of the first slot of each.
std::vector<MemberGroup> membersByName(const Definition& interface);
/// True for a property that takes arguments.
bool isIndexed(const MemberGroup& group);

/// How the types of a library are written for Python clients.
class PythonSpelling {
public:
    /// What stands before the names of the package and before those of enums.
    PythonSpelling(std::string package, std::string enums) : package_(std::move(package)), enums_(std::move(enums)) {}

    /// The type of what can be passed, or of what comes back.
    std::string type(const Type& type, bool passed) const;
    std::string argumentType(const Parameter& parameter) const;
    /// `LongValue: int, MinValue: int = -2147483647`; without the value of a property.
    std::string arguments(const Member& member) const;
    /// The type of a result, or of the value that a property is set to.
    std::string value(const Member& member) const;

private:
    std::string elementType(const Type& type, bool passed) const;
    std::string defaultValue(const Parameter& parameter) const;

    std::string package_;
    std::string enums_;
};

} // namespace idlc
