#include "host/fonts/standins.h"

#include "platform/gditypes.h"

#include <algorithm>
#include <array>

namespace mox::host {

namespace {

using Names = std::span<const std::string_view>;

constexpr std::array<std::string_view, 4> swiss{"Liberation Sans", "Arimo", "DejaVu Sans", "sans-serif"};
constexpr std::array<std::string_view, 3> narrow{"Liberation Sans Narrow", "Arial Narrow", "Liberation Sans"};
constexpr std::array<std::string_view, 3> wide{"DejaVu Sans", "Bitstream Vera Sans", "Liberation Sans"};
constexpr std::array<std::string_view, 4> roman{"Liberation Serif", "Tinos", "DejaVu Serif", "serif"};
constexpr std::array<std::string_view, 4> fixed{"Liberation Mono", "Cousine", "DejaVu Sans Mono", "monospace"};
constexpr std::array<std::string_view, 2> calibri{"Carlito", "Liberation Sans"};
constexpr std::array<std::string_view, 2> cambria{"Caladea", "Liberation Serif"};
constexpr std::array<std::string_view, 3> script{"Z003", "URW Chancery L", "cursive"};
constexpr std::array<std::string_view, 2> decorative{"Comic Neue", "fantasy"};
constexpr std::array<std::string_view, 4> symbol{"Symbol", "Standard Symbols PS", "OpenSymbol", "Symbola"};
constexpr std::array<std::string_view, 5> dingbats{"Wingdings", "OpenSymbol", "D050000L", "Dingbats", "Symbola"};

struct StandIn {
    std::string_view family;
    Names names;
};

constexpr StandIn standIns[] = {
    {"Arial", swiss},
    {"Arial Narrow", narrow},
    {"Calibri", calibri},
    {"Cambria", cambria},
    {"Consolas", fixed},
    {"Courier", fixed},
    {"Courier New", fixed},
    {"Fixedsys", fixed},
    {"Georgia", roman},
    {"Helv", swiss},
    {"Helvetica", swiss},
    {"Lucida Console", fixed},
    {"MS Sans Serif", swiss},
    {"MS Serif", roman},
    {"MS Shell Dlg", swiss},
    {"MS Shell Dlg 2", swiss},
    {"Microsoft Sans Serif", swiss},
    {"Segoe UI", swiss},
    {"Small Fonts", swiss},
    {"Symbol", symbol},
    {"System", swiss},
    {"Tahoma", swiss},
    {"Terminal", fixed},
    {"Times", roman},
    {"Times New Roman", roman},
    {"Tms Rmn", roman},
    {"Trebuchet MS", swiss},
    {"Verdana", wide},
    {"Webdings", dingbats},
    {"Wingdings", dingbats},
};

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

} // namespace

Names standInsFor(std::string_view family) noexcept {
    const auto* const found = std::ranges::find_if(
        standIns, [&](const StandIn& standIn) { return std::ranges::equal(standIn.family, family, {}, lower, lower); });
    return found == std::end(standIns) ? Names() : found->names;
}

Names defaultFamilies(std::uint8_t pitchAndFamily) noexcept {
    constexpr std::uint8_t pitchBits = 0x3;
    constexpr std::uint8_t familyBits = 0xF0;
    switch (pitchAndFamily & familyBits) {
    case platform::FF_ROMAN:
        return roman;
    case platform::FF_MODERN:
        return fixed;
    case platform::FF_SCRIPT:
        return script;
    case platform::FF_DECORATIVE:
        return decorative;
    default:
        return (pitchAndFamily & pitchBits) == platform::FIXED_PITCH ? Names(fixed) : Names(swiss);
    }
}

} // namespace mox::host
