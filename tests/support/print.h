// How tests show values of the interfaces.
#pragma once

#include <mox/values.h>

#include <ostream>

namespace mox {

inline void PrintTo(const String& text, std::ostream* stream) {
    *stream << '"' << text.utf8() << '"';
}
inline void PrintTo(Boolean value, std::ostream* stream) {
    *stream << value.value;
}

} // namespace mox
