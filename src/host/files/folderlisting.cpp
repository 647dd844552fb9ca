#include "host/files/folderlisting.h"

#include "host/files/filedescriptor.h"
#include "host/files/names.h"

#include <dirent.h>
#include <fcntl.h>
#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/vfs.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace mox::host {

namespace {

// Of file systems whose numbers the system's header does not have.
constexpr std::int64_t xfsMagic = 0x58465342;

constexpr std::array stampingFileSystems{std::int64_t{EXT4_SUPER_MAGIC}, std::int64_t{BTRFS_SUPER_MAGIC}, xfsMagic,
                                         std::int64_t{TMPFS_MAGIC}, std::int64_t{F2FS_SUPER_MAGIC}};

/// What a byte of a name is: nothing special, reserved, or no ASCII.
enum ByteKind : std::uint8_t { plainByte = 0, reservedByte = 1, foreignByte = 2 };

struct ByteTable {
    std::array<char, 256> upper{};
    std::array<std::uint8_t, 256> kind{};

    constexpr ByteTable() {
        for (unsigned i = 0; i < upper.size(); ++i) {
            const char c = static_cast<char>(i);
            upper[i] = c >= 'a' && c <= 'z' ? static_cast<char>(c - 0x20) : c;
            kind[i] = i >= 0x80 ? foreignByte : isReserved(c) ? reservedByte : plainByte;
        }
    }
};
constexpr ByteTable byteTable;

/// Characters as bytes that have the same order as the characters.
void appendInOrder(std::string& bytes, std::u32string_view text) {
    for (const char32_t c : text) {
        if (c < 0x80) {
            bytes += static_cast<char>(c);
        } else if (c < 0x800) {
            bytes += {static_cast<char>(0xC0 | c >> 6), static_cast<char>(0x80 | (c & 0x3F))};
        } else if (c < 0x10000) {
            bytes += {static_cast<char>(0xE0 | c >> 12), static_cast<char>(0x80 | (c >> 6 & 0x3F)),
                      static_cast<char>(0x80 | (c & 0x3F))};
        } else {
            bytes += {static_cast<char>(0xF0 | c >> 18), static_cast<char>(0x80 | (c >> 12 & 0x3F)),
                      static_cast<char>(0x80 | (c >> 6 & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))};
        }
    }
}

FolderListing::Kind kindOf(unsigned char type) noexcept {
    switch (type) {
    case DT_REG:
        return FolderListing::Kind::file;
    case DT_DIR:
        return FolderListing::Kind::folder;
    case DT_LNK:
        return FolderListing::Kind::link;
    case DT_UNKNOWN:
        return FolderListing::Kind::unknown;
    default:
        return FolderListing::Kind::other;
    }
}

bool equalAsciiWithoutCase(std::string_view a, std::string_view b) noexcept {
    return std::ranges::equal(
        a, b, {}, [](char c) { return byteTable.upper[static_cast<unsigned char>(c)]; },
        [](char c) { return byteTable.upper[static_cast<unsigned char>(c)]; });
}

std::size_t commonLength(std::string_view a, std::string_view b) noexcept {
    return static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
}

/// The next eight bytes of a key as a number that has their order.
std::uint64_t headOf(std::string_view key) noexcept {
    std::array<unsigned char, 8> bytes{};
    std::memcpy(bytes.data(), key.data(), std::min(key.size(), bytes.size()));
    std::uint64_t head = 0;
    for (const unsigned char byte : bytes) {
        head = head << 8 | byte;
    }
    return head;
}

} // namespace

FolderStamp FolderStamp::of(const struct stat& facts) noexcept {
    constexpr std::int64_t second = 1'000'000'000;
    return {facts.st_dev, facts.st_ino, facts.st_ctim.tv_sec * second + facts.st_ctim.tv_nsec,
            facts.st_mtim.tv_sec * second + facts.st_mtim.tv_nsec};
}

