// The folders that were read last.
#pragma once

#include "host/files/folderlisting.h"

#include <array>
#include <chrono>
#include <memory>
#include <mutex>
#include <string>

namespace mox::host {

/// Keeps the listings of a few folders, for walks that look into a folder several times: for a name, then for all. A listing is
/// used again only if the folder has the same stamp, if the disk is one that stamps folders, and if the last change was so long
/// before the reading that a change after it must show, however coarse the clock of the disk is. Any thread may use it.
class MOX_API FolderCache {
public:
    /// `settling`: the time after a change within which a folder counts as still changing.
    explicit FolderCache(std::chrono::nanoseconds settling = std::chrono::seconds(2)) : settling_(settling) {}

    /// The names that a folder has now. Null, with the reason in `errno`, if it cannot be read.
    std::shared_ptr<const FolderListing> listing(const std::string& folder);

private:
    struct Kept {
        std::string folder;
        std::shared_ptr<const FolderListing> listing;
    };

    std::shared_ptr<const FolderListing> find(const std::string& folder);
    void keep(const std::string& folder, const std::shared_ptr<const FolderListing>& listing);

    const std::chrono::nanoseconds settling_;
    std::mutex guard_;
    std::array<Kept, 4> kept_;
    std::size_t next_ = 0;
};

} // namespace mox::host
