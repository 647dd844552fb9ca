// The screen and the windows on it.
#pragma once

#include "host/desktop/screen.h"
#include "host/desktop/window.h"
#include "host/graphics/canvas.h"
#include "host/graphics/device.h"
#include "host/machine/handles.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace mox::host {

/// A screen in memory: the ground, and over it the windows that can be seen. It is put together again where windows have changed
/// when somebody draws on the screen or reads it; elsewhere stays what was drawn directly on it. Handles of windows are of the
/// kind "window", but for that of the desktop, which is the machine's own. All members may be called from any thread.
class MOX_API Desktop {
public:
    explicit Desktop(Handles& handles);
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop();

    const std::shared_ptr<const Device>& device() const noexcept { return device_; }
    /// The pixels of the whole screen.
    std::shared_ptr<Canvas> canvas() const noexcept { return canvas_; }
    /// The window that the screen is.
    platform::Handle desktopWindow() const noexcept { return desktopWindow_; }

    // ---- windows; false or null for a handle that is none of `createWindow`

    /// A new window on top of all others, which is not shown yet. It belongs to the caller, who destroys it. 0 if there is no
    /// memory or no free handle, or if a side is 32768 pixels long or longer.
    platform::Handle createWindow(const RECT& place, std::u16string title);
    bool destroyWindow(platform::Handle window);
    /// Also to another size.
    bool moveWindow(platform::Handle window, const RECT& place);
    bool showWindow(platform::Handle window, bool isVisible);
    /// On top of all others.
    bool raiseWindow(platform::Handle window);
    std::shared_ptr<Window> window(platform::Handle window) const { return handles_.get<Window>(window); }
    /// Of a window, or of the screen for the desktop's.
    bool windowRect(platform::Handle window, RECT& place) const;
    /// What contexts of the window draw on: its inside or all of it, for the desktop's the screen. Null for an unknown window.
    std::shared_ptr<Canvas> windowCanvas(platform::Handle window, bool isWhole);
    /// After somebody has changed the pixels of a window without a canvas.
    void invalidate(const Window& window);

private:
    class ScreenCanvas;
    class WindowCanvas;

    std::shared_ptr<Bitmap> composedScreen();
    /// What of a window can be seen.
    Region visiblePart(const Window& window) const;
    void invalidate(const Region& area);

    Handles& handles_;
    const std::shared_ptr<const Device> device_;
    const std::shared_ptr<Bitmap> screen_;
    const std::shared_ptr<Canvas> canvas_;
    const platform::Handle desktopWindow_;
    std::mutex guard_;
    /// From the bottom up.
    std::vector<std::shared_ptr<Window>> windows_;
    /// Where the screen has to be put together again.
    Region changed_;
    std::atomic<bool> isChanged_ = false;
};

} // namespace mox::host
