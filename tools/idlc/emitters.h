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
/// Reference pages in Markdown, one a class.
void emitReference(const Library& library, const std::filesystem::path& folder);
/// Stubs for Python's type checkers.
void emitStubs(const Library& library, const std::filesystem::path& folder);

} // namespace idlc
