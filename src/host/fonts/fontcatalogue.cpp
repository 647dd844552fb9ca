#include "host/fonts/fontcatalogue.h"

#include "host/fonts/standins.h"

#include <algorithm>
#include <cstdlib>
#include <span>
#include <tuple>
#include <utility>

namespace mox::host {

namespace {

const FcChar8* text(const char* name) {
    return reinterpret_cast<const FcChar8*>(name);
}

std::string lowered(std::string_view name) {
    std::string result(name);
    std::ranges::transform(result, result.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return result;
}

std::string stringOf(FcPattern* pattern, const char* object, int place = 0) {
    FcChar8* value = nullptr;
    return FcPatternGetString(pattern, object, place, &value) == FcResultMatch ? reinterpret_cast<const char*>(value) : "";
}

int integerOf(FcPattern* pattern, const char* object, int otherwise) {
    int value = otherwise;
    return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : otherwise;
}

FontFile fileOf(FcPattern* pattern) {
    double weight = FC_WEIGHT_NORMAL;
    FcPatternGetDouble(pattern, FC_WEIGHT, 0, &weight);
    return {.path = stringOf(pattern, FC_FILE),
            .index = integerOf(pattern, FC_INDEX, 0),
            .family = stringOf(pattern, FC_FAMILY),
            .style = stringOf(pattern, FC_STYLE),
            .width = integerOf(pattern, FC_WIDTH, FC_WIDTH_NORMAL),
            .weight = static_cast<int>(FcWeightToOpenTypeDouble(weight) + 0.5),
            .isItalic = integerOf(pattern, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN,
            .isFixed = integerOf(pattern, FC_SPACING, FC_PROPORTIONAL) >= FC_MONO};
}

std::vector<FontFile> filesOf(const FcFontSet& set) {
    std::vector<FontFile> files;
    for (FcPattern* const font : std::span(set.fonts, static_cast<std::size_t>(set.nfont))) {
        FcBool isOutline = FcTrue;
        if (FcPatternGetBool(font, FC_OUTLINE, 0, &isOutline) != FcResultMatch || isOutline) {
            files.push_back(fileOf(font));
        }
    }
    return files;
}

} // namespace

FontCatalogue::FontCatalogue(std::filesystem::path configuration) : configuration_(std::move(configuration)) {}

void FontCatalogue::load() {
    if (config_) {
        return;
    }
    if (configuration_.empty()) {
        config_.reset(FcConfigReference(nullptr));
    } else {
        config_.reset(FcConfigCreate());
        FcConfigParseAndLoad(config_.get(), text(configuration_.c_str()), FcTrue);
        FcConfigBuildFonts(config_.get());
    }
    families_.clear();
    const Owned<FcPattern> all(FcPatternCreate());
    const auto set = listed(all.get());
    for (FcPattern* const font : std::span(set->fonts, static_cast<std::size_t>(set->nfont))) {
        for (int place = 0;; ++place) {
            const std::string family = stringOf(font, FC_FAMILY, place);
            if (family.empty()) {
                break;
            }
            families_.insert(lowered(family));
        }
    }
}

FontCatalogue::Owned<FcFontSet> FontCatalogue::listed(FcPattern* pattern) {
    FcPatternAddBool(pattern, FC_OUTLINE, FcTrue);
    FcPatternAddBool(pattern, FC_VARIABLE, FcFalse);
    const Owned<FcObjectSet> objects(FcObjectSetBuild(FC_FAMILY, FC_STYLE, FC_FILE, FC_INDEX, FC_WEIGHT, FC_SLANT, FC_SPACING,
                                                      FC_WIDTH, FC_OUTLINE, static_cast<char*>(nullptr)));
    Owned<FcFontSet> set(FcFontList(config_.get(), pattern, objects.get()));
    return set ? std::move(set) : Owned<FcFontSet>(FcFontSetCreate());
}

bool FontCatalogue::has(std::string_view family) {
    return families_.contains(lowered(family));
}

/// What the configuration names as equal to a family, without what it adds for want of anything better.
std::vector<std::string> FontCatalogue::aliases(const std::string& family) {
    const Owned<FcPattern> pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, text(family.c_str()));
    FcConfigSubstitute(config_.get(), pattern.get(), FcMatchPattern);
    std::vector<std::string> names;
    for (int place = 0;; ++place) {
        FcValue value;
        FcValueBinding binding = FcValueBindingWeak;
        if (FcPatternGetWithBinding(pattern.get(), FC_FAMILY, place, &value, &binding) != FcResultMatch) {
            return names;
        }
        if (binding != FcValueBindingWeak && value.type == FcTypeString) {
            names.emplace_back(reinterpret_cast<const char*>(value.u.s));
        }
    }
}

std::string FontCatalogue::familyFor(const FontRequest& request) {
    const auto isThere = [&](std::string_view family) { return has(family); };
    if (!request.family.empty()) {
        if (has(request.family)) {
            return request.family;
        }
        const auto standIns = standInsFor(request.family);
        if (const auto found = std::ranges::find_if(standIns, isThere); found != standIns.end()) {
            return std::string(*found);
        }
        const auto names = aliases(request.family);
        if (const auto found = std::ranges::find_if(names, isThere); found != names.end()) {
            return *found;
        }
    }
    const auto defaults = defaultFamilies(request.pitchAndFamily);
    const auto found = std::ranges::find_if(defaults, isThere);
    return std::string(found == defaults.end() ? defaults.back() : *found);
}

FontCatalogue::Owned<FcPattern> FontCatalogue::pattern(const FontRequest& request, const std::string& family) {
    Owned<FcPattern> pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, text(family.c_str()));
    FcPatternAddDouble(pattern.get(), FC_WEIGHT, FcWeightFromOpenTypeDouble(request.weight));
    FcPatternAddInteger(pattern.get(), FC_SLANT, request.isItalic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_OUTLINE, FcTrue);
    FcPatternAddBool(pattern.get(), FC_VARIABLE, FcFalse);
    return pattern;
}

std::optional<FontFile> FontCatalogue::find(const FontRequest& request) {
    load();
    const Owned<FcPattern> wanted(FcPatternCreate());
    FcPatternAddString(wanted.get(), FC_FAMILY, text(familyFor(request).c_str()));
    const auto files = filesOf(*listed(wanted.get()));
    const auto distance = [&](const FontFile& file) {
        return std::tuple(std::abs(file.width - FC_WIDTH_NORMAL), file.isItalic != request.isItalic,
                          std::abs(file.weight - request.weight), file.path, file.index);
    };
    if (!files.empty()) {
        return std::ranges::min(files, {}, distance);
    }
    auto others = sorted(request);
    return others.empty() ? std::nullopt : std::optional(std::move(others.front()));
}

std::vector<FontFile> FontCatalogue::sorted(const FontRequest& request) {
    load();
    const auto wanted = pattern(request, familyFor(request));
    FcConfigSubstitute(config_.get(), wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const Owned<FcFontSet> found(FcFontSort(config_.get(), wanted.get(), FcFalse, nullptr, &result));
    return found ? filesOf(*found) : std::vector<FontFile>();
}

std::optional<FontFile> FontCatalogue::findWith(char32_t character, const FontRequest& request) {
    load();
    const auto wanted = pattern(request, familyFor(request));
    const Owned<FcCharSet> characters(FcCharSetCreate());
    FcCharSetAddChar(characters.get(), character);
    FcPatternAddCharSet(wanted.get(), FC_CHARSET, characters.get());
    FcConfigSubstitute(config_.get(), wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const Owned<FcFontSet> found(FcFontSort(config_.get(), wanted.get(), FcFalse, nullptr, &result));
    FcCharSet* present = nullptr;
    if (!found || found->nfont == 0 || FcPatternGetCharSet(found->fonts[0], FC_CHARSET, 0, &present) != FcResultMatch ||
        !FcCharSetHasChar(present, character)) {
        return std::nullopt;
    }
    return fileOf(found->fonts[0]);
}

std::vector<FontFile> FontCatalogue::list(const std::string& family) {
    if (configuration_.empty()) {
        FcInitBringUptoDate();
        config_.reset();
    }
    load();
    const Owned<FcPattern> wanted(FcPatternCreate());
    if (!family.empty()) {
        FcPatternAddString(wanted.get(), FC_FAMILY, text(family.c_str()));
    }
    std::vector<FontFile> files = filesOf(*listed(wanted.get()));
    std::ranges::sort(files, [](const FontFile& a, const FontFile& b) {
        return std::tie(a.family, a.isItalic, a.weight, a.style, a.path, a.index) <
               std::tie(b.family, b.isItalic, b.weight, b.style, b.path, b.index);
    });
    return files;
}

} // namespace mox::host
