#include "host/files/filesearch.h"

#include "host/files/names.h"
#include "host/files/shortnames.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace mox::host {

FileSearch::FileSearch(DiskPath folder, std::string_view pattern, const CodePage& codePage)
    : folder_(std::move(folder)), codePage_(codePage), pattern_(pattern) {}

FileSearch::FileSearch(const DiskPath& file, const CodePage& codePage)
    : folder_{parentOf(file.text), file.rootLength}, codePage_(codePage), namesRead_(true) {
    std::string name = nameOf(file.text);
    std::string written = writtenName(folder_.text, name, codePage);
    entries_.push_back({std::move(name), std::move(written), {}});
}

bool FileSearch::next(platform::WIN32_FIND_DATAA& found) {
    if (nextDot(found)) {
        return true;
    }
    // Many a search only wants to know whether there is a folder: it does not pay for the names.
    if (!std::exchange(namesRead_, true)) {
        readNames();
    }
    while (position_ < entries_.size()) {
        Entry& entry = entries_[position_++];
        if (describe({joined(folder_.text, entry.name), folder_.rootLength}, std::move(entry.written), found)) {
            return true;
        }
    }
    return false;
}

bool FileSearch::nextDot(platform::WIN32_FIND_DATAA& found) {
    constexpr std::size_t dotNames = 2;
    const std::size_t rootLength = std::max<std::size_t>(folder_.rootLength, 1);
    if (!pattern_ || folder_.text.size() == rootLength) {
        return false;
    }
    while (dots_ < dotNames) {
        ++dots_;
        const std::string name(dots_, '.');
        const std::size_t length = dots_ == 1 ? folder_.text.size() : std::max(folder_.text.rfind('/'), rootLength);
        if (pattern_->matches(upperCase(name)) && describe({folder_.text.substr(0, length), folder_.rootLength}, name, found)) {
            return true;
        }
    }
    return false;
}

void FileSearch::readNames() {
    const std::vector<std::string> names = namesIn(folder_.text).value_or(std::vector<std::string>());
    std::optional<ShortNames> shortNames;
    const auto shortNameOf = [&](const std::string& name) -> const std::string& {
        if (!shortNames) {
            shortNames.emplace(names, codePage_);
        }
        return shortNames->of(name);
    };
    const auto matchesShort = [&](const std::string& name) {
        const std::string& shortName = shortNameOf(name);
        return !shortName.empty() && pattern_->matches(upperCase(shortName));
    };
    for (const std::string& name : names) {
        std::u32string upper = upperCase(name);
        if (pattern_->matches(upper) || matchesShort(name)) {
            std::string written = canBeWritten(name, codePage_) ? codePage_.fromUtf8(name) : shortNameOf(name);
            entries_.push_back({name, std::move(written), std::move(upper)});
        }
    }
    std::ranges::sort(entries_, {}, [](const Entry& entry) { return std::tie(entry.upper, entry.name); });
}

bool FileSearch::describe(DiskPath path, std::string written, platform::WIN32_FIND_DATAA& found) {
    const std::optional<FileFacts> facts = readFacts(path);
    if (!facts) {
        return false;
    }
    path_ = std::move(path);
    found.dwFileAttributes = facts->attributes;
    found.ftCreationTime = facts->created;
    found.ftLastAccessTime = facts->accessed;
    found.ftLastWriteTime = facts->written;
    found.nFileSize = facts->size;
    found.cFileName = std::move(written);
    return true;
}

} // namespace mox::host
