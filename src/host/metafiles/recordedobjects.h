// The objects that a recording has made.
#pragma once

#include "host/graphics/graphics.h"
#include "host/metafiles/recordwriter.h"
#include "host/text/codepage.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <vector>

namespace mox::host {

/// Makes each object once, and gives back its place when many others were used since.
class RecordedObjects {
public:
    using Output = std::function<void(std::span<const std::byte> record)>;

    RecordedObjects(const Graphics& graphics, const CodePage& codePage, Output output)
        : graphics_(graphics), codePage_(codePage), output_(std::move(output)) {}

    // Record that an object is drawn with from now on.
    void select(const Selected<Pen>& selected);
    void select(const Selected<Brush>& selected);
    void select(const Selected<Font>& selected);
    /// Records the end of all; nothing is chosen after that.
    void removeAll();
    /// Places in the table, with the first, which is never used.
    std::uint16_t places() const noexcept { return static_cast<std::uint16_t>(entries_.size() + 1); }

private:
    struct Entry {
        /// Keeps it, so that its address stays its own; empty for a place that is free.
        std::shared_ptr<const void> object;
        std::uint64_t lastUse = 0;
    };

    /// True if the handle is that of a stock object, and it is chosen.
    template <class Object> bool selectStock(const Selected<Object>& selected);
    /// Chooses an object that `make` records for a place if there is none yet.
    enum Kind : std::size_t { pen, brush, font };
    template <class Make> void selectMade(Kind kind, std::shared_ptr<const void> object, Make make);
    std::size_t placeFor(const std::shared_ptr<const void>& object);
    void writePen(std::uint32_t place, const Pen& made);
    void writeBrush(std::uint32_t place, const Brush& made);

    static constexpr std::size_t most = 64;

    const Graphics& graphics_;
    const CodePage& codePage_;
    const Output output_;
    /// Without the first place of the table.
    std::vector<Entry> entries_;
    std::uint64_t uses_ = 0;
    /// The objects that are drawn with, which keep their places.
    std::array<std::shared_ptr<const void>, 3> selected_;
};

} // namespace mox::host
