#include "emitters.h"
namespace idlc { void emitReference(const Library&, const std::filesystem::path&) {} }
