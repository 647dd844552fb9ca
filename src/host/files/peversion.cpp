#include "host/files/peversion.h"

#include "host/files/filedescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace mox::host {

namespace {

// A level of the tree of resources: kinds, names, languages. All lie within the section from its begin on.
constexpr std::uint32_t versionKind = 16;
constexpr std::uint32_t folderBit = 0x8000'0000;
// A version block counts its own size in 16 bits; what follows it does not matter.
constexpr std::uint32_t largestResource = 0x1'0000;

template <std::size_t size> std::uint32_t number(const unsigned char* bytes) noexcept {
    std::uint32_t value = 0;
    for (std::size_t i = size; i-- > 0;) {
        value = value << 8 | bytes[i];
    }
    return value;
}
constexpr auto word = number<2>;
constexpr auto longWord = number<4>;

/// Where a place of the loaded program lies in the file.
struct Section {
    std::uint32_t address;
    std::uint32_t size;
    std::uint32_t offset;
};

class ProgramFile {
public:
    explicit ProgramFile(const std::string& path) : file_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK)) {
        struct stat facts {};
        isFile_ = file_ && fstat(file_.number(), &facts) == 0 && S_ISREG(facts.st_mode);
    }

    std::string versionResource() {
        const std::optional<std::uint32_t> root = isFile_ ? readHeaders() : std::nullopt;
        const std::optional<std::uint32_t> kind = root ? entryOf(*root, 0, versionKind) : std::nullopt;
        const std::optional<std::uint32_t> name = kind ? folderIn(*root, *kind) : std::nullopt;
        const std::optional<std::uint32_t> language = name ? folderIn(*root, *name) : std::nullopt;
        return language && (*language & folderBit) == 0 ? dataOf(*root, *language) : std::string();
    }

private:
    bool read(std::uint64_t offset, std::span<unsigned char> bytes) const {
        return pread(file_.number(), bytes.data(), bytes.size(), static_cast<off_t>(offset)) ==
               static_cast<ssize_t>(bytes.size());
    }

    /// Reads the headers and the sections. Gives the address of the resources.
    std::optional<std::uint32_t> readHeaders() {
        constexpr std::size_t newHeaderAt = 60;
        std::array<unsigned char, 64> oldHeader;
        std::array<unsigned char, 24> header;
        if (!read(0, oldHeader) || oldHeader[0] != 'M' || oldHeader[1] != 'Z') {
            return std::nullopt;
        }
        const std::uint32_t start = longWord(&oldHeader[newHeaderAt]);
        if (!read(start, header) || longWord(header.data()) != 0x4550) {
            return std::nullopt;
        }
        const std::uint64_t optional = std::uint64_t{start} + header.size();
        const std::uint32_t optionalSize = word(&header[20]);
        const std::optional<std::uint32_t> resources = resourcesIn(optional, optionalSize);
        return resources && readSections(optional + optionalSize, word(&header[6])) ? resources : std::nullopt;
    }

    /// The address of the resources by the header that only programs have.
    std::optional<std::uint32_t> resourcesIn(std::uint64_t offset, std::uint32_t size) const {
        constexpr std::uint32_t resourceFolder = 2;
        constexpr std::uint32_t folderSize = 8;
        std::array<unsigned char, 2> magic;
        std::array<unsigned char, 4> count;
        std::array<unsigned char, 4> address;
        if (!read(offset, magic)) {
            return std::nullopt;
        }
        const std::uint32_t form = word(magic.data());
        const std::uint32_t countAt = form == 0x10B ? 92 : form == 0x20B ? 108 : 0;
        const std::uint32_t addressAt = countAt + 4 + resourceFolder * folderSize;
        if (countAt == 0 || addressAt + folderSize > size || !read(offset + countAt, count) ||
            longWord(count.data()) <= resourceFolder || !read(offset + addressAt, address) || longWord(address.data()) == 0) {
            return std::nullopt;
        }
        return longWord(address.data());
    }

    bool readSections(std::uint64_t offset, std::uint32_t count) {
        constexpr std::uint32_t most = 96; // more are not loaded
        constexpr std::size_t headerSize = 40;
        std::vector<unsigned char> headers(std::size_t{count} * headerSize);
        if (count > most || !read(offset, headers)) {
            return false;
        }
        for (std::size_t i = 0; i < headers.size(); i += headerSize) {
            sections_.push_back({longWord(&headers[i + 12]), longWord(&headers[i + 16]), longWord(&headers[i + 20])});
        }
        return true;
    }

    /// Reads what lies at an address.
    bool readAt(std::uint64_t address, std::span<unsigned char> bytes) const {
        for (const Section& section : sections_) {
            if (address >= section.address && address + bytes.size() <= std::uint64_t{section.address} + section.size) {
                return read(section.offset + (address - section.address), bytes);
            }
        }
        return false;
    }

    /// What the entry of a folder leads to; any entry if no number is asked for.
    std::optional<std::uint32_t> entryOf(std::uint32_t root, std::uint32_t folder, std::optional<std::uint32_t> wanted) const {
        constexpr std::size_t entrySize = 8;
        constexpr std::uint32_t most = 4096;
        std::array<unsigned char, 16> header;
        const std::uint64_t address = std::uint64_t{root} + folder;
        if (!readAt(address, header)) {
            return std::nullopt;
        }
        const std::uint32_t count = wanted ? word(&header[12]) + word(&header[14]) : 1;
        std::vector<unsigned char> entries(std::size_t{count} * entrySize);
        if (count > most || word(&header[12]) + word(&header[14]) == 0 || !readAt(address + header.size(), entries)) {
            return std::nullopt;
        }
        for (std::size_t i = 0; i < entries.size(); i += entrySize) {
            if (!wanted || longWord(&entries[i]) == *wanted) {
                return longWord(&entries[i + 4]);
            }
        }
        return std::nullopt;
    }

    /// What the first entry of the folder leads to that an entry leads to.
    std::optional<std::uint32_t> folderIn(std::uint32_t root, std::uint32_t entry) const {
        return (entry & folderBit) != 0 ? entryOf(root, entry & ~folderBit, std::nullopt) : std::nullopt;
    }

    std::string dataOf(std::uint32_t root, std::uint32_t entry) const {
        std::array<unsigned char, 16> header;
        if (!readAt(std::uint64_t{root} + entry, header)) {
            return {};
        }
        std::string data(std::min(longWord(&header[4]), largestResource), '\0');
        const std::span bytes(reinterpret_cast<unsigned char*>(data.data()), data.size());
        return readAt(longWord(header.data()), bytes) ? data : std::string();
    }

    FileDescriptor file_;
    bool isFile_ = false;
    std::vector<Section> sections_;
};

} // namespace

std::string readVersionResource(const std::string& path) {
    return ProgramFile(path).versionResource();
}

} // namespace mox::host
