// A search for files in a folder.
#pragma once

#include "platform/kernel32.h"

#include <string_view>

namespace mox::server {

/// What matches the last part of a pattern, one entry after the other. The search is closed at its end.
class FolderSearch {
public:
    explicit FolderSearch(std::string_view pattern);
    ~FolderSearch();
    FolderSearch(const FolderSearch&) = delete;
    FolderSearch& operator=(const FolderSearch&) = delete;

    /// False if there is no entry (left).
    explicit operator bool() const noexcept { return found_; }
    void next();
    const platform::WIN32_FIND_DATAA& entry() const noexcept { return entry_; }

    bool isFolder() const noexcept { return has(platform::FILE_ATTRIBUTE_DIRECTORY); }
    bool isHidden() const noexcept { return has(platform::FILE_ATTRIBUTE_HIDDEN); }
    bool isSystem() const noexcept { return has(platform::FILE_ATTRIBUTE_SYSTEM); }

private:
    bool has(std::uint32_t attribute) const noexcept { return (entry_.dwFileAttributes & attribute) != 0; }

    platform::WIN32_FIND_DATAA entry_;
    platform::Handle search_;
    bool found_;
};

} // namespace mox::server
