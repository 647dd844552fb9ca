#include "host/pixels/averagecolumns.h"

#include "host/pixels/pixelloops.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace mox::host {

namespace {

// Bytes 0 and 2, and bytes 1 and 3, in the halves of a number.
std::uint64_t evenBytes(Pixel pixel) {
    return (pixel & 0xFF) | std::uint64_t{pixel & 0xFF0000} << 16;
}
std::uint64_t oddBytes(Pixel pixel) {
    return evenBytes(pixel >> 8);
}

} // namespace

AverageColumns::AverageColumns(SourcePixels& source, const CopyAxis& x, const CopyAxis& y, int left, int right)
    : source_(source), x_(x), y_(y), left_(left) {
    columns_.reserve(static_cast<std::size_t>(right - left));
    for (int place = left; place < right; ++place) {
        columns_.push_back(coverOf(x_, place, source_.width()));
    }
    const std::uint64_t first = columns_.front().total();
    const bool isCommon = std::ranges::all_of(columns_, [&](const Cover& cover) { return cover.total() == first; });
    commonTotal_ = isCommon ? first : 0;
}

AverageColumns::Cover AverageColumns::coverOf(const CopyAxis& axis, std::int64_t place, int size) {
    const std::int64_t common = std::gcd(axis.targetCount(), axis.sourceCount());
    const std::int64_t sourceUnit = axis.targetCount() / common; // what a place of the source is long
    const std::int64_t targetUnit = axis.sourceCount() / common;
    const std::int64_t from = axis.index(place) * targetUnit;
    const std::int64_t to = from + targetUnit;
    const std::int64_t origin = axis.source().begin;
    const std::int64_t begin = std::max<std::int64_t>(from / sourceUnit, -origin);
    const std::int64_t end = std::min((to + sourceUnit - 1) / sourceUnit, size - origin);
    // Sums of 24 bits times a byte fit.
    const int shift = std::max(0, static_cast<int>(std::bit_width(static_cast<std::uint64_t>(targetUnit))) - 24);
    const auto weight = [&](std::int64_t at) {
        const std::int64_t exact = std::min((at + 1) * sourceUnit, to) - std::max(at * sourceUnit, from);
        return static_cast<std::uint32_t>(exact >> shift);
    };
    Cover cover{static_cast<int>(origin + begin), static_cast<int>(origin + end), weight(begin), weight(begin + 1),
                weight(end - 1)};
    if (cover.total() == 0) {
        const auto nearest = static_cast<int>(axis.nearest(place));
        cover = {nearest, nearest + 1, 1, 0, 0};
    }
    return cover;
}

AverageColumns::Sums AverageColumns::sumOf(const Cover& cover, int y, const Pixel* direct) {
    std::uint64_t even = 0;
    std::uint64_t odd = 0;
    const auto pixelsAt = [&](int x, int count) { return direct ? direct + x : source_.at(x, y, count); };
    const auto add = [&](Pixel pixel, std::uint64_t weight) {
        even += evenBytes(pixel) * weight;
        odd += oddBytes(pixel) * weight;
    };
    add(*pixelsAt(cover.begin, 1), cover.first);
    constexpr int most = 512;
    for (int place = cover.begin + 1; place < cover.end - 1;) {
        const int count = std::min(cover.end - 1 - place, most);
        const Pixel* const pixels = pixelsAt(place, count);
        std::uint64_t evenSum = 0;
        std::uint64_t oddSum = 0;
        for (int i = 0; i < count; ++i) {
            evenSum += evenBytes(pixels[i]);
            oddSum += oddBytes(pixels[i]);
        }
        even += evenSum * cover.inner;
        odd += oddSum * cover.inner;
        place += count;
    }
    if (cover.end - cover.begin > 1) {
        add(*pixelsAt(cover.end - 1, 1), cover.last);
    }
    return {static_cast<std::uint32_t>(even), static_cast<std::uint32_t>(odd), static_cast<std::uint32_t>(even >> 32),
            static_cast<std::uint32_t>(odd >> 32)};
}

const std::vector<AverageColumns::Sums>& AverageColumns::sumsOf(int y, int left, int right) {
    SumRow& row = rows_[static_cast<std::size_t>(y & 1)];
    if (row.y != y || row.left != left || row.right != right) {
        const auto count = static_cast<std::size_t>(right - left);
        const Cover* const columns = columns_.data() + (left - left_);
        const Pixel* const direct = source_.isDirect() ? source_.at(0, y, source_.width()) : nullptr;
        row.y = y;
        row.left = left;
        row.right = right;
        row.sums.resize(count);
        // In the order of the source's columns.
        for (std::size_t i = 0; i < count; ++i) {
            const std::size_t place = x_.isMirrored() ? count - 1 - i : i;
            row.sums[place] = sumOf(columns[place], y, direct);
        }
    }
    return row.sums;
}

void AverageColumns::row(int y, int left, int right, Pixel* pixels) {
    const Cover rows = coverOf(y_, y, source_.height());
    constexpr std::uint64_t most = 0x7FFFFFFF / 255;
    const bool isSmall = commonTotal_ != 0 && commonTotal_ <= most / rows.total();
    isSmall ? smallRow(rows, left, right, pixels) : anyRow(rows, left, right, pixels);
}

void AverageColumns::smallRow(const Cover& rows, int left, int right, Pixel* pixels) {
    const std::size_t count = 4 * static_cast<std::size_t>(right - left);
    smallTotals_.assign(count, 0);
    for (int row = rows.begin; row < rows.end; ++row) {
        addWeighted(rows.weight(row), smallTotals_.data(), sumsOf(row, left, right).data()->data(), count);
    }
    toMeans(static_cast<std::uint32_t>(commonTotal_ * rows.total()), reinterpret_cast<std::uint8_t*>(pixels), smallTotals_.data(),
            count);
}

void AverageColumns::anyRow(const Cover& rows, int left, int right, Pixel* pixels) {
    const auto count = static_cast<std::size_t>(right - left);
    totals_.assign(count, {});
    for (int row = rows.begin; row < rows.end; ++row) {
        const std::vector<Sums>& sums = sumsOf(row, left, right);
        const std::uint64_t weight = rows.weight(row);
        for (std::size_t i = 0; i < count; ++i) {
            for (std::size_t channel = 0; channel < 4; ++channel) {
                totals_[i][channel] += sums[i][channel] * weight;
            }
        }
    }
    for (std::size_t i = 0; i < count; ++i) {
        const auto whole = static_cast<double>(columns_[static_cast<std::size_t>(left - left_) + i].total() * rows.total());
        Pixel pixel = 0;
        for (std::size_t channel = 0; channel < 4; ++channel) {
            pixel |= static_cast<Pixel>(static_cast<double>(totals_[i][channel]) / whole + 0.5) << (8 * channel);
        }
        pixels[i] = pixel;
    }
}

} // namespace mox::host
