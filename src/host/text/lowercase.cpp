#include "host/text/lowercase.h"

#include <unicode/uchar.h>
#include <unicode/utf16.h>

namespace mox::host {

std::u16string lowerCase(std::u16string_view text) {
    std::u16string lower(text);
    for (std::size_t position = 0; position < lower.size();) {
        const std::size_t start = position;
        UChar32 character = 0;
        U16_NEXT(lower, position, lower.size(), character);
        const UChar32 small = u_tolower(character);
        if (position - start == 1 && U_IS_BMP(small)) {
            lower[start] = static_cast<char16_t>(small);
        } else if (position - start == 2 && !U_IS_BMP(small)) {
            lower[start] = U16_LEAD(small);
            lower[start + 1] = U16_TRAIL(small);
        }
    }
    return lower;
}

} // namespace mox::host
