// Metafiles by handle.
#pragma once

#include "automation/objects/export.h"

#include "host/graphics/graphics.h"
#include "host/text/codepage.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace mox::host {

class Files;

/// Creates, plays and frees metafiles; handles of the kind "metafile", of recording contexts "dc".
class MOX_API Metafiles {
public:
    Metafiles(Graphics& graphics, const Files& files, const CodePage& codePage)
        : graphics_(graphics), files_(files), codePage_(codePage) {}

    /// A recording context; 0 for a reference that is none, and for a file whose folder does not exist.
    platform::Handle create(platform::Handle reference, std::string_view file, const RECT& frame, std::string_view description);
    /// Ends a recording context and gives its metafile; 0, with the context gone too, if it cannot be written.
    platform::Handle close(platform::Handle hdc);
    bool play(platform::Handle hdc, platform::Handle metafile, const RECT& area) const;
    platform::Handle openEnhanced(std::span<const std::byte> bits);
    platform::Handle openOld(std::span<const std::byte> bits);
    /// An old-style metafile whose picture is the whole surface of the reference device.
    platform::Handle convert(std::span<const std::byte> bits, platform::Handle reference);
    /// Copies what fits, or tells the size if `bits` is empty; 0 for no metafile.
    std::uint32_t enhancedBits(platform::Handle metafile, std::span<std::byte> bits) const;
    std::uint32_t oldBits(platform::Handle metafile, std::span<std::byte> bits) const;

private:
    std::shared_ptr<const Device> referenceDevice(platform::Handle reference) const;

    Graphics& graphics_;
    const Files& files_;
    const CodePage& codePage_;
};

} // namespace mox::host
