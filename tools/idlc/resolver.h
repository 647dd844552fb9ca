// Gives names their meaning and checks what the grammar alone cannot.
#pragma once

#include "model.h"

namespace idlc {

/// Resolves the names of `library` in itself and in the libraries that it imports. Throws `Failure`.
void resolve(Library& library);

} // namespace idlc
