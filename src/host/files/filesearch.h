// A search for files.
#pragma once

#include "automation/objects/export.h"
#include "host/files/filefacts.h"
#include "host/files/folder.h"
#include "host/files/namepattern.h"
#include "host/text/codepage.h"

#include "platform/kernel32.h"

#include <optional>
#include <string>
#include <vector>

namespace mox::host {

/// Goes through the files of a folder whose long or short name matches a pattern: "." and ".." first, which the root of a drive
/// does not have, then in the order of their names in upper case. The names are read once; the facts of a file are read when its
/// turn comes, and a file that is gone by then is passed over.
class MOX_API FileSearch {
public:
    /// All that matches `pattern` in `folder`.
    FileSearch(DiskPath folder, std::string_view pattern, const CodePage& codePage);
    /// One file alone, if it exists.
    FileSearch(const DiskPath& file, const CodePage& codePage);

    /// The next file; false if there is none.
    bool next(platform::WIN32_FIND_DATAA& found);
    /// Where the file that `next` gave last lies on disk.
    const DiskPath& path() const noexcept { return path_; }

private:
    struct Entry {
        std::string name;
        /// As paths have it.
        std::string written;
        std::u32string upper;
    };

    bool nextDot(platform::WIN32_FIND_DATAA& found);
    void readNames();
    bool describe(DiskPath path, std::string written, platform::WIN32_FIND_DATAA& found);

    DiskPath folder_;
    const CodePage& codePage_;
    std::optional<NamePattern> pattern_;
    std::size_t dots_ = 0;
    bool namesRead_ = false;
    std::vector<Entry> entries_;
    std::size_t position_ = 0;
    DiskPath path_;
};

} // namespace mox::host
