#include "host/fonts/fonts.h"

#include "host/fonts/fontcatalogue.h"
#include "host/fonts/fontlibrary.h"
#include "host/fonts/typeface.h"

#include <algorithm>
#include <cstring>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace mox::host {

namespace {

constexpr std::size_t mostRequests = 1024;
constexpr int boldest = 1000;

FontRequest requestOf(const platform::LOGFONTA& font, const CodePage& codePage) {
    const std::string_view name(font.lfFaceName.data(), font.lfFaceName.size());
    std::string_view family = name.substr(0, name.find('\0'));
    // Names with this in front ask for glyphs of vertical lines, which are drawn like others here.
    if (family.starts_with('@')) {
        family.remove_prefix(1);
    }
    return {.family = codePage.toUtf8(family),
            .weight = font.lfWeight <= 0 ? platform::FW_NORMAL : std::min(font.lfWeight, boldest),
            .isItalic = font.lfItalic != 0,
            .charSet = font.lfCharSet,
            .pitchAndFamily = font.lfPitchAndFamily};
}

/// Sets that every usual font serves; others make a font necessary that does.
bool isUsual(const CharacterSet& set) {
    return set.number == platform::ANSI_CHARSET || set.number == platform::SYMBOL_CHARSET;
}

struct Key {
    platform::LOGFONTA font;
    TextScale scale;
    bool operator==(const Key& other) const noexcept {
        return std::memcmp(&font, &other.font, sizeof font) == 0 && scale == other.scale;
    }
};

struct Hash {
    std::size_t operator()(const Key& key) const noexcept {
        const auto* const bytes = reinterpret_cast<const char*>(&key.font);
        const std::size_t scale = std::hash<double>()(key.scale.height) * 31 + std::hash<double>()(key.scale.stretch) * 17;
        return std::hash<std::string_view>()({bytes, sizeof key.font}) ^ scale ^ static_cast<std::size_t>(key.scale.turn);
    }
};

struct Entry {
    std::shared_ptr<const Typeface> typeface;
    std::uint64_t lastUse = 0;
};

} // namespace

struct Fonts::Parts {
    Parts(CodePage page, std::filesystem::path configuration) : codePage(std::move(page)), catalogue(std::move(configuration)) {}

    std::shared_ptr<const Typeface> realise(const platform::LOGFONTA& font, const TextScale& scale);
    std::shared_ptr<const Typeface> open(const FontFile& file, const platform::LOGFONTA& font, const TextScale& scale);
    std::shared_ptr<const Typeface> openSubstitute(char32_t character, int pixelsPerEm, platform::LOGFONTA font, TextScale scale);
    std::optional<FontFile> find(const FontRequest& request);
    void dropOldest();

    const CodePage codePage;
    std::mutex guard;
    const std::shared_ptr<FontLibrary> library = std::make_shared<FontLibrary>();
    FontCatalogue catalogue;
    std::map<FontRequest, std::optional<FontFile>> found;
    std::unordered_map<Key, Entry, Hash> typefaces;
    std::pair<const Key, Entry>* last = nullptr;
    std::uint64_t uses = 0;
};

Fonts::Fonts(CodePage codePage, std::filesystem::path configuration)
    : parts_(std::make_unique<Parts>(std::move(codePage), std::move(configuration))) {}

Fonts::~Fonts() = default;

std::shared_ptr<const Typeface> Fonts::typeface(const platform::LOGFONTA& font, const TextScale& scale) {
    Parts& parts = *parts_;
    const std::lock_guard lock(parts.guard);
    const Key key{font, scale};
    // Most text is drawn in the font of the text before it.
    if (!parts.last || !(parts.last->first == key)) {
        auto found = parts.typefaces.find(key);
        if (found == parts.typefaces.end()) {
            auto typeface = parts.realise(font, scale);
            if (!typeface) {
                return nullptr;
            }
            parts.dropOldest();
            found = parts.typefaces.emplace(key, Entry{std::move(typeface)}).first;
        }
        parts.last = &*found;
    }
    parts.last->second.lastUse = ++parts.uses;
    return parts.last->second.typeface;
}

std::shared_ptr<const Typeface> Fonts::openTypeface(const FontFile& file, const platform::LOGFONTA& font,
                                                    const TextScale& scale) {
    return parts_->open(file, font, scale);
}

std::vector<FontFile> Fonts::list(const std::string& family) {
    const std::lock_guard lock(parts_->guard);
    // There may be better ones than before.
    parts_->found.clear();
    return parts_->catalogue.list(family);
}

void Fonts::Parts::dropOldest() {
    if (typefaces.size() < mostTypefaces) {
        return;
    }
    const auto oldest = std::ranges::min_element(typefaces, {}, [](const auto& entry) { return entry.second.lastUse; });
    last = nullptr;
    typefaces.erase(oldest);
}

std::optional<FontFile> Fonts::Parts::find(const FontRequest& request) {
    if (found.size() >= mostRequests) {
        found.clear();
    }
    const auto [place, isNew] = found.try_emplace(request);
    if (isNew) {
        place->second = catalogue.find(request);
    }
    return place->second;
}

std::shared_ptr<const Typeface> Fonts::Parts::realise(const platform::LOGFONTA& font, const TextScale& scale) {
    const FontRequest request = requestOf(font, codePage);
    std::shared_ptr<const Typeface> typeface;
    if (const auto file = find(request)) {
        typeface = open(*file, font, scale);
    }
    const CharacterSet* const set = findCharacterSet(request.charSet);
    if (typeface && set && !isUsual(*set) && !typeface->hasCharacter(set->sample)) {
        if (const auto file = catalogue.findWith(set->sample, request)) {
            auto other = open(*file, font, scale);
            typeface = other ? std::move(other) : std::move(typeface);
        }
    }
    if (!typeface) {
        // The file is gone or damaged since it was listed.
        for (const FontFile& file : catalogue.sorted(request)) {
            if ((typeface = open(file, font, scale))) {
                found[request] = file;
                break;
            }
        }
    }
    return typeface;
}

std::shared_ptr<const Typeface> Fonts::Parts::open(const FontFile& file, const platform::LOGFONTA& font, const TextScale& scale) {
    FontFace face = library->open(file.path, file.index);
    if (!face) {
        return nullptr;
    }
    return std::make_shared<const Typeface>(std::move(face), file, font, scale, [=, this](char32_t character, int pixelsPerEm) {
        const std::lock_guard lock(guard);
        return openSubstitute(character, pixelsPerEm, font, scale);
    });
}

std::shared_ptr<const Typeface> Fonts::Parts::openSubstitute(char32_t character, int pixelsPerEm, platform::LOGFONTA font,
                                                             TextScale scale) {
    const auto file = catalogue.findWith(character, requestOf(font, codePage));
    FontFace face = file ? library->open(file->path, file->index) : FontFace(nullptr, nullptr);
    if (!face) {
        return nullptr;
    }
    // As large as the font that it helps out, whose size is rounded already.
    font.lfHeight = -pixelsPerEm;
    font.lfWidth = 0;
    font.lfCharSet = platform::DEFAULT_CHARSET;
    scale.height = 1;
    return std::make_shared<const Typeface>(std::move(face), *file, font, scale, nullptr);
}

} // namespace mox::host
