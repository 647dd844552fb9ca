// The source of a copy as rows of the target.
#pragma once

#include "host/pixels/averagecolumns.h"
#include "host/pixels/copyaxis.h"
#include "host/pixels/sourcepixels.h"

#include <optional>

namespace mox::host {

/// Stretched and mirrored, monochrome pixels in the colours of the copy, or for a monochrome target in black and white.
class SourceRows {
public:
    /// Copies the places from `left` to `right` - 1 of the target, whose nearest ones are in the source. `copy` has to outlive
    /// it. `isWritten`: the source's rows are those of the target, each is read before it is written.
    SourceRows(const ImageCopy& copy, const CopyAxis& x, const CopyAxis& y, int left, int right, bool isForMonochrome,
               bool isWritten);

    /// Pixels from `left` to `right` - 1 of a row of the target, valid until the next call.
    const Pixel* row(int y, int left, int right);

private:
    enum class Way { shift, nearest, bothAnd, bothOr, halved, average };

    static Way wayOf(const ImageCopy& copy, const CopyAxis& x, const CopyAxis& y);
    const Pixel* stretched(int y, int left, int right);
    void takeNearest(int y, int left, int right);
    template <class Operation> void takeMerged(int y, int left, int right, Operation operation);
    /// In the order of the source's columns.
    template <class Take> void eachColumn(int left, int right, Take take);

    const CopyAxis x_;
    const CopyAxis y_;
    const int left_;
    const Way way_;
    const bool isCompared_;
    const Pixel backColor_;
    SourcePixels source_;
    std::vector<int> columns_;
    std::optional<AverageColumns> average_;
    std::vector<Pixel> row_;
};

} // namespace mox::host
