// Device contexts: the state of drawing, and the way from logical coordinates to a canvas.
#pragma once

#include "host/graphics/canvas.h"
#include "host/graphics/device.h"
#include "host/graphics/objects.h"
#include "host/graphics/transform.h"

#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace mox::host {

class Graphics;

/// An object with the handle by which it was selected.
template <class Object> struct Selected {
    platform::Handle handle = 0;
    std::shared_ptr<const Object> object;
};

/// All that SaveDC saves.
struct DeviceState {
    Selected<Pen> pen;
    Selected<Brush> brush;
    Selected<Font> font;
    platform::Handle bitmap = 0;

    POINT position;
    std::int32_t rop2 = platform::R2_COPYPEN;
    std::int32_t bkMode = platform::OPAQUE;
    std::int32_t stretchMode = platform::BLACKONWHITE;
    platform::COLORREF textColor = 0;
    platform::COLORREF bkColor = 0xFFFFFF;
    POINT brushOrigin;
    FillRule fillRule = FillRule::alternate;
    std::uint32_t textAlign = 0;
    double miterLimit = 10;

    /// Window and viewport, and the mapping between them: device = (logical - windowOrigin) * viewportExtent / windowExtent +
    /// viewportOrigin. Before that comes the world transformation.
    std::int32_t mapMode = 1;
    POINT windowOrigin;
    SIZE windowExtent{1, 1};
    POINT viewportOrigin;
    SIZE viewportExtent{1, 1};
    Transform world;

    /// In device pixels; none is all of the canvas.
    std::optional<Region> clip;
};

/// A context is used by one thread at a time.
class MOX_API DeviceContext {
public:
    enum class Kind { memory, screen, window, metafile, printer };

    DeviceContext(Graphics& graphics, Kind kind, std::shared_ptr<const Device> device, std::shared_ptr<Canvas> canvas);
    DeviceContext(const DeviceContext&) = delete;
    DeviceContext& operator=(const DeviceContext&) = delete;
    virtual ~DeviceContext();

    /// The service that it belongs to.
    Graphics& graphics() const noexcept { return graphics_; }
    Kind kind() const noexcept { return kind_; }
    const Device& device() const noexcept { return *device_; }
    const std::shared_ptr<const Device>& sharedDevice() const noexcept { return device_; }
    Canvas& canvas() const noexcept { return *canvas_; }
    /// Another surface in the place of the present one.
    void setCanvas(std::shared_ptr<Canvas> canvas) { canvas_ = std::move(canvas); }

    DeviceState& state() noexcept { return state_; }
    const DeviceState& state() const noexcept { return state_; }
    /// The number of the saved state, from 1.
    int save();
    /// By its number, or below 0 by its distance from the present one. False if there is none.
    bool restore(int saved);

    /// Window and world transformation in one.
    Transform toDevice() const;
    /// Rounded to whole pixels.
    POINT toDevice(POINT point) const;
    PathPoint toDevicePoint(PathPoint point) const { return toDevice().apply(point); }
    SignedRect toDevice(const SignedRect& area) const;
    /// A length along the x axis, for widths of pens; at least 0.
    double toDeviceLength(double length) const;
    /// What drawing may change: the canvas and the clipping.
    Region clip() const;

    /// The present brush, ready for the canvas.
    Paint paint() const;
    Paint paint(const Brush& brush) const;
    /// The present pen, ready for the canvas.
    Stroke stroke() const;

    // ---- drawing in logical coordinates; each in the source file of its kind

    // lines and areas: devicecontext_shapes.cpp
    virtual bool moveTo(POINT point, POINT& before);
    virtual bool lineTo(POINT point);
    virtual bool rectangle(const RECT& area);
    virtual bool fillRect(const RECT& area, const Brush& brush);
    virtual bool ellipse(const RECT& area);
    virtual bool roundRect(const RECT& area, SIZE corner);
    virtual bool polyline(std::span<const POINT> points);
    virtual bool polygon(std::span<const POINT> points);
    /// Several figures in one filling; `counts` are their numbers of points.
    virtual bool polyPolygon(std::span<const POINT> points, std::span<const std::uint32_t> counts);
    /// 3n + 1 points.
    virtual bool polyBezier(std::span<const POINT> points);
    /// An outline in device coordinates, as paths of metafiles and pages are.
    virtual bool drawPath(const Path& path, bool isFilled, bool isStroked);
    virtual platform::COLORREF pixel(POINT point) const;
    virtual platform::COLORREF setPixel(POINT point, platform::COLORREF color);

    // copies of pixels: devicecontext_copies.cpp
    virtual bool bitBlt(const SignedRect& target, const DeviceContext* source, POINT from, std::uint32_t rop);
    virtual bool stretchBlt(const SignedRect& target, const DeviceContext* source, const SignedRect& from, std::uint32_t rop);
    virtual bool transparentBlt(const SignedRect& target, const DeviceContext& source, const SignedRect& from,
                                platform::COLORREF transparent);
    virtual bool alphaBlend(const SignedRect& target, const DeviceContext& source, const SignedRect& from,
                            const platform::BLENDFUNCTION& blend);
    /// A bitmap that is in no context, as metafiles have them.
    virtual bool drawBitmap(const SignedRect& target, std::shared_ptr<const Bitmap> source, const SignedRect& from,
                            std::uint32_t rop);

    // text: devicecontext_text.cpp
    /// `textAlign` tells what of the text is at the point.
    virtual bool textOut(POINT point, std::u16string_view text);
    /// `distances` from each character to the next in logical units; empty for those of the font. `options` as ETO_ flags.
    virtual bool extTextOut(POINT point, std::uint32_t options, const RECT& area, std::u16string_view text,
                            std::span<const std::int32_t> distances);

private:
    /// True if logical units are pixels from the corner, as they mostly are.
    bool countsPixels() const;

    Graphics& graphics_;
    const Kind kind_;
    const std::shared_ptr<const Device> device_;
    std::shared_ptr<Canvas> canvas_;
    DeviceState state_;
    std::vector<DeviceState> saved_;
};

} // namespace mox::host
