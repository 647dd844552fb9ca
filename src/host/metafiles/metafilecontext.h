// Recording enhanced metafiles.
#pragma once

#include "host/metafiles/boundscanvas.h"
#include "host/metafiles/enhancedheader.h"
#include "host/metafiles/enhancedrecords.h"
#include "host/metafiles/recordedobjects.h"
#include "host/metafiles/recordwriter.h"

#include <optional>

namespace mox::host {

struct PackedDib;

/// A context whose drawing becomes records. What is chosen and set is recorded when something is drawn with it. Saved states
/// leave no trace: what they change is recorded as any other change is.
class MOX_API MetafileContext final : public DeviceContext {
public:
    /// Sizes and fonts are those of the reference device. `frame`: the picture in hundredths of a millimetre; an empty one is
    /// found from what is drawn.
    MetafileContext(Graphics& graphics, const std::shared_ptr<const Device>& reference, const CodePage& codePage,
                    const RECT& frame, std::u16string_view description);

    /// The whole metafile; empty if there are more records than one holds. Nothing may be drawn after that.
    std::vector<std::byte> finish();
    /// Where a file is to be written at the end, on disk; empty for none.
    const std::string& file() const noexcept { return file_; }
    void setFile(std::string path) { file_ = std::move(path); }

    bool lineTo(POINT point) override;
    bool rectangle(const RECT& area) override;
    bool fillRect(const RECT& area, const Brush& brush) override;
    bool ellipse(const RECT& area) override;
    bool roundRect(const RECT& area, SIZE corner) override;
    bool polyline(std::span<const POINT> points) override;
    bool polygon(std::span<const POINT> points) override;
    bool polyPolygon(std::span<const POINT> points, std::span<const std::uint32_t> counts) override;
    bool polyBezier(std::span<const POINT> points) override;
    bool drawPath(const Path& path, bool isFilled, bool isStroked) override;
    platform::COLORREF setPixel(POINT point, platform::COLORREF color) override;

    bool bitBlt(const SignedRect& target, const DeviceContext* source, POINT from, std::uint32_t rop) override;
    bool stretchBlt(const SignedRect& target, const DeviceContext* source, const SignedRect& from, std::uint32_t rop) override;
    bool transparentBlt(const SignedRect& target, const DeviceContext& source, const SignedRect& from,
                        platform::COLORREF transparent) override;
    bool alphaBlend(const SignedRect& target, const DeviceContext& source, const SignedRect& from,
                    const platform::BLENDFUNCTION& blend) override;
    bool drawBitmap(const SignedRect& target, std::shared_ptr<const Bitmap> source, const SignedRect& from,
                    std::uint32_t rop) override;

    bool textOut(POINT point, std::u16string_view text) override;
    bool extTextOut(POINT point, std::uint32_t options, const RECT& area, std::u16string_view text,
                    std::span<const std::int32_t> distances) override;

private:
    MetafileContext(Graphics& graphics, const std::shared_ptr<const Device>& reference, const CodePage& codePage,
                    std::shared_ptr<BoundsCanvas> canvas);

    // The state that records have: metafilecontext_state.cpp.
    void syncState();
    void syncModes();
    void syncObjects();
    void syncMapping();
    void syncClip();
    void syncPosition();
    template <class Value> bool isChanged(Value DeviceState::*field);

    static RecordWriter begin(EnhancedRecord type) { return RecordWriter(static_cast<std::uint32_t>(type)); }
    void write(EnhancedRecord typeAlone) { write(begin(typeAlone).finish()); }
    void write(RecordWriter& record) { write(record.finish()); }
    void write(std::span<const std::byte> record);
    /// Draws without pixels, for how far it reaches and what it changes; if it can be drawn, `fields` writes the record.
    template <class Draw, class Fields> bool record(Draw draw, Fields fields);
    /// The last pixels belong to it, as records have it.
    RECT takeBounds();
    void writePoints(EnhancedRecord wide, EnhancedRecord narrow, const RECT& bounds, std::span<const POINT> points);

    void writeFigures(const Path& path, double scale);
    void writeCopyTarget(RecordWriter& record, const RECT& bounds, const SignedRect& target);
    /// Pixels of a bitmap that a record copies.
    struct Pixels;
    std::optional<Pixels> pixelsOf(const DeviceContext& source, const SignedRect& from) const;
    Pixels pixelsOf(const Bitmap& bitmap, const SignedRect& area) const;
    void writeCopy(EnhancedRecord type, const RECT& bounds, const SignedRect& target, std::uint32_t operation,
                   const Pixels& pixels, platform::COLORREF backColor);
    void writePatternCopy(const RECT& bounds, const SignedRect& target, std::uint32_t rop);
    void writeText(const RECT& bounds, POINT point, std::uint32_t options, const RECT& area, std::u16string_view text,
                   std::span<const std::int32_t> distances);

    const std::shared_ptr<BoundsCanvas> drawn_;
    EnhancedHeader header_;
    std::string file_;
    std::vector<std::byte> records_;
    std::uint32_t count_ = 0;
    bool isTooLarge_ = false;
    RECT bounds_;
    DeviceState recorded_;
    RecordedObjects objects_;
    /// Drawing is a part of what is recorded already.
    bool isRecorded_ = false;
    class Part {
    public:
        explicit Part(bool& isPart) noexcept : isPart_(isPart) { isPart_ = true; }
        Part(const Part&) = delete;
        Part& operator=(const Part&) = delete;
        ~Part() { isPart_ = false; }

    private:
        bool& isPart_;
    };
};

} // namespace mox::host
