// The icons by which the shell shows files.
#pragma once

#include "host/icons/artwork.h"
#include "host/icons/icontheme.h"
#include "host/icons/imagelist.h"
#include "host/machine/handles.h"

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace mox::host {

class Icons;
struct MachineConfig;

/// How something is shown: by the first of the names that the user's icon theme has an icon for, else by a drawing.
struct ShellPicture {
    Artwork artwork = Artwork::document;
    std::vector<std::string> names{};
};

enum class IconSize { large, small };

/// The system's image lists, one for each size, with the same pictures at the same places. Both grow as pictures are asked for.
class MOX_API ShellIcons {
public:
    ShellIcons(Handles& handles, Icons& icons, const MachineConfig& config);

    /// The place of a picture in the lists; below 0 if there is no memory.
    std::int32_t indexOf(const ShellPicture& picture);
    /// A handle of the list, which belongs to the machine; 0 if there is none left.
    platform::Handle list(IconSize size);
    /// A new icon, which belongs to the caller; 0 if there is none.
    platform::Handle copy(std::int32_t index, IconSize size);

private:
    struct List {
        std::shared_ptr<ImageList> icons = std::make_shared<ImageList>();
        platform::Handle handle = 0;
    };

    List& listOf(IconSize size) noexcept { return lists_[size == IconSize::large ? 0 : 1]; }
    std::shared_ptr<const Icon> make(const ShellPicture& picture, IconSize size) const;

    Handles& handles_;
    Icons& icons_;
    const IconTheme theme_;
    std::mutex guard_;
    std::array<List, 2> lists_;
    std::map<std::pair<Artwork, std::vector<std::string>>, std::int32_t> places_;
};

} // namespace mox::host
