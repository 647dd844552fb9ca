// Reads an IDL file into the model.
#pragma once

#include "model.h"

namespace idlc {

/// The library of a file, with names still unresolved. Throws `Failure`.
std::unique_ptr<Library> parse(std::string_view source, const std::string& file);

} // namespace idlc
