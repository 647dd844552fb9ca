#include "filesystem/foldersearch.h"

namespace mox::server {

using namespace platform;

FolderSearch::FolderSearch(std::string_view pattern)
    : search_(kernel32().FindFirstFileA(pattern, entry_)), found_(search_ != invalidHandle) {}

FolderSearch::~FolderSearch() {
    if (search_ != invalidHandle) {
        kernel32().FindClose(search_);
    }
}

void FolderSearch::next() {
    found_ = found_ && kernel32().FindNextFileA(search_, entry_);
}

} // namespace mox::server
