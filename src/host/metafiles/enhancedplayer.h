// Playing enhanced metafiles.
#pragma once

#include "automation/objects/export.h"

#include "host/graphics/devicecontext.h"
#include "host/metafiles/enhancedheader.h"
#include "host/metafiles/enhancedrecords.h"
#include "host/metafiles/objecttable.h"
#include "host/metafiles/recordreader.h"
#include "host/metafiles/stage.h"
#include "host/text/codepage.h"

#include <cstddef>
#include <span>

namespace mox::host {

/// Plays an enhanced metafile once. Records that are not known are left out; comments, too, so that no metafile plays another
/// one.
class MOX_API EnhancedPlayer {
public:
    /// The frame of the metafile fills `area`, in logical coordinates of the target. Throws `BrokenRecord` for a frame that
    /// cannot be drawn.
    EnhancedPlayer(DeviceContext& target, const EnhancedHeader& header, const platform::RECT& area, const CodePage& codePage);

    /// True if every record was there and was drawn. At the first broken one it ends.
    bool play(std::span<const std::byte> metafile);

    /// A record without its type and size, at the first field behind them; offsets count from its very start.
    using Handler = bool (EnhancedPlayer::*)(RecordReader&);
    struct Entry {
        EnhancedRecord type;
        Handler handler;
    };

private:
    // One source a group: player_state.cpp, player_objects.cpp, player_shapes.cpp, player_paths.cpp, player_regions.cpp,
    // player_bitmaps.cpp, player_gradients.cpp, player_text.cpp.
    static std::span<const Entry> stateRecords();
    static std::span<const Entry> objectRecords();
    static std::span<const Entry> shapeRecords();
    static std::span<const Entry> pathRecords();
    static std::span<const Entry> regionRecords();
    static std::span<const Entry> bitmapRecords();
    static std::span<const Entry> gradientRecords();
    static std::span<const Entry> textRecords();
    static Handler handlerOf(std::uint32_t type);

    bool setMapMode(RecordReader& record);
    template <auto Member> bool setOrigin(RecordReader& record);
    template <auto Member> bool setExtent(RecordReader& record);
    template <auto Member> bool scale(RecordReader& record);
    bool setWorld(RecordReader& record);
    bool modifyWorld(RecordReader& record);
    template <auto Field, std::int32_t Least, std::int32_t Most> bool setMode(RecordReader& record);
    template <auto Field> bool setColor(RecordReader& record);
    bool setFillRule(RecordReader& record);
    bool setTextAlign(RecordReader& record);
    bool setBrushOrigin(RecordReader& record);
    bool setMiterLimit(RecordReader& record);
    bool setArcDirection(RecordReader& record);
    bool save(RecordReader& record);
    bool restore(RecordReader& record);

    bool createPen(RecordReader& record);
    bool createExtendedPen(RecordReader& record);
    bool createBrush(RecordReader& record);
    template <bool IsMonochrome> bool createPatternBrush(RecordReader& record);
    bool createFont(RecordReader& record);
    bool createPalette(RecordReader& record);
    bool selectObject(RecordReader& record);
    bool deleteObject(RecordReader& record);

    using PointsMember = bool (Stage::*)(std::span<const POINT>);
    using FiguresMember = bool (Stage::*)(std::span<const POINT>, std::span<const std::uint32_t>);
    template <PointsMember Member, bool IsShort> bool points(RecordReader& record);
    template <FiguresMember Member, bool IsShort> bool figures(RecordReader& record);
    template <bool IsShort> bool polyDraw(RecordReader& record);
    template <bool (Stage::*Member)(POINT)> bool point(RecordReader& record);
    template <bool (Stage::*Member)(const RECT&)> bool box(RecordReader& record);
    bool roundRect(RecordReader& record);
    template <Stage::Arc Kind> bool arc(RecordReader& record);
    bool angleArc(RecordReader& record);
    bool setPixel(RecordReader& record);

    bool beginPath(RecordReader& record);
    bool abortPath(RecordReader& record);
    template <bool (Stage::*Member)()> bool pathStep(RecordReader& record);
    template <bool IsFilled, bool IsStroked> bool drawPath(RecordReader& record);
    bool widenPath(RecordReader& record);
    bool selectClipPath(RecordReader& record);

    bool intersectClip(RecordReader& record);
    bool excludeClip(RecordReader& record);
    bool offsetClip(RecordReader& record);
    bool keepClip(RecordReader& record);
    bool selectClipRegion(RecordReader& record);
    bool fillRegion(RecordReader& record);
    bool paintRegion(RecordReader& record);
    bool invertRegion(RecordReader& record);
    bool frameRegion(RecordReader& record);
    bool fillAreas(std::span<const RECT> areas, const Brush& brush);

    /// A copy from a bitmap in the record.
    struct Source {
        Transform transform;
        platform::COLORREF backColor = 0xFFFFFF;
        std::shared_ptr<Bitmap> bitmap;
    };
    Source readSource(RecordReader& record);
    /// Null for none. Throws `BrokenRecord` for one that is broken.
    static std::shared_ptr<Bitmap> readBitmap(RecordReader& record, bool usesPalette);
    bool copyBitmap(const SignedRect& target, const Source& source, const SignedRect& from, std::uint32_t rop);
    /// One operation where the mask is 1, another where it is 0.
    bool copyMasked(const SignedRect& target, const Source& source, const SignedRect& from, const Bitmap& mask, POINT maskFrom,
                    std::uint32_t rop);
    bool bitBlt(RecordReader& record);
    bool stretchBlt(RecordReader& record);
    bool maskBlt(RecordReader& record);
    bool plgBlt(RecordReader& record);
    bool setDibitsToDevice(RecordReader& record);
    bool stretchDibits(RecordReader& record);
    bool alphaBlend(RecordReader& record);
    bool transparentBlt(RecordReader& record);
    bool gradientFill(RecordReader& record);

    template <bool IsWide> bool extTextOut(RecordReader& record);
    bool smallTextOut(RecordReader& record);

    const CodePage& codePage_;
    Stage stage_;
    ObjectTable objects_;
    bool isClockwise_ = false;
    /// Bytes of pixels that brushes may still take.
    std::size_t patternBytes_ = std::size_t{1} << 28;
};

/// Plays onto a context, in a rectangle in its logical coordinates. False if something is broken or could not be drawn; the
/// context's state is as before.
MOX_API bool playEnhanced(std::span<const std::byte> metafile, DeviceContext& target, const platform::RECT& area,
                          const CodePage& codePage);

} // namespace mox::host
