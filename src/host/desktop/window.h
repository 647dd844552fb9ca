// A window: a place on the screen and its own pixels.
#pragma once

#include "host/graphics/bitmap.h"
#include "host/graphics/region.h"

#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace mox::host {

/// Sizes of the frame that a window gets, in pixels.
inline constexpr int frameWidth = 4;
inline constexpr int captionHeight = 26;

/// Its pixels are there whether it can be seen or not.
class MOX_API Window {
    /// What changes together.
    struct Look {
        RECT place;
        std::shared_ptr<Bitmap> surface;
        std::shared_ptr<Bitmap> client;
    };

public:
    /// For `create` alone: only it can make one.
    class Made {
        friend class Window;
        Made() = default;
    };
    Window(Made, Look look, std::u16string title) : title_(std::move(title)), look_(std::move(look)) {}

    /// Null if there is no memory for its pixels. The inside is white at first.
    static std::shared_ptr<Window> create(const RECT& place, std::u16string title);

    /// On the screen.
    RECT place() const;
    const std::u16string& title() const noexcept { return title_; }
    bool isVisible() const;
    void setVisible(bool isVisible);
    /// Another place. With another size it gets new pixels, and keeps the inside as far as it fits. False if there is no memory.
    bool move(const RECT& place);

    /// What is in the frame, within the window.
    RECT clientArea() const;
    /// All its pixels, and those of the inside; null if there are none.
    std::shared_ptr<Bitmap> surface() const;
    std::shared_ptr<Bitmap> client() const;

private:
    static std::optional<Look> lookAt(const RECT& place);

    const std::u16string title_;
    mutable std::mutex guard_;
    Look look_;
    bool isVisible_ = false;
};

} // namespace mox::host
