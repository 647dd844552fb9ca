#include "host/shell/treetransfer.h"

#include "host/shell/entrycopy.h"
#include "host/shell/operationend.h"
#include "host/shell/presentnames.h"

#include <unistd.h>

#include <cerrno>
#include <utility>

namespace mox::host {

namespace {

constexpr int changedMeanwhile = EBUSY;

void endUnless(bool done, const std::string& path) {
    if (!done) {
        endWithErrno(path);
    }
}

struct stat factsOf(const std::string& path) {
    struct stat facts {};
    endUnless(lstat(path.c_str(), &facts) == 0, path);
    return facts;
}

std::vector<std::string> namesOf(const std::string& folder) {
    std::optional<std::vector<std::string>> names = namesIn(folder);
    endUnless(names.has_value(), folder);
    return std::move(*names);
}

bool isSame(const struct stat& a, const struct stat& b) noexcept {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size && a.st_mtim.tv_sec == b.st_mtim.tv_sec &&
           a.st_mtim.tv_nsec == b.st_mtim.tv_nsec;
}

bool isHardLinkOf(const std::string& first, const std::string& second) noexcept {
    struct stat a {};
    struct stat b {};
    return lstat(first.c_str(), &a) == 0 && lstat(second.c_str(), &b) == 0 && a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

void TreeTransfer::run(const std::string& from, const std::string& to) {
    const bool isFolder = S_ISDIR(factsOf(from).st_mode);
    if (!existsOnDisk(to)) {
        bring(from, to, false);
    } else if (isFolder && isFolderOnDisk(to)) {
        questions_.beforeMerging(to);
        merge(from, to);
    } else if (isFolder || isFolderOnDisk(to)) {
        throw OperationEnd(isFolder ? folderOntoFileError : fileOntoFolderError, to);
    } else {
        questions_.beforeReplacing(to);
        bring(from, to, true);
    }
}

void TreeTransfer::merge(const std::string& from, const std::string& to) {
    before_(from);
    const std::vector<std::string> names = namesOf(from);
    const PresentNames present(to);
    for (const std::string& name : names) {
        mergeEntry(joined(from, name), present.placeOf(name));
    }
    endUnless(!move_ || rmdir(from.c_str()) == 0, from);
}

void TreeTransfer::mergeEntry(const std::string& from, const std::string& to) {
    if (!existsOnDisk(to)) {
        bring(from, to, false);
        return;
    }
    const bool isFolder = S_ISDIR(factsOf(from).st_mode);
    if (isFolder != S_ISDIR(factsOf(to).st_mode)) { // nothing is written through a link that lies in the target
        throw OperationEnd(isFolder ? folderOntoFileError : fileOntoFolderError, to);
    }
    if (isFolder) {
        merge(from, to);
        return;
    }
    questions_.beforeReplacingInMerge(to);
    bring(from, to, true);
}

void TreeTransfer::bring(const std::string& from, const std::string& to, bool replace) {
    if (move_) {
        moveEntry(from, to, replace);
    } else {
        copyTree(from, to, replace);
    }
}

void TreeTransfer::moveEntry(const std::string& from, const std::string& to, bool replace) {
    before_(from);
    if (replace && isHardLinkOf(from, to)) { // renaming would leave both
        endUnless(unlink(from.c_str()) == 0, from);
        return;
    }
    if (renameEntry(from, to, replace)) {
        return;
    }
    endUnless(errno == EXDEV, from);
    copied_.clear();
    copyEntry(from, to, replace);
    deleteCopied();
}

void TreeTransfer::copyTree(const std::string& from, const std::string& to, bool replace) {
    before_(from);
    copyEntry(from, to, replace);
}

void TreeTransfer::copyEntry(const std::string& from, const std::string& to, bool replace) {
    const struct stat facts = factsOf(from);
    if (move_) {
        copied_.push_back({from, facts});
    }
    if (S_ISDIR(facts.st_mode)) {
        copyFolder(from, to);
    } else if (S_ISLNK(facts.st_mode)) {
        endUnless(copyLink(from, to, replace), from);
    } else if (S_ISREG(facts.st_mode)) {
        endUnless(copyFile(from, to, replace), from);
    } else {
        throw OperationEnd(notSupportedError, from); // a pipe, a device
    }
}

void TreeTransfer::copyFolder(const std::string& from, const std::string& to) {
    // Before the target exists, which may lie in the folder by a way that nobody saw.
    const std::vector<std::string> names = namesOf(from);
    endUnless(mkdir(to.c_str(), 0700) == 0, to);
    for (const std::string& name : names) {
        copyTree(joined(from, name), joined(to, name), false);
    }
    endUnless(copyFolderFacts(from, to), to);
}

void TreeTransfer::deleteCopied() {
    for (auto entry = copied_.rbegin(); entry != copied_.rend(); ++entry) {
        if (S_ISDIR(entry->facts.st_mode)) {
            endUnless(rmdir(entry->path.c_str()) == 0, entry->path);
            continue;
        }
        if (!isSame(factsOf(entry->path), entry->facts)) {
            errno = changedMeanwhile;
            endWithErrno(entry->path);
        }
        endUnless(unlink(entry->path.c_str()) == 0, entry->path);
    }
    copied_.clear();
}

} // namespace mox::host
