// The fonts of the system, as fontconfig lists and matches them.
#pragma once

#include "host/fonts/fontfile.h"

#include <fontconfig/fontconfig.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace mox::host {

/// Used by one thread at a time. Only fonts with outlines count.
class FontCatalogue {
public:
    /// `configuration`: a file of fontconfig, empty for that of the system. Nothing is read before it is asked for.
    explicit FontCatalogue(std::filesystem::path configuration);

    /// The font that fits best, or nothing if there are none at all.
    std::optional<FontFile> find(const FontRequest& request);
    /// All fonts, from the one that fits best on.
    std::vector<FontFile> sorted(const FontRequest& request);
    /// The font nearest to the request that has a character.
    std::optional<FontFile> findWith(char32_t character, const FontRequest& request);
    /// All fonts, or those of one family, sorted by family and style. Looks anew at what the system has.
    std::vector<FontFile> list(const std::string& family);

private:
    struct Free {
        void operator()(FcConfig* config) const noexcept { FcConfigDestroy(config); }
        void operator()(FcPattern* pattern) const noexcept { FcPatternDestroy(pattern); }
        void operator()(FcFontSet* set) const noexcept { FcFontSetDestroy(set); }
        void operator()(FcObjectSet* set) const noexcept { FcObjectSetDestroy(set); }
        void operator()(FcCharSet* set) const noexcept { FcCharSetDestroy(set); }
    };
    template <class Thing> using Owned = std::unique_ptr<Thing, Free>;

    void load();
    bool has(std::string_view family);
    /// The name of an installed family for the request.
    std::string familyFor(const FontRequest& request);
    std::vector<std::string> aliases(const std::string& family);
    Owned<FcPattern> pattern(const FontRequest& request, const std::string& family);
    Owned<FcFontSet> listed(FcPattern* pattern);

    const std::filesystem::path configuration_;
    Owned<FcConfig> config_;
    /// In small letters.
    std::set<std::string> families_;
};

} // namespace mox::host
