#include "emitters.h"
namespace idlc { void emitStubs(const Library&, const std::filesystem::path&) {} }
