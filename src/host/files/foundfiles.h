// What the disk knows of the files in a listing.
#pragma once

#include "host/files/filefacts.h"
#include "host/files/folderlisting.h"

#include "platform/finddata.h"

#include <cstdint>
#include <memory>

namespace mox::host {

/// Reads the facts of the files of one search, as far as somebody asks for them. Most is known without a look at the files: the
/// disk tells the kind along with the name, and whether files have attributes of their own is a fact of the folder mostly (see
/// `markFolder`).
class FoundFiles final : public platform::FindDataReader {
public:
    // Numbers of files that are in no listing.
    static constexpr std::size_t folderItself = ~std::size_t{0};
    static constexpr std::size_t parentFolder = folderItself - 1;

    FoundFiles(DiskPath folder, std::shared_ptr<const FolderListing> listing);

    /// Where a file lies.
    DiskPath path(std::size_t file) const;
    /// Fills in what is known of a file without a look at it.
    static void describe(const std::shared_ptr<FoundFiles>& files, std::size_t file, platform::WIN32_FIND_DATAA& found);

    std::uint32_t attributes(std::size_t file, std::uint32_t mask) override;
    platform::FindFacts facts(std::size_t file) override;

private:
    enum class Attributes { unknown, ofEachFile, ofNone };

    FolderListing::Kind kind(std::size_t file) const noexcept;
    std::uint32_t storedAttributes(std::size_t file);

    const DiskPath folder_;
    const std::shared_ptr<const FolderListing> listing_;
    Attributes attributes_ = Attributes::unknown;
};

} // namespace mox::host
