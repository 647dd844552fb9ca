#include "host/icons/shellicons.h"

#include "host/icons/icons.h"
#include "host/machine/machineconfig.h"

namespace mox::host {

ShellIcons::ShellIcons(Handles& handles, Icons& icons, const MachineConfig& config)
    : handles_(handles), icons_(icons), theme_(config.iconFolders, config.iconTheme) {}

std::int32_t ShellIcons::indexOf(const ShellPicture& picture) {
    const std::lock_guard lock(guard_);
    const std::pair key(picture.artwork, picture.names);
    if (const auto found = places_.find(key); found != places_.end()) {
        return found->second;
    }
    auto large = make(picture, IconSize::large);
    auto small = make(picture, IconSize::small);
    if (!large || !small) {
        return -1;
    }
    listOf(IconSize::small).icons->add(std::move(small));
    return places_[key] = listOf(IconSize::large).icons->add(std::move(large));
}

platform::Handle ShellIcons::list(IconSize size) {
    const std::lock_guard lock(guard_);
    List& list = listOf(size);
    if (list.handle == 0) {
        list.handle = handles_.open<ImageList>("", list.icons);
    }
    return list.handle;
}

platform::Handle ShellIcons::copy(std::int32_t index, IconSize size) {
    const auto icon = listOf(size).icons->at(index);
    return icon ? icons_.add(*icon) : 0;
}

std::shared_ptr<const Icon> ShellIcons::make(const ShellPicture& picture, IconSize size) const {
    const SIZE pixels = size == IconSize::large ? icons_.systemSize() : icons_.smallSize();
    std::optional<Icon> icon = theme_.find(picture.names, pixels.cx);
    if (!icon) {
        icon = drawnIcon(picture.artwork, pixels);
    }
    return icon ? std::make_shared<const Icon>(*std::move(icon)) : nullptr;
}

} // namespace mox::host
