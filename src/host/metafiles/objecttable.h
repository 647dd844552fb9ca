// The objects that a metafile has made.
#pragma once

#include "host/graphics/devicecontext.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

namespace mox::host {

/// Places for objects; a metafile says beforehand how many it needs.
class ObjectTable {
public:
    /// A thing that takes a place but is not drawn with, such as a palette.
    struct Other {};
    using Object = std::variant<std::monostate, std::shared_ptr<const Pen>, std::shared_ptr<const Brush>,
                                std::shared_ptr<const Font>, std::shared_ptr<const Region>, Other>;

    explicit ObjectTable(std::size_t places) : objects_(places) {}

    /// False if there is no such place.
    bool set(std::size_t place, Object object);
    /// Into the first free place; false if there is none.
    bool add(Object object);
    bool remove(std::size_t place) { return set(place, {}); }
    /// Null for a place of another object.
    template <class Thing> std::shared_ptr<const Thing> get(std::size_t place) const {
        const auto* const found = place < objects_.size() ? std::get_if<std::shared_ptr<const Thing>>(&objects_[place]) : nullptr;
        return found == nullptr ? nullptr : *found;
    }
    /// Into the state of a context; false for an empty place.
    bool select(std::size_t place, DeviceState& state) const;

private:
    std::vector<Object> objects_;
};

} // namespace mox::host
