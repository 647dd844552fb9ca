// Handles of the machine: numbers for things that it holds.
#pragma once

#include "automation/objects/export.h"
#include "platform/types.h"

#include <cstddef>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

namespace mox::host {

/// All open handles of a machine, of every kind, in one table. A handle's low bits are its place, its high bits count the uses of
/// the place, so that a stale handle is refused. Handles are positive, divisible by 4, and never 0 or -1.
class MOX_API Handles {
public:
    /// A handle for `thing`, counted under `kind` ("find", "process", "bitmap", ...), a string that stays; an empty one
    /// is for what belongs to the machine itself, which is not counted. 0 if there is no thing, or if the table is full: `most`
    /// handles are open.
    template <class Thing> platform::Handle open(std::string_view kind, std::shared_ptr<Thing> thing) {
        return insert(kind, typeid(Thing), std::move(thing));
    }
    /// What the handle stands for, if it is open and of this type; null if not.
    template <class Thing> std::shared_ptr<Thing> get(platform::Handle handle) const {
        return std::static_pointer_cast<Thing>(find(handle, typeid(Thing)));
    }
    /// Closes a handle, if it is open and of this type.
    template <class Thing> bool close(platform::Handle handle) { return erase(handle, typeid(Thing)); }

    /// The open handles by kind, kinds without any left out.
    std::map<std::string, std::size_t> count() const;

    static constexpr std::size_t most = std::size_t{1} << 18;

private:
    struct Entry {
        std::uint32_t use = 1;
        std::string_view kind;
        const std::type_info* type = nullptr;
        std::shared_ptr<void> thing;
    };

    platform::Handle insert(std::string_view kind, const std::type_info& type, std::shared_ptr<void> thing);
    std::shared_ptr<void> find(platform::Handle handle, const std::type_info& type) const;
    bool erase(platform::Handle handle, const std::type_info& type);
    /// The place that an open handle of this type stands for; `most` if it is none.
    std::size_t placeOf(platform::Handle handle, const std::type_info& type) const;

    mutable std::mutex guard_;
    std::vector<Entry> entries_;
    /// Places that were used before, the one that rests longest in front.
    std::deque<std::size_t> free_;
};

} // namespace mox::host
