#include "host/machine/handles.h"

#include <utility>

namespace mox::host {

namespace {

// A handle of 31 bits: the number of its use, its place, two zero bits.
constexpr unsigned placeShift = 2;
constexpr unsigned placeBits = 18;
constexpr unsigned useShift = placeShift + placeBits;
constexpr std::uint32_t uses = std::uint32_t{1} << (31 - useShift);
static_assert(Handles::most == std::size_t{1} << placeBits);

// Places rest before they are used again. With the uses of each place, the number of a closed handle comes back after two million
// others.
constexpr std::size_t resting = 1024;

platform::Handle numberOf(std::size_t place, std::uint32_t use) {
    return static_cast<platform::Handle>(use << useShift | static_cast<std::uint32_t>(place) << placeShift);
}

} // namespace

platform::Handle Handles::insert(std::string_view kind, const std::type_info& type, std::shared_ptr<void> thing) {
    if (!thing) {
        return 0;
    }
    const std::lock_guard lock(guard_);
    std::size_t place = entries_.size();
    if (free_.size() > resting || (place == most && !free_.empty())) {
        place = free_.front();
        free_.pop_front();
    } else if (place < most) {
        entries_.emplace_back();
    } else {
        return 0;
    }
    Entry& entry = entries_[place];
    entry.kind = kind;
    entry.type = &type;
    entry.thing = std::move(thing);
    return numberOf(place, entry.use);
}

std::size_t Handles::placeOf(platform::Handle handle, const std::type_info& type) const {
    const auto bits = static_cast<std::uint32_t>(handle);
    const std::size_t place = bits >> placeShift & (most - 1);
    const bool isOpen = handle > 0 && place < entries_.size() && entries_[place].thing && *entries_[place].type == type &&
                        numberOf(place, entries_[place].use) == handle;
    return isOpen ? place : most;
}

std::shared_ptr<void> Handles::find(platform::Handle handle, const std::type_info& type) const {
    const std::lock_guard lock(guard_);
    const std::size_t place = placeOf(handle, type);
    return place == most ? nullptr : entries_[place].thing;
}

bool Handles::erase(platform::Handle handle, const std::type_info& type) {
    std::shared_ptr<void> thing; // goes after the lock: its end may take long, or close handles itself
    const std::lock_guard lock(guard_);
    const std::size_t place = placeOf(handle, type);
    if (place == most) {
        return false;
    }
    Entry& entry = entries_[place];
    thing = std::move(entry.thing);
    entry.use = entry.use + 1 < uses ? entry.use + 1 : 1;
    free_.push_back(place);
    return true;
}

std::map<std::string, std::size_t> Handles::count() const {
    const std::lock_guard lock(guard_);
    std::map<std::string, std::size_t> result;
    for (const Entry& entry : entries_) {
        if (entry.thing && !entry.kind.empty()) {
            ++result[std::string(entry.kind)];
        }
    }
    return result;
}

} // namespace mox::host
