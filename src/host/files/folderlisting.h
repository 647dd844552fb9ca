// The names in a folder.
#pragma once

#include "automation/objects/export.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct stat;

namespace mox::host {

/// When a folder was changed last, and which one it is.
struct FolderStamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::int64_t changed = 0;
    std::int64_t namesChanged = 0;

    static FolderStamp of(const struct stat& facts) noexcept;
    bool operator==(const FolderStamp&) const = default;
};

/// All names in a folder but "." and "..", read at one time, in the order of their upper-case characters. What the disk tells of
/// the files along with their names is here too; it is not asked for more.
class MOX_API FolderListing {
public:
    enum class Kind : std::uint8_t { file, folder, link, other, unknown };

    /// Null, with the reason in `errno`, if the folder cannot be read.
    static std::shared_ptr<const FolderListing> read(const std::string& folder);

    std::size_t size() const noexcept { return entries_.size(); }
    std::string_view name(std::size_t i) const noexcept { return {&names_[entries_[i].begin], entries_[i].length}; }
    Kind kind(std::size_t i) const noexcept { return entries_[i].kind; }
    /// True if a name is ASCII alone; then `upper` is its upper-case form.
    bool isAscii(std::size_t i) const noexcept { return entries_[i].isAscii; }
    /// True if a name is ASCII and has no reserved character.
    bool isPlain(std::size_t i) const noexcept { return entries_[i].isPlain; }
    std::string_view upper(std::size_t i) const noexcept { return {&keys_[entries_[i].keyBegin], entries_[i].keyLength}; }
    std::vector<std::string> names() const;

    /// The name on disk that a name without regard to case means: the very same one, else the first in the order of bytes; empty
    /// if there is none. Valid as long as the listing.
    std::string_view find(std::string_view name) const noexcept;

    const FolderStamp& stamp() const noexcept { return stamp_; }
    /// The owner of the folder.
    std::uint32_t owner() const noexcept { return owner_; }
    /// True if the disk is known to stamp a folder whenever a name in it changes.
    bool isStamped() const noexcept { return isStamped_; }

private:
    struct Entry {
        std::uint32_t begin;
        std::uint32_t keyBegin;
        std::uint32_t keyLength;
        std::uint16_t length;
        Kind kind;
        bool isAscii;
        bool isPlain;
    };

    bool readNames(int folder);
    void add(std::string_view name, unsigned char type);
    void sort();

    std::vector<Entry> entries_;
    std::string names_;
    std::string keys_;
    FolderStamp stamp_;
    std::uint32_t owner_ = 0;
    bool isStamped_ = false;
};

} // namespace mox::host
