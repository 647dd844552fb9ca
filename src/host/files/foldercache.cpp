#include "host/files/foldercache.h"

#include <sys/stat.h>

#include <algorithm>
#include <cerrno>

namespace mox::host {

std::shared_ptr<const FolderListing> FolderCache::listing(const std::string& folder) {
    if (std::shared_ptr<const FolderListing> kept = find(folder)) {
        struct stat facts {};
        if (stat(folder.c_str(), &facts) == 0 && FolderStamp::of(facts) == kept->stamp()) {
            return kept;
        }
    }
    // Before the reading: what comes after it is not in the listing.
    const std::int64_t now =
        std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch()).count();
    std::shared_ptr<const FolderListing> listing = FolderListing::read(folder);
    if (listing && listing->isStamped() &&
        std::max(listing->stamp().changed, listing->stamp().namesChanged) <= now - settling_.count()) {
        keep(folder, listing);
    }
    return listing;
}

std::shared_ptr<const FolderListing> FolderCache::find(const std::string& folder) {
    const std::lock_guard lock(guard_);
    const auto found = std::ranges::find(kept_, folder, &Kept::folder);
    return found == kept_.end() ? nullptr : found->listing;
}

void FolderCache::keep(const std::string& folder, const std::shared_ptr<const FolderListing>& listing) {
    constexpr std::size_t largest = 20'000; // names; beyond that the memory is worth more
    const std::lock_guard lock(guard_);
    const auto found = std::ranges::find(kept_, folder, &Kept::folder);
    Kept& place = found == kept_.end() ? kept_[next_++ % kept_.size()] : *found;
    place = listing->size() <= largest ? Kept{folder, listing} : Kept{};
}

} // namespace mox::host
