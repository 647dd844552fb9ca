// Playing old-style metafiles.
#pragma once

#include "automation/objects/export.h"

#include "host/metafiles/objecttable.h"
#include "host/metafiles/oldrecords.h"
#include "host/metafiles/recordreader.h"
#include "host/metafiles/stage.h"
#include "host/text/codepage.h"

#include <cstddef>
#include <optional>
#include <span>
#include <unordered_map>

namespace mox::host {

/// The bytes that the header of an old-style metafile says it has. Nothing for bytes that are none, or too few. A header for
/// placing a picture may not be in front.
MOX_API std::optional<std::size_t> sizeOfOld(std::span<const std::byte> metafile);

/// Plays onto the whole surface of a context's device: the window that the metafile sets fills it. True if every record was
/// drawn; at the first broken one it ends. The context's state is as before.
MOX_API bool playOld(std::span<const std::byte> metafile, DeviceContext& target, const CodePage& codePage);

/// Plays an old-style metafile once. Records that are not known are left out.
class OldPlayer {
public:
    OldPlayer(DeviceContext& target, std::uint16_t objects, SIZE device, SIZE micrometers, const CodePage& codePage);

    bool play(std::span<const std::byte> records);

    /// The arguments of a record.
    using Handler = bool (OldPlayer::*)(RecordReader&);
    struct Entry {
        OldRecord function;
        Handler handler;
    };

private:
    // One source a group: oldplayer_state.cpp, oldplayer_objects.cpp, oldplayer_shapes.cpp, oldplayer_bitmaps.cpp,
    // oldplayer_text.cpp.
    static std::span<const Entry> stateRecords();
    static std::span<const Entry> objectRecords();
    static std::span<const Entry> shapeRecords();
    static std::span<const Entry> bitmapRecords();
    static std::span<const Entry> textRecords();
    static const std::unordered_map<std::uint16_t, Handler>& handlers();

    bool setMapMode(RecordReader& record);
    template <auto Member> bool setOrigin(RecordReader& record);
    template <auto Member> bool setExtent(RecordReader& record);
    template <auto Member> bool move(RecordReader& record);
    template <auto Member> bool scale(RecordReader& record);
    template <auto Field, std::int32_t Least, std::int32_t Most> bool setMode(RecordReader& record);
    template <auto Field> bool setColor(RecordReader& record);
    bool setFillRule(RecordReader& record);
    bool setTextAlign(RecordReader& record);
    bool save(RecordReader& record);
    bool restore(RecordReader& record);
    bool intersectClip(RecordReader& record);
    bool excludeClip(RecordReader& record);
    bool offsetClip(RecordReader& record);

    bool createPen(RecordReader& record);
    bool createBrush(RecordReader& record);
    bool createFont(RecordReader& record);
    bool createDibPatternBrush(RecordReader& record);
    bool createPatternBrush(RecordReader& record);
    bool createPalette(RecordReader& record);
    bool createRegion(RecordReader& record);
    bool selectObject(RecordReader& record);
    bool deleteObject(RecordReader& record);
    bool selectClipRegion(RecordReader& record);
    bool fillRegion(RecordReader& record);
    bool paintRegion(RecordReader& record);
    bool frameRegion(RecordReader& record);
    bool invertRegion(RecordReader& record);
    bool fillAreas(const Region& region, const Brush& brush);
    bool addPattern(std::shared_ptr<Bitmap> pattern);

    template <bool (Stage::*Member)(POINT)> bool point(RecordReader& record);
    template <bool (Stage::*Member)(const RECT&)> bool box(RecordReader& record);
    template <bool (Stage::*Member)(std::span<const POINT>)> bool points(RecordReader& record);
    bool polyPolygon(RecordReader& record);
    bool roundRect(RecordReader& record);
    template <Stage::Arc Kind> bool arc(RecordReader& record);
    bool setPixel(RecordReader& record);

    bool patBlt(RecordReader& record);
    /// With a bitmap of the device in the record, or a device-independent one.
    template <bool IsDib> bool bitBlt(RecordReader& record);
    template <bool IsDib> bool stretchBlt(RecordReader& record);
    bool stretchDib(RecordReader& record);
    bool setDibToDevice(RecordReader& record);
    bool copyBitmap(const SignedRect& target, const std::shared_ptr<Bitmap>& source, const SignedRect& from, std::uint32_t rop);

    bool textOut(RecordReader& record);
    bool extTextOut(RecordReader& record);

    const CodePage& codePage_;
    Stage stage_;
    ObjectTable objects_;
    /// Bytes of pixels that brushes may still take.
    std::size_t patternBytes_ = std::size_t{1} << 28;
};

/// Numbers of 16 bits, the second coordinate in front, as the arguments are.
POINT readOldPoint(RecordReader& record);
/// A bitmap of the device, whose rows fill up to 16 bits, with so many bytes between its description and them. Null for one that
/// is not known here.
std::shared_ptr<Bitmap> readOldBitmap(RecordReader& record, std::size_t unusedFields);
/// The lower right corner in front.
RECT readOldRect(RecordReader& record);

} // namespace mox::host
