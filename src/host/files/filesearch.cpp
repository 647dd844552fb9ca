#include "host/files/filesearch.h"

#include "host/files/names.h"

#include <algorithm>
#include <utility>

namespace mox::host {

FileSearch::FileSearch(DiskPath folder, std::string_view pattern, const CodePage& codePage, FolderCache& folders)
    : folder_(std::move(folder)), codePage_(codePage), folders_(&folders), pattern_(pattern) {}

FileSearch::FileSearch(const DiskPath& file, const CodePage& codePage) : folder_(file), codePage_(codePage), folders_(nullptr) {}

bool FileSearch::next(platform::WIN32_FIND_DATAA& found) {
    return pattern_ ? nextDot(found) || nextName(found) : nextSingle(found);
}

bool FileSearch::nextSingle(platform::WIN32_FIND_DATAA& found) {
    const std::optional<FileFacts> facts = position_++ == 0 ? readFacts(folder_) : std::nullopt;
    if (!facts) {
        return false;
    }
    found.describe({facts->attributes, facts->created, facts->accessed, facts->written, facts->size});
    found.cFileName = writtenName(parentOf(folder_.text), nameOf(folder_.text), codePage_);
    return true;
}

DiskPath FileSearch::path() const {
    return files_ ? files_->path(file_) : folder_;
}

bool FileSearch::nextDot(platform::WIN32_FIND_DATAA& found) {
    constexpr std::size_t dotNames = 2;
    const std::size_t rootLength = std::max<std::size_t>(folder_.rootLength, 1);
    while (dots_ < dotNames && folder_.text.size() != rootLength) {
        ++dots_;
        const std::string_view name = std::string_view("..").substr(0, dots_);
        if (pattern_->matches(name)) {
            files_ = files_ ? files_ : std::make_shared<FoundFiles>(folder_, nullptr);
            file_ = dots_ == 1 ? FoundFiles::folderItself : FoundFiles::parentFolder;
            FoundFiles::describe(files_, file_, found);
            found.cFileName = name;
            return true;
        }
    }
    return false;
}

bool FileSearch::nextName(platform::WIN32_FIND_DATAA& found) {
    // Many a search only wants to know whether there is a folder: it does not pay for the names.
    if (!listing_) {
        listing_ = folders_->listing(folder_.text);
        listing_ = listing_ ? listing_ : std::make_shared<const FolderListing>();
        files_ = std::make_shared<FoundFiles>(folder_, listing_);
    }
    for (; position_ < listing_->size(); ++position_) {
        if (matches(position_)) {
            file_ = position_++;
            FoundFiles::describe(files_, file_, found);
            write(file_, found.cFileName);
            return true;
        }
    }
    return false;
}

bool FileSearch::matches(std::size_t file) {
    if (pattern_->matchesAll()) {
        return true;
    }
    if (listing_->isAscii(file) ? pattern_->matches(listing_->upper(file)) : pattern_->matches(upperCase(listing_->name(file)))) {
        return true;
    }
    const std::string& other = shortName(file);
    return !other.empty() && pattern_->matches(upperCase(other));
}

void FileSearch::write(std::size_t file, std::string& written) {
    const std::string_view name = listing_->name(file);
    if (listing_->isPlain(file)) {
        written = name;
    } else {
        written = canBeWritten(name, codePage_) ? codePage_.fromUtf8(name) : shortName(file);
    }
}

const std::string& FileSearch::shortName(std::size_t file) {
    static const std::string none;
    const std::string name(listing_->name(file));
    if (isShort(name, codePage_)) {
        return none;
    }
    if (!shortNames_) {
        shortNames_.emplace(listing_->names(), codePage_);
    }
    return shortNames_->of(name);
}

} // namespace mox::host
