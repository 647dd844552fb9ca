// Who has which file open, and what they let others do with it meanwhile.
#pragma once

#include <compare>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

struct stat;

namespace mox::host {

/// A file on disk, whatever its names are.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t number = 0;

    static FileIdentity of(const struct stat& facts) noexcept;
    auto operator<=>(const FileIdentity&) const = default;
};

/// The openers of files within one machine. Each has access and shares access, as `FILE_SHARE_` bits both; two may have a file
/// open together if neither has access that the other does not share. Programs outside do not count. Any thread may use it.
class FileSharing : public std::enable_shared_from_this<FileSharing> {
    struct Opener {
        std::uint32_t access;
        std::uint32_t share;
    };
    using Openers = std::vector<std::shared_ptr<const Opener>>;

public:
    /// Stands for one opener as long as it lives.
    class Claim {
    public:
        Claim() = default;
        Claim(Claim&& other) noexcept = default;
        Claim& operator=(Claim&& other) noexcept;
        ~Claim();

        explicit operator bool() const noexcept { return opener_ != nullptr; }

    private:
        friend class FileSharing;

        void release() noexcept;

        std::shared_ptr<FileSharing> table_;
        FileIdentity file_;
        std::shared_ptr<const Opener> opener_;
    };

    /// An empty claim if the present openers do not let it be.
    Claim claim(const FileIdentity& file, std::uint32_t access, std::uint32_t share);
    /// True if one could have a claim now.
    bool permits(const FileIdentity& file, std::uint32_t access, std::uint32_t share) const;

private:
    bool allows(const FileIdentity& file, const Opener& opener) const;

    mutable std::mutex guard_;
    std::map<FileIdentity, Openers> openers_;
};

} // namespace mox::host
