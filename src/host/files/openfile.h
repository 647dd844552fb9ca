// A file that is open for reading or writing.
#pragma once

#include "host/files/filedescriptor.h"
#include "host/files/filesharing.h"
#include "host/files/folder.h"

#include <cstdint>
#include <memory>
#include <span>

namespace mox::host {

class Files;

/// How a file is to be opened.
struct OpenRequest {
    bool read = false;
    bool write = false;
    /// What other openers may do meanwhile: `FILE_SHARE_` bits.
    std::uint32_t share = 0;
    /// Makes the file if there is none.
    bool create = false;
    /// Fails if there is one.
    bool mustBeNew = false;
    /// Throws away what an existing file has in it, which then must not be hidden or belong to the system.
    bool empty = false;
};

/// An open file and the claim that it has on other openers. Positions and lengths are in bytes.
///
/// What can fail answers 0, or the error number of the system. EBUSY stands for a conflict with another opener, EACCES also for
/// writing to a file with the read-only attribute, EISDIR for a folder.
class OpenFile {
public:
    /// `path`: on disk. Null, and the reason in `error`, if it cannot be opened; then nothing has changed.
    static std::shared_ptr<OpenFile> open(FileSharing& sharing, const DiskPath& path, const OpenRequest& request, int& error);

    OpenFile(FileDescriptor file, FileSharing::Claim claim, bool mayWrite) noexcept;

    bool mayWrite() const noexcept { return mayWrite_; }
    /// ENODEV for what is no plain file.
    int size(std::int64_t& bytes) const;
    /// Reads from a position as many bytes as there are, into the beginning of `bytes`; how many, also before an error, in
    /// `count`.
    int read(std::int64_t position, std::span<char> bytes, std::size_t& count) const;
    /// Writes all bytes, or as many as there is space for.
    int write(std::int64_t position, std::span<const char> bytes) const;
    /// In 100 nanoseconds since 1601-01-01 UTC; 0 leaves a time as it is. All or none are set. A disk that keeps no time of
    /// creation leaves that out.
    int setTimes(std::uint64_t created, std::uint64_t accessed, std::uint64_t written) const;

private:
    FileDescriptor file_;
    FileSharing::Claim claim_;
    bool mayWrite_;
};

} // namespace mox::host