std::shared_ptr<const FolderListing> FolderListing::read(const std::string& folder) {
    const FileDescriptor opened(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    struct stat facts {};
    struct statfs disk {};
    if (!opened || fstat(opened.number(), &facts) != 0) {
        return nullptr;
    }
    const auto listing = std::make_shared<FolderListing>();
    listing->stamp_ = FolderStamp::of(facts);
    listing->owner_ = facts.st_uid;
    listing->isStamped_ =
        fstatfs(opened.number(), &disk) == 0 && std::ranges::find(stampingFileSystems, disk.f_type) != stampingFileSystems.end();
    if (!listing->readNames(opened.number())) {
        return nullptr;
    }
    listing->sort();
    return listing;
}

bool FolderListing::readNames(int folder) {
    // As the system lays it out: number, position, length, type, name.
    constexpr std::size_t lengthAt = 16;
    constexpr std::size_t typeAt = 18;
    constexpr std::size_t nameAt = 19;
    alignas(8) std::array<char, 1 << 15> block;
    for (;;) {
        const long count = syscall(SYS_getdents64, folder, block.data(), block.size());
        if (count <= 0) {
            return count == 0;
        }
        for (std::size_t at = 0; at < static_cast<std::size_t>(count);) {
            std::uint16_t length = 0;
            std::memcpy(&length, &block[at + lengthAt], sizeof length);
            const std::string_view name(&block[at + nameAt]);
            if (name != "." && name != "..") {
                add(name, static_cast<unsigned char>(block[at + typeAt]));
            }
            at += length;
        }
    }
}

void FolderListing::add(std::string_view name, unsigned char type) {
    std::uint8_t kinds = plainByte;
    const std::size_t begin = names_.size();
    const std::size_t keyBegin = keys_.size();
    names_ += name;
    keys_.resize(keyBegin + name.size());
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto byte = static_cast<unsigned char>(name[i]);
        keys_[keyBegin + i] = byteTable.upper[byte];
        kinds |= byteTable.kind[byte];
    }
    if ((kinds & foreignByte) != 0) {
        keys_.resize(keyBegin);
        appendInOrder(keys_, upperCase(name));
    }
    entries_.push_back({static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(keyBegin),
                        static_cast<std::uint32_t>(keys_.size() - keyBegin), static_cast<std::uint16_t>(name.size()),
                        kindOf(type), (kinds & foreignByte) == 0, kinds == plainByte});
}

void FolderListing::sort() {
    if (entries_.size() < 2) {
        return;
    }
    std::size_t common = upper(0).size();
    for (std::size_t i = 1; i < entries_.size(); ++i) {
        common = std::min(common, commonLength(upper(0).substr(0, common), upper(i)));
    }
    // Names in a folder often begin alike; what follows in a number decides nearly all comparisons.
    struct Place {
        std::uint64_t head;
        std::uint32_t entry;
    };
    std::vector<Place> places;
    places.reserve(entries_.size());
    for (std::uint32_t i = 0; i < entries_.size(); ++i) {
        places.push_back({headOf(upper(i).substr(common)), i});
    }
    std::ranges::sort(places, [&](const Place& a, const Place& b) {
        if (a.head != b.head) {
            return a.head < b.head;
        }
        const int order = upper(a.entry).compare(upper(b.entry));
        return order != 0 ? order < 0 : name(a.entry) < name(b.entry);
    });
    std::vector<Entry> sorted;
    sorted.reserve(entries_.size());
    for (const Place& place : places) {
        sorted.push_back(entries_[place.entry]);
    }
    entries_ = std::move(sorted);
}

std::vector<std::string> FolderListing::names() const {
    std::vector<std::string> names;
    names.reserve(size());
    for (std::size_t i = 0; i < size(); ++i) {
        names.emplace_back(name(i));
    }
    return names;
}

std::string_view FolderListing::find(std::string_view sought) const noexcept {
    const bool isSoughtAscii = std::ranges::none_of(sought, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
    std::string_view found;
    for (std::size_t i = 0; i < size(); ++i) {
        const std::string_view other = name(i);
        if (isSoughtAscii && isAscii(i) ? other.size() != sought.size() || !equalAsciiWithoutCase(other, sought)
                                        : !equalWithoutCase(other, sought)) {
            continue;
        }
        if (other == sought) {
            return other;
        }
        if (found.empty() || other < found) {
            found = other;
        }
    }
    return found;
}

} // namespace mox::host
