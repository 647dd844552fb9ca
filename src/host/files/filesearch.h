// A search for files.
#pragma once

#include "automation/objects/export.h"
#include "host/files/foldercache.h"
#include "host/files/foundfiles.h"
#include "host/files/namepattern.h"
#include "host/files/shortnames.h"
#include "host/text/codepage.h"

#include "platform/kernel32.h"

#include <memory>
#include <optional>
#include <string>

namespace mox::host {

/// Goes through the files of a folder whose long or short name matches a pattern: "." and ".." first, which the root of a drive
/// does not have, then in the order of their names in upper case. The names are read once, when the first of them is asked for;
/// the facts of a file are read when somebody looks at them.
class MOX_API FileSearch {
public:
    /// All that matches `pattern` in `folder`. The cache has to outlive the search.
    FileSearch(DiskPath folder, std::string_view pattern, const CodePage& codePage, FolderCache& folders);
    /// One file alone, if it exists. Its facts are read at once.
    FileSearch(const DiskPath& file, const CodePage& codePage);

    /// The next file; false if there is none.
    bool next(platform::WIN32_FIND_DATAA& found);
    /// Where the file that `next` gave last lies on disk.
    DiskPath path() const;

private:
    bool nextDot(platform::WIN32_FIND_DATAA& found);
    bool nextName(platform::WIN32_FIND_DATAA& found);
    bool nextSingle(platform::WIN32_FIND_DATAA& found);
    bool matches(std::size_t file);
    void write(std::size_t file, std::string& written);
    /// The short name of a file in the listing; empty if it is its own.
    const std::string& shortName(std::size_t file);

    /// The file itself if it is one alone.
    const DiskPath folder_;
    const CodePage& codePage_;
    FolderCache* const folders_;
    std::optional<NamePattern> pattern_;
    std::size_t dots_ = 0;
    std::shared_ptr<const FolderListing> listing_;
    std::optional<ShortNames> shortNames_;
    std::shared_ptr<FoundFiles> files_;
    std::size_t position_ = 0;
    std::size_t file_ = 0;
};

} // namespace mox::host
