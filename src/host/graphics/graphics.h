// The graphics service: device contexts, and the objects that are selected into them.
#pragma once

#include "host/graphics/devicecontext.h"
#include "host/machine/handles.h"

#include "platform/gdi32.h"

#include <map>
#include <mutex>

namespace mox::host {

class Desktop;
class Fonts;

/// Creates, finds and frees by handle. Kinds of handles: "dc", "bitmap", "pen", "brush", "font", "icon", "metafile".
class MOX_API Graphics {
public:
    Graphics(Handles& handles, Desktop& desktop, Fonts& fonts);
    ~Graphics();

    Handles& handles() const noexcept { return handles_; }
    Desktop& desktop() const noexcept { return desktop_; }
    Fonts& fonts() const noexcept { return fonts_; }

    // ---- contexts

    /// Null for a handle that is none.
    std::shared_ptr<DeviceContext> context(platform::Handle hdc) const { return handles_.get<DeviceContext>(hdc); }
    platform::Handle open(std::shared_ptr<DeviceContext> context) {
        return handles_.open<DeviceContext>("dc", std::move(context));
    }
    /// A context of the screen.
    platform::Handle createScreenContext();
    /// `hdc` 0 stands for the screen.
    platform::Handle createCompatibleContext(platform::Handle hdc);
    bool deleteContext(platform::Handle hdc);
    /// What a new context has selected.
    DeviceState initialState() const;

    // ---- objects

    template <class Object> platform::Handle add(std::string_view kind, Object object) {
        return handles_.open<Object>(kind, std::make_shared<Object>(std::move(object)));
    }
    platform::Handle add(std::shared_ptr<Bitmap> bitmap) { return handles_.open<Bitmap>("bitmap", std::move(bitmap)); }
    std::shared_ptr<Bitmap> bitmap(platform::Handle handle) const { return handles_.get<Bitmap>(handle); }
    /// Of a pen, brush, font or one of the other objects that never change.
    template <class Object> std::shared_ptr<const Object> object(platform::Handle handle) const {
        return handles_.get<Object>(handle);
    }
    /// The stock object of that number; 0 if there is none.
    platform::Handle stockObject(std::int32_t index) const;
    platform::Handle select(platform::Handle hdc, platform::Handle object);
    bool deleteObject(platform::Handle object);
    std::int32_t getObject(platform::Handle object, std::span<std::byte> record) const;
    platform::Handle createBrush(const platform::LOGBRUSH& brush);

private:
    platform::Handle selectBitmap(DeviceContext& context, platform::Handle handle, std::shared_ptr<Bitmap> bitmap);
    bool isStock(platform::Handle object) const;

    Handles& handles_;
    Desktop& desktop_;
    Fonts& fonts_;
    /// By their numbers, and the handles alone in order.
    const std::map<std::int32_t, platform::Handle> stock_;
    const std::vector<platform::Handle> stockHandles_;
    mutable std::mutex guard_;
    /// Which context each selected bitmap is in.
    std::map<platform::Handle, platform::Handle> holders_;
};

} // namespace mox::host
