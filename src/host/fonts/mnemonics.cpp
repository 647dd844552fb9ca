#include "host/fonts/mnemonics.h"

#include <utility>

namespace mox::host {

ShownText readMnemonics(std::u16string text) {
    if (text.find(u'&') == std::u16string::npos) {
        return {std::move(text)};
    }
    ShownText shown;
    for (std::size_t place = 0; place < text.size(); ++place) {
        // A text that is cut here loses the ampersand with its character.
        const std::size_t begin = place;
        if (text[place] == u'&') {
            ++place;
            if (place == text.size()) {
                break;
            }
            if (text[place] != u'&' && text[place] > u' ') {
                shown.mnemonics.push_back(shown.text.size());
            }
        }
        shown.text += text[place];
        shown.places.push_back(begin);
    }
    shown.places.push_back(text.size());
    return shown;
}

} // namespace mox::host
