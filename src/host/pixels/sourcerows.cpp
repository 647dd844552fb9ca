#include "host/pixels/sourcerows.h"

#include "host/pixels/pixelloops.h"

#include <algorithm>

namespace mox::host {

namespace {

SourcePixels::Access accessOf(const CopyAxis& x, bool isWritten, bool isAverage) {
    constexpr std::int64_t far = 64;
    return isWritten                                               ? SourcePixels::Access::buffered
           : !isAverage && x.sourceCount() / far > x.targetCount() ? SourcePixels::Access::sparse
                                                                   : SourcePixels::Access::dense;
}

} // namespace

SourceRows::SourceRows(const ImageCopy& copy, const CopyAxis& x, const CopyAxis& y, int left, int right, bool isForMonochrome,
                       bool isWritten)
    : x_(x), y_(y), left_(left), way_(wayOf(copy, x, y)), isCompared_(isForMonochrome && !copy.source->isMonochrome()),
      backColor_(toPixel(copy.sourceBackColor)), source_(copy, !isForMonochrome, accessOf(x, isWritten, way_ != Way::nearest)) {
    if (way_ == Way::nearest) {
        columns_.reserve(static_cast<std::size_t>(right - left));
        for (int place = left; place < right; ++place) {
            columns_.push_back(static_cast<int>(x_.nearest(place)));
        }
    } else if (way_ == Way::average) {
        average_.emplace(source_, x_, y_, left, right);
    }
}

SourceRows::Way SourceRows::wayOf(const ImageCopy& copy, const CopyAxis& x, const CopyAxis& y) {
    if (x.isShift() && y.isShift()) {
        return Way::shift;
    }
    const bool isStretched = x.targetCount() != x.sourceCount() || y.targetCount() != y.sourceCount();
    if (!isStretched || copy.kind == ImageCopy::Kind::transparent) {
        return Way::nearest;
    }
    switch (copy.stretchMode) {
    case platform::HALFTONE: {
        const auto halves = [](const CopyAxis& axis) {
            return axis.sourceCount() == 2 * axis.targetCount() && !axis.isMirrored();
        };
        const bool isInside = x.source().begin >= 0 && y.source().begin >= 0 && x.source().end <= copy.source->width() &&
                              y.source().end <= copy.source->height();
        if (x.targetCount() % x.sourceCount() == 0 && y.targetCount() % y.sourceCount() == 0) {
            return Way::nearest; // plain blocks
        }
        return halves(x) && halves(y) && isInside && copy.source->isPlain() ? Way::halved : Way::average;
    }
    case platform::BLACKONWHITE:
        return copy.kind == ImageCopy::Kind::raster ? Way::bothAnd : Way::nearest;
    case platform::WHITEONBLACK:
        return copy.kind == ImageCopy::Kind::raster ? Way::bothOr : Way::nearest;
    default:
        return Way::nearest;
    }
}

template <class Take> void SourceRows::eachColumn(int left, int right, Take take) {
    const int count = right - left;
    for (int i = 0; i < count; ++i) {
        const int place = x_.isMirrored() ? count - 1 - i : i;
        row_[static_cast<std::size_t>(place)] = take(left + place);
    }
}

void SourceRows::takeNearest(int y, int left, int right) {
    const auto from = static_cast<int>(y_.nearest(y));
    const int* const columns = columns_.data() - left_;
    if (source_.isDirect()) {
        const Pixel* const pixels = source_.at(0, from, source_.width());
        std::transform(columns + left, columns + right, row_.begin(), [&](int column) { return pixels[column]; });
    } else {
        eachColumn(left, right, [&](int place) { return *source_.at(columns[place], from, 1); });
    }
}

template <class Operation> void SourceRows::takeMerged(int y, int left, int right, Operation operation) {
    constexpr std::int64_t most = 512;
    // At the edge of the source the places to be merged may be outside, though the nearest one is not.
    const auto inside = [](const CopyAxis& axis, int place, int size) {
        const PlaceRange all = axis.merged(place);
        const PlaceRange places{std::max<std::int64_t>(all.begin, 0), std::min<std::int64_t>(all.end, size)};
        return places.isEmpty() ? PlaceRange{axis.nearest(place), axis.nearest(place) + 1} : places;
    };
    const PlaceRange rows = inside(y_, y, source_.height());
    for (std::int64_t from = rows.begin; from < rows.end; ++from) {
        eachColumn(left, right, [&](int place) {
            const PlaceRange columns = inside(x_, place, source_.width());
            std::optional<Pixel> result;
            if (from != rows.begin) {
                result = row_[static_cast<std::size_t>(place - left)];
            }
            for (std::int64_t at = columns.begin; at < columns.end;) {
                const auto count = static_cast<int>(std::min(columns.end - at, most));
                const Pixel* const pixels = source_.at(static_cast<int>(at), static_cast<int>(from), count);
                for (int i = 0; i < count; ++i) {
                    result = result ? operation(*result, pixels[i]) : pixels[i];
                }
                at += count;
            }
            return result.value_or(0);
        });
    }
}

const Pixel* SourceRows::stretched(int y, int left, int right) {
    const int count = right - left;
    if (way_ == Way::shift) {
        return source_.at(static_cast<int>(x_.nearest(left)), static_cast<int>(y_.nearest(y)), count);
    }
    row_.resize(static_cast<std::size_t>(count));
    switch (way_) {
    case Way::bothAnd:
        takeMerged(y, left, right, [](Pixel a, Pixel b) { return a & b; });
        break;
    case Way::bothOr:
        takeMerged(y, left, right, [](Pixel a, Pixel b) { return a | b; });
        break;
    case Way::halved: {
        const auto from = static_cast<int>(x_.merged(left).begin);
        const auto upper = static_cast<int>(y_.merged(y).begin);
        halve(row_.data(), source_.at(from, upper, 2 * count), source_.at(from, upper + 1, 2 * count),
              static_cast<std::size_t>(count));
        break;
    }
    case Way::average:
        average_->row(y, left, right, row_.data());
        break;
    default:
        takeNearest(y, left, right);
    }
    return row_.data();
}

const Pixel* SourceRows::row(int y, int left, int right) {
    const Pixel* const pixels = stretched(y, left, right);
    if (!isCompared_) {
        return pixels;
    }
    const auto count = static_cast<std::size_t>(right - left);
    row_.resize(count);
    std::transform(pixels, pixels + count, row_.begin(),
                   [this](Pixel pixel) { return ((pixel ^ backColor_) & 0xFFFFFF) == 0 ? 0xFFFFFF : 0U; });
    return row_.data();
}

} // namespace mox::host
