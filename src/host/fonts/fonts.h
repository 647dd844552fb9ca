// The fonts service: from descriptions of fonts to typefaces.
#pragma once

#include "automation/objects/export.h"
#include "host/fonts/fontfile.h"
#include "host/fonts/textscale.h"
#include "host/text/codepage.h"

#include "platform/gditypes.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace mox::host {

class Typeface;

/// May be used by any number of threads. Nothing is read from the disk before the first font is asked for.
class MOX_API Fonts {
public:
    /// Names of fonts are in `codePage`. `configuration`: a file of fontconfig, empty for that of the system.
    explicit Fonts(CodePage codePage, std::filesystem::path configuration = {});
    Fonts(const Fonts&) = delete;
    Fonts& operator=(const Fonts&) = delete;
    ~Fonts();

    /// The font that fits a description best; the same one for the same description, as long as it is in use. Null if there is
    /// not one font that can be opened.
    std::shared_ptr<const Typeface> typeface(const platform::LOGFONTA& font, const TextScale& scale = {});
    /// One that is in no cache; null if the file cannot be opened.
    std::shared_ptr<const Typeface> openTypeface(const FontFile& file, const platform::LOGFONTA& font,
                                                 const TextScale& scale = {});
    /// All fonts, or those of one family.
    std::vector<FontFile> list(const std::string& family);

    static constexpr std::size_t mostTypefaces = 64;

private:
    struct Parts;

    const std::unique_ptr<Parts> parts_;
};

} // namespace mox::host
