#include "host/files/filesharing.h"

#include <sys/stat.h>

#include <algorithm>
#include <utility>

namespace mox::host {

FileIdentity FileIdentity::of(const struct stat& facts) noexcept {
    return {facts.st_dev, facts.st_ino};
}

FileSharing::Claim& FileSharing::Claim::operator=(Claim&& other) noexcept {
    if (this != &other) {
        release();
        table_ = std::move(other.table_);
        file_ = other.file_;
        opener_ = std::move(other.opener_);
    }
    return *this;
}

FileSharing::Claim::~Claim() {
    release();
}

void FileSharing::Claim::release() noexcept {
    if (!opener_) {
        return;
    }
    const std::lock_guard lock(table_->guard_);
    const auto found = table_->openers_.find(file_);
    std::erase(found->second, opener_);
    if (found->second.empty()) {
        table_->openers_.erase(found);
    }
    opener_.reset();
}

FileSharing::Claim FileSharing::claim(const FileIdentity& file, std::uint32_t access, std::uint32_t share) {
    const auto opener = std::make_shared<const Opener>(Opener{access, share});
    Claim result;
    const std::lock_guard lock(guard_);
    if (allows(file, *opener)) {
        openers_[file].push_back(opener);
        result.table_ = shared_from_this();
        result.file_ = file;
        result.opener_ = opener;
    }
    return result;
}

bool FileSharing::permits(const FileIdentity& file, std::uint32_t access, std::uint32_t share) const {
    const std::lock_guard lock(guard_);
    return allows(file, {access, share});
}

bool FileSharing::allows(const FileIdentity& file, const Opener& opener) const {
    const auto found = openers_.find(file);
    return found == openers_.end() || std::ranges::all_of(found->second, [&](const auto& other) {
               return (opener.access & ~other->share) == 0 && (other->access & ~opener.share) == 0;
           });
}

} // namespace mox::host
