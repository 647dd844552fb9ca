// The icons of the machine.
#pragma once

#include "host/graphics/graphics.h"

#include "platform/user32.h"

#include <map>
#include <mutex>

namespace mox::host {

struct MachineConfig;

/// Creates, finds, draws and destroys icons by handle, of the kind "icon"; the system's own ones are the machine's.
class MOX_API Icons {
public:
    Icons(Graphics& graphics, const MachineConfig& config) : graphics_(graphics), config_(config) {}

    platform::Handle add(Icon icon) { return graphics_.add("icon", std::move(icon)); }
    /// Null for a handle that is none.
    std::shared_ptr<const Icon> icon(platform::Handle handle) const { return graphics_.object<Icon>(handle); }

    platform::Handle create(const platform::ICONINFO& info);
    bool info(platform::Handle handle, platform::ICONINFO& info);
    bool destroy(platform::Handle handle);
    /// The shared one with that resource number; 0 if this version of the system has none.
    platform::Handle load(std::uint32_t resource);
    /// `area` is in logical coordinates; extents of 0 stand for the icon's size, or with `DI_DEFAULTSIZE` for the system's.
    bool draw(platform::Handle hdc, SignedRect area, platform::Handle handle, platform::Handle ground, std::uint32_t flags);

    /// Width and height of the icons of the system in pixels.
    SIZE systemSize() const;
    SIZE smallSize() const;

private:
    Graphics& graphics_;
    const MachineConfig& config_;
    std::mutex guard_;
    /// Those that were loaded, by resource number.
    std::map<std::uint32_t, platform::Handle> loaded_;
};

} // namespace mox::host
