#include "host/icons/artwork.h"

#include "host/icons/vectordrawing.h"

#include <array>
#include <vector>

namespace mox::host {

namespace {

using Areas = std::span<const DrawnArea>;

// ---- messages

constexpr DrawnArea application[] = {
    {"R 2 4 30 28 2.6", 0xFF44546A, 0xFF2F3B4D},
    {"R 3 5 29 27 1.7", 0xFFFFFFFF, 0xFFE6EBF2},
    {"R 3 5 29 10.5 1.7 R 3 8 29 10.5 0", 0xFF5E9BE6, 0xFF2F6FC6},
    {"O 26 7.7 1.15 O 22.4 7.7 1.15", 0xFFFFFFFF, 0xFFDDE9FA},
    {"R 6 13.5 14 23.5 0.8", 0xFF8CC5A8, 0xFF4E9C79},
    {"R 16.5 13.5 26 15.5 0.6 R 16.5 17.5 26 19.5 0.6 R 16.5 21.5 23 23.5 0.6", 0xFFA9B4C4, 0xFF94A1B4},
};
constexpr DrawnArea stop[] = {
    {"O 16 16 15", 0xFF9C1B1B, 0xFF701010},
    {"O 16 16 13.8", 0xFFF4766A, 0xFFC62424},
    {"W 4.2 M 10.9 10.9 L 21.1 21.1 M 21.1 10.9 L 10.9 21.1", 0xFFFFFFFF, 0xFFFFF1EF},
};
constexpr DrawnArea question[] = {
    {"O 16 16 15", 0xFF1D4F93, 0xFF123563},
    {"O 16 16 13.8", 0xFF6FB1F5, 0xFF2166C2},
    {"W 3.3 M 11.3 12 C 11.3 5.4 20.7 5.4 20.7 11.6 C 20.7 15.4 16 15.2 16 18.8", 0xFFFFFFFF, 0xFFF2F8FF},
    {"O 16 24 2.1", 0xFFF2F8FF, 0xFFEAF3FF},
};
constexpr DrawnArea information[] = {
    {"O 16 16 15", 0xFF1D4F93, 0xFF123563},
    {"O 16 16 13.8", 0xFF6FB1F5, 0xFF2166C2},
    {"O 16 8.6 2.3", 0xFFFFFFFF, 0xFFFFFFFF},
    {"R 14 13 18 24.2 0.6 R 12.4 13 17 15.6 0.6 R 12 22.4 20 25 0.6", 0xFFFFFFFF, 0xFFEAF3FF},
};
constexpr DrawnArea exclamation[] = {
    {"M 16 3.4 L 29 27.6 L 3 27.6 Z W 4.6 M 16 3.4 L 29 27.6 L 3 27.6 Z", 0xFFC08A12, 0xFF99690A},
    {"M 16 3.6 L 28.8 27.4 L 3.2 27.4 Z W 2.6 M 16 3.6 L 28.8 27.4 L 3.2 27.4 Z", 0xFFFFEE9C, 0xFFFABB05},
    {"W 3.4 M 16 11 L 16 18.6", 0xFF3A2C06, 0xFF2C2105},
    {"O 16 24 2", 0xFF2C2105, 0xFF2C2105},
};
constexpr DrawnArea logo[] = {
    {"R 1.5 1.5 30.5 30.5 7.5", 0xFF1C6E76, 0xFF0E4450},
    {"R 2.7 2.7 29.3 29.3 6.4", 0xFF58C7B4, 0xFF1F7F8E},
    {"W 3.3 M 8.2 22.6 L 8.2 11.8 M 8.2 15.2 C 8.2 9.4 16 9.4 16 15.2 L 16 22.6 M 16 15.2 C 16 9.4 23.8 9.4 23.8 15.2 L 23.8 "
     "22.6",
     0xFFFFFFFF, 0xFFE9FBF8},
};
constexpr DrawnArea shield[] = {
    {"M 16 0.8 C 20 4 24.8 5.1 29.4 5.1 C 29.4 17.4 26 26.2 16 31.2 C 6 26.2 2.6 17.4 2.6 5.1 C 7.2 5.1 12 4 16 0.8 Z",
     0xFF5B6675, 0xFF343C47},
    {"M 16 2.6 C 19.7 5.2 24 6.3 28.2 6.5 C 28 17.2 24.9 25.2 16 29.8 C 7.1 25.2 4 17.2 3.8 6.5 C 8 6.3 12.3 5.2 16 2.6 Z",
     0xFFFFFFFF, 0xFFD5DBE3},
    {"M 16 4.4 C 12.9 6.5 9.2 7.6 5.3 7.9 C 5.7 17.1 8.6 24 16 28.1 Z", 0xFF5FA8F0, 0xFF1D5FBA},
    {"M 16 4.4 C 19.1 6.5 22.8 7.6 26.7 7.9 C 26.3 17.1 23.4 24 16 28.1 Z", 0xFFFFE37A, 0xFFEFA90C},
};

// ---- files

constexpr DrawnArea sheet[] = {
    {"M 6 1.5 L 20 1.5 L 27 8.5 L 27 30.5 L 6 30.5 Z", 0xFF8793A6, 0xFF66738A},
    {"M 7 2.5 L 19.5 2.5 L 26 9 L 26 29.5 L 7 29.5 Z", 0xFFFFFFFF, 0xFFEBEFF5},
    {"M 19.5 2 L 26.5 9 L 19.5 9 Z", 0xFFB9C3D2, 0xFF9AA7BB},
};
constexpr DrawnArea textLines[] = {
    {"R 10 12 23 13.5 0.4 R 10 16 23 17.5 0.4 R 10 20 23 21.5 0.4 R 10 24 18.5 25.5 0.4", 0xFF5F7FB0, 0xFF4A6896},
};
constexpr DrawnArea image[] = {
    {"R 2 5 30 27 2.2", 0xFF7A8699, 0xFF566276},
    {"R 3 6 29 26 1.3", 0xFFFFFFFF, 0xFFFFFFFF},
    {"R 5 8 27 24 0.4", 0xFF8CCBFA, 0xFFDDF0FE},
    {"O 10.4 12.6 2.4", 0xFFFFD75E, 0xFFFFB92E},
    {"M 14 24 L 21 13.6 L 27 21 L 27 24 Z", 0xFF5DA56B, 0xFF3C8450},
    {"M 5 24 L 11.6 17 L 18.6 24 Z", 0xFF84C47D, 0xFF57A35D},
};
constexpr DrawnArea note[] = {
    {"O 12.6 24.2 3 O 20.4 22.4 3 W 1.7 M 14.7 24 L 14.7 13.6 M 22.5 22.2 L 22.5 11.8", 0xFF8A5BC7, 0xFF643A9E},
    {"M 13.9 12.2 L 23.3 10 L 23.3 13.6 L 13.9 15.8 Z", 0xFF8A5BC7, 0xFF7C4DB9},
};
constexpr DrawnArea video[] = {
    {"R 2 6 30 26 2.2", 0xFF4B5566, 0xFF2A313D},
    {"R 8 8 24 24 0.5", 0xFF8FC3EE, 0xFF4A86C4},
    {"R 4 8.2 6.4 10.6 0.5 R 4 12.4 6.4 14.8 0.5 R 4 16.8 6.4 19.2 0.5 R 4 21.2 6.4 23.6 0.5", 0xFFF3F6FA, 0xFFD9DFE8},
    {"R 25.6 8.2 28 10.6 0.5 R 25.6 12.4 28 14.8 0.5 R 25.6 16.8 28 19.2 0.5 R 25.6 21.2 28 23.6 0.5", 0xFFF3F6FA, 0xFFD9DFE8},
    {"M 13.4 11.6 L 21 16 L 13.4 20.4 Z W 1 M 13.4 11.6 L 21 16 L 13.4 20.4 Z", 0xFFFFFFFF, 0xFFEAF3FF},
};
constexpr DrawnArea archive[] = {
    {"R 5 2 27 30 2.4", 0xFFA7762B, 0xFF7D551A},
    {"R 6 3 26 29 1.6", 0xFFF3CF86, 0xFFD9A441},
    {"R 14 3 16 5 0 R 16 5 18 7 0 R 14 7 16 9 0 R 16 9 18 11 0 R 14 11 16 13 0 R 16 13 18 15 0", 0xFF5A4320, 0xFF6F5226},
    {"R 13.4 15.4 18.6 23.4 1.6", 0xFF6B7585, 0xFF444C59},
    {"R 14.9 18.6 17.1 21.9 0.8", 0xFFF3CF86, 0xFFE4B65E},
};

// ---- folders and drives

constexpr DrawnArea folder[] = {
    {"R 2 5.5 14.5 14 2 R 2 8 30 27 2", 0xFFC48A24, 0xFFA06A12},
    {"R 3 6.5 13.5 14 1.3 R 3 9 29 26 1.3", 0xFFE9B64F, 0xFFDFA63A},
    {"R 3 12 29 26 1.3", 0xFFFFE199, 0xFFF4BB47},
};
constexpr DrawnArea openFolder[] = {
    {"R 2 5.5 14.5 14 2 R 2 8 27 27 2", 0xFFC48A24, 0xFFA06A12},
    {"R 3 6.5 13.5 14 1.3 R 3 9 26 26 1.3", 0xFFDDA63F, 0xFFC98F28},
    {"M 6 10.5 L 24 10.5 L 24 20 L 6 20 Z", 0xFFFFFFFF, 0xFFDCE3EC},
    {"M 7.2 13.6 L 30.2 13.6 L 26.4 26.2 L 3 26.2 Z W 1.6 M 7.2 13.6 L 30.2 13.6 L 26.4 26.2 L 3 26.2 Z", 0xFFB67C1B, 0xFFA06A12},
    {"M 7.6 14 L 29.6 14 L 26 25.8 L 3.4 25.8 Z", 0xFFFFE199, 0xFFF4BB47},
};
constexpr DrawnArea drive[] = {
    {"M 7 8.5 L 25 8.5 L 29.5 16 L 2.5 16 Z W 1.5 M 7 8.5 L 25 8.5 L 29.5 16 L 2.5 16 Z", 0xFF6C7788, 0xFF6C7788},
    {"M 7.2 9 L 24.8 9 L 28.8 15.6 L 3.2 15.6 Z", 0xFFF4F6F9, 0xFFCED5DF},
    {"R 1.8 14.8 30.2 25 2", 0xFF5F6A7B, 0xFF444D5B},
    {"R 2.8 15.8 29.2 24 1.2", 0xFFB9C2CF, 0xFF7F8B9C},
    {"R 5.5 19 17 20.8 0.6", 0xFF56606F, 0xFF4A5462},
    {"O 25 19.9 1.7", 0xFF8BF08A, 0xFF2EA836},
};
constexpr DrawnArea removableDrive[] = {
    {"R 11.5 1.5 20.5 10 1", 0xFF5F6A7B, 0xFF4C5665},
    {"R 12.5 2.5 19.5 10 0.4", 0xFFE8ECF2, 0xFFB5BECB},
    {"R 14 4.4 15.2 6.6 0 R 16.8 4.4 18 6.6 0", 0xFF4C5665, 0xFF4C5665},
    {"R 8.5 8.5 23.5 30.5 3", 0xFF2B4C80, 0xFF182F54},
    {"R 9.5 9.5 22.5 29.5 2.2", 0xFF7FB0EC, 0xFF2F66B5},
    {"O 16 25.2 1.6", 0xFFFFFFFF, 0xFFDCEBFF},
    {"R 12 12.5 20 19.5 0.8", 0xFFFFFFFF, 0xFFE3EDFA},
};
constexpr DrawnArea opticalDrive[] = {
    {"O 16 16 14.6", 0xFF77839A, 0xFF4F5B70},
    {"O 16 16 13.6", 0xFFF3F6FA, 0xFFB3BFD0},
    {"M 16 16 L 4.2 9.2 C 6.4 5.4 10 2.9 14 2.5 Z", 0xC0BFE7C8, 0xC09CD3F2},
    {"M 16 16 L 27.8 22.8 C 25.6 26.6 22 29.1 18 29.5 Z", 0xC0D9B8EE, 0xC0F4C6C2},
    {"O 16 16 5", 0xFF8F9BAF, 0xFF6F7B90},
    {"O 16 16 4.2", 0xFFE6EBF2, 0xFFCAD2DE},
    {"O 16 16 2", 0xFF5C6879, 0xFF4F5B70},
};
constexpr DrawnArea networkDrive[] = {
    {"R 2 4.5 30 16.5 2", 0xFF5F6A7B, 0xFF444D5B},
    {"R 3 5.5 29 15.5 1.2", 0xFFE4E9F0, 0xFF98A4B5},
    {"R 5.5 9.6 17 11.4 0.6", 0xFF56606F, 0xFF4A5462},
    {"O 25 10.5 1.7", 0xFF8BF08A, 0xFF2EA836},
    {"W 2.4 M 16 16.5 L 16 25 M 3 26 L 29 26", 0xFF4E9A6B, 0xFF3B7C54},
    {"O 16 26 3.6", 0xFF2C6444, 0xFF214D34},
    {"O 16 26 2.6", 0xFF9ADBB2, 0xFF4FA671},
};
constexpr DrawnArea trash[] = {
    {"R 11.5 1.5 20.5 7 1.6 R 4 4.5 28 9 1.6", 0xFF55606F, 0xFF434C59},
    {"R 13 3 19 7 0.6", 0xFFCDD4DE, 0xFFCDD4DE},
    {"R 5 5.5 27 8 0.8", 0xFFEEF1F5, 0xFFB4BDCA},
    {"M 6 9 L 26 9 L 24.2 28.6 C 24 30 23.4 30.5 22 30.5 L 10 30.5 C 8.6 30.5 8 30 7.8 28.6 Z", 0xFF55606F, 0xFF434C59},
    {"M 7.2 9.6 L 24.8 9.6 L 23.2 28.4 C 23.1 29.2 22.8 29.5 22 29.5 L 10 29.5 C 9.2 29.5 8.9 29.2 8.8 28.4 Z", 0xFFE3E8EE,
     0xFFA3AEBD},
    {"W 1.6 M 11.4 12.6 L 12.2 26.6 M 16 12.6 L 16 26.6 M 20.6 12.6 L 19.8 26.6", 0xFF76828F, 0xFF65707D},
};

/// What is drawn, a ground first.
struct Layers {
    Areas ground;
    Areas front{};
};

Layers layersOf(Artwork artwork) {
    switch (artwork) {
    case Artwork::application:
        return {application};
    case Artwork::stop:
        return {stop};
    case Artwork::question:
        return {question};
    case Artwork::exclamation:
        return {exclamation};
    case Artwork::information:
        return {information};
    case Artwork::logo:
        return {logo};
    case Artwork::shield:
        return {shield};
    case Artwork::document:
        return {sheet};
    case Artwork::text:
        return {sheet, textLines};
    case Artwork::image:
        return {image};
    case Artwork::audio:
        return {sheet, note};
    case Artwork::video:
        return {video};
    case Artwork::archive:
        return {archive};
    case Artwork::folder:
        return {folder};
    case Artwork::openFolder:
        return {openFolder};
    case Artwork::drive:
        return {drive};
    case Artwork::removableDrive:
        return {removableDrive};
    case Artwork::opticalDrive:
        return {opticalDrive};
    case Artwork::networkDrive:
        return {networkDrive};
    case Artwork::trash:
        return {trash};
    }
    return {};
}

} // namespace

std::optional<Icon> drawnIcon(Artwork artwork, platform::SIZE size) {
    const auto [below, above] = layersOf(artwork);
    std::vector<DrawnArea> areas(below.begin(), below.end());
    areas.insert(areas.end(), above.begin(), above.end());
    auto drawn = drawAreas(areas, size.cx, size.cy);
    if (!drawn) {
        return std::nullopt;
    }
    return Icon{.image = std::move(drawn), .hasAlpha = true, .hotspot = {size.cx / 2, size.cy / 2}};
}

} // namespace mox::host
