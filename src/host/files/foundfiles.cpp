#include "host/files/foundfiles.h"

#include "host/files/foldermark.h"
#include "host/files/storedfacts.h"

#include "platform/kernel32.h"

#include <unistd.h>

#include <algorithm>

namespace mox::host {

using namespace platform;
using Kind = FolderListing::Kind;

namespace {

/// What is in the extended attribute alone, but for a leading dot.
constexpr std::uint32_t onlyStored = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

} // namespace

FoundFiles::FoundFiles(DiskPath folder, std::shared_ptr<const FolderListing> listing)
    : folder_(std::move(folder)), listing_(std::move(listing)) {}

DiskPath FoundFiles::path(std::size_t file) const {
    const std::size_t rootLength = std::max<std::size_t>(folder_.rootLength, 1);
    switch (file) {
    case folderItself:
        return folder_;
    case parentFolder:
        return {folder_.text.substr(0, std::max(folder_.text.rfind('/'), rootLength)), folder_.rootLength};
    default:
        return {joined(folder_.text, listing_->name(file)), folder_.rootLength};
    }
}

Kind FoundFiles::kind(std::size_t file) const noexcept {
    return file < parentFolder ? listing_->kind(file) : Kind::folder;
}

void FoundFiles::describe(const std::shared_ptr<FoundFiles>& files, std::size_t file, WIN32_FIND_DATAA& found) {
    constexpr std::uint32_t fromKind = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    const Kind kind = files->kind(file);
    std::uint32_t attributes = 0;
    std::uint32_t known = 0;
    if (kind == Kind::file || kind == Kind::folder) {
        attributes = kind == Kind::folder ? FILE_ATTRIBUTE_DIRECTORY : 0;
        known = fromKind;
        if (kind == Kind::file && files->attributes_ == Attributes::ofNone) {
            known |= onlyStored;
        }
        if (file < parentFolder && files->listing_->name(file).front() == '.') {
            attributes |= FILE_ATTRIBUTE_HIDDEN;
            known |= FILE_ATTRIBUTE_HIDDEN;
        }
    }
    found.describe(attributes, known, files, file);
}

std::uint32_t FoundFiles::attributes(std::size_t file, std::uint32_t mask) {
    const Kind kind = this->kind(file);
    if ((mask & ~onlyStored) != 0 || (kind != Kind::file && kind != Kind::folder)) {
        return facts(file).attributes & mask;
    }
    return storedAttributes(file) & mask;
}

std::uint32_t FoundFiles::storedAttributes(std::size_t file) {
    const auto read = [&] { return StoredFacts::read(path(file).text).attributes; };
    if (kind(file) == Kind::folder) {
        return read().value_or(0);
    }
    if (attributes_ == Attributes::unknown) {
        const bool isOurs = listing_->owner() == geteuid();
        attributes_ = !isOurs || isMarked(folder_.text) ? Attributes::ofEachFile : Attributes::unknown;
    }
    if (attributes_ == Attributes::ofNone) {
        return 0;
    }
    const std::optional<std::uint32_t> stored = read();
    if (attributes_ == Attributes::unknown) {
        attributes_ = stored ? Attributes::ofEachFile : Attributes::ofNone;
    }
    return stored.value_or(0);
}

FindFacts FoundFiles::facts(std::size_t file) {
    const std::optional<FileFacts> facts = readFacts(path(file));
    if (facts) {
        return {facts->attributes, facts->created, facts->accessed, facts->written, facts->size};
    }
    // The file is gone: it was what the listing says.
    return {kind(file) == Kind::folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL, 0, 0, 0, 0};
}

} // namespace mox::host
