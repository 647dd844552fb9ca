#include "host/fonts/facemetrics.h"

#include "platform/gditypes.h"

#include FT_TRUETYPE_TABLES_H

#include <algorithm>

namespace mox::host {

namespace {

/// From the classes of a font's tables.
std::uint8_t familyOf(const TT_OS2& table) {
    using namespace platform;
    enum Panose : std::uint8_t { text = 2, script = 3, decorative = 4, serifFirst = 2, serifLast = 10, sansLast = 15 };
    if (table.panose[0] == script) {
        return FF_SCRIPT;
    }
    if (table.panose[0] == decorative) {
        return FF_DECORATIVE;
    }
    if (table.panose[0] == text && table.panose[1] >= serifFirst) {
        return table.panose[1] <= serifLast ? FF_ROMAN : table.panose[1] <= sansLast ? FF_SWISS : 0;
    }
    switch (table.sFamilyClass >> 8) {
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
    case 7:
        return FF_ROMAN;
    case 8:
        return FF_SWISS;
    case 9:
        return FF_DECORATIVE;
    case 10:
        return FF_SCRIPT;
    default:
        return 0;
    }
}

void readWindowsTable(FaceMetrics& metrics, FT_Face face, const TT_OS2& table, double em) {
    if (table.usWinAscent + table.usWinDescent > 0) {
        metrics.ascent = table.usWinAscent / em;
        metrics.descent = table.usWinDescent / em;
        if (const auto* const header = static_cast<const TT_HoriHeader*>(FT_Get_Sfnt_Table(face, FT_SFNT_HHEA))) {
            const int cell = table.usWinAscent + table.usWinDescent;
            metrics.externalLeading = std::max(0, header->Line_Gap - (cell - (header->Ascender - header->Descender))) / em;
        }
    }
    if (table.xAvgCharWidth > 0) {
        metrics.averageWidth = table.xAvgCharWidth / em;
    }
    if (table.yStrikeoutSize > 0) {
        metrics.strikeOutThickness = table.yStrikeoutSize / em;
        metrics.strikeOutPosition = (table.yStrikeoutSize / 2.0 - table.yStrikeoutPosition) / em;
    }
    metrics.family = familyOf(table);
    metrics.firstCharacter = table.usFirstCharIndex;
    metrics.lastCharacter = table.usLastCharIndex;
}

} // namespace

FaceMetrics measureFace(const FontFace& face) {
    const double em = face->units_per_EM;
    FaceMetrics metrics;
    metrics.ascent = face->ascender / em;
    metrics.descent = -face->descender / em;
    metrics.maximumWidth = face->max_advance_width / em;
    metrics.averageWidth = metrics.maximumWidth / 2;
    if (face->underline_thickness > 0) {
        metrics.underlineThickness = face->underline_thickness / em;
        metrics.underlinePosition = -face->underline_position / em;
    }
    metrics.isFixed = FT_IS_FIXED_WIDTH(face.get());
    const auto* const table = static_cast<const TT_OS2*>(FT_Get_Sfnt_Table(face.get(), FT_SFNT_OS2));
    if (table && table->version != 0xFFFF) {
        readWindowsTable(metrics, face.get(), *table, em);
    }
    if (metrics.isFixed) {
        metrics.family = platform::FF_MODERN;
    }
    // Damaged tables must not lead to sizes without measure.
    metrics.ascent = std::clamp(metrics.ascent, 0.0, 8.0);
    metrics.descent = std::clamp(metrics.descent, 0.0, 8.0);
    if (metrics.ascent + metrics.descent < 0.1) {
        metrics.ascent = 0.8;
        metrics.descent = 0.2;
    }
    metrics.averageWidth = std::clamp(metrics.averageWidth, 0.01, 8.0);
    metrics.maximumWidth = std::clamp(metrics.maximumWidth, metrics.averageWidth, 16.0);
    return metrics;
}

} // namespace mox::host
