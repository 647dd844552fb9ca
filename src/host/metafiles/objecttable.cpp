#include "host/metafiles/objecttable.h"

#include <algorithm>

namespace mox::host {

bool ObjectTable::set(std::size_t place, Object object) {
    if (place >= objects_.size()) {
        return false;
    }
    objects_[place] = std::move(object);
    return true;
}

bool ObjectTable::add(Object object) {
    const auto free = std::ranges::find_if(objects_, [](const Object& here) { return here.index() == 0; });
    if (free == objects_.end()) {
        return false;
    }
    *free = std::move(object);
    return true;
}

bool ObjectTable::select(std::size_t place, DeviceState& state) const {
    if (auto pen = get<Pen>(place)) {
        state.pen = {0, std::move(pen)};
    } else if (auto brush = get<Brush>(place)) {
        state.brush = {0, std::move(brush)};
    } else if (auto font = get<Font>(place)) {
        state.font = {0, std::move(font)};
    } else {
        return place < objects_.size() && objects_[place].index() != 0;
    }
    return true;
}

} // namespace mox::host
