#include "host/shell/fileoperation.h"

#include "host/shell/entrycopy.h"
#include "host/shell/operationtarget.h"
#include "host/shell/presentnames.h"
#include "host/shell/treedeletion.h"
#include "host/shell/treetransfer.h"

#include "platform/user32.h"

#include <sys/stat.h>

#include <cerrno>

namespace mox::host {

namespace {

using namespace platform;

constexpr std::uint32_t iconError = 0x10;

/// The place need not exist, nor the folders in front of it.
bool isOnSameDisk(const std::string& from, const std::string& to) {
    std::string folder = parentOf(to);
    while (!existsOnDisk(folder)) {
        folder = parentOf(folder);
    }
    struct stat first {};
    struct stat second {};
    return lstat(from.c_str(), &first) == 0 && stat(folder.c_str(), &second) == 0 && first.st_dev == second.st_dev;
}

TreeStep stepOf(Progress& progress) {
    return [&progress](const std::string& path) {
        if (!progress.next(path)) {
            throw OperationEnd(cancelledError, path);
        }
    };
}

const char* captionOf(std::uint32_t function) {
    return function == FO_DELETE ? "Deleting..." : function == FO_COPY ? "Copying..." : "Moving...";
}

} // namespace

FileOperation::FileOperation(const Files& files, const CodePage& codePage, Dialogs& dialogs, const Trash& trash,
                             SHFILEOPSTRUCTA& operation)
    : files_(files), codePage_(codePage), dialogs_(dialogs), trash_(trash), operation_(operation),
      questions_(dialogs, operation.hwnd, operation.fFlags) {}

std::int32_t FileOperation::run() {
    operation_.fAnyOperationsAborted = false;
    try {
        perform();
        return 0;
    } catch (const OperationEnd& end) {
        operation_.fAnyOperationsAborted = end.isCancelled();
        if (!end.isCancelled() && !has(FOF_NOERRORUI)) {
            showError(end);
        }
        return end.code();
    }
}

void FileOperation::perform() {
    switch (operation_.wFunc) {
    case FO_DELETE:
        erase();
        break;
    case FO_COPY:
    case FO_MOVE:
        transferAll(plan());
        break;
    case FO_RENAME:
        renameOne();
        break;
    default:
        throw OperationEnd(invalidParameterError, "");
    }
}

void FileOperation::erase() {
    const std::vector<OperationSource> sources = findSources(files_, operation_.pFrom);
    for (const OperationSource& source : sources) {
        if (source.isDriveRoot) {
            throw OperationEnd(driveRootError, source.path.text);
        }
    }
    if (sources.empty()) {
        return;
    }
    const bool isShown = !has(FOF_SILENT) && dialogs_.presenter();
    std::uint64_t steps = 0;
    questions_.beforeDeletion(sources, has(FOF_ALLOWUNDO));
    for (const OperationSource& source : sources) {
        if (questions_.areAsked()) {
            walkTree(source.path.text, [&](const std::string& path) { questions_.beforeDeletionOfProtected(path); });
        }
        steps += has(FOF_ALLOWUNDO) || !isShown ? 1 : entriesIn(source.path.text);
    }
    std::optional<Progress> progress;
    isShown ? progress.emplace(dialogs_, operation_.hwnd, captionOf(FO_DELETE), steps) : progress.emplace();
    for (const OperationSource& source : sources) {
        eraseOne(source.path.text, *progress);
    }
}

void FileOperation::eraseOne(const std::string& path, Progress& progress) const {
    const TreeStep step = stepOf(progress);
    if (!has(FOF_ALLOWUNDO)) {
        deleteTree(path, step);
        return;
    }
    step(path);
    if (!existsOnDisk(path)) {
        endWithErrno(path);
    }
    if (!trash_.take(path)) {
        questions_.beforeDeletionForGood(path);
        deleteTree(path, step);
    }
}

void FileOperation::renameOne() {
    const std::vector<OperationSource> sources = findSources(files_, operation_.pFrom);
    const std::vector<std::string> targets = pathsOf(operation_.pTo);
    if (sources.size() != 1 || targets.size() != 1 || !sources.front().named) {
        throw OperationEnd(targets.empty() ? invalidPathError : manySourcesError, operation_.pFrom);
    }
    const OperationSource& source = sources.front();
    const std::string to = targetOf(source, targets.front());
    if (existsOnDisk(to) && !isSameEntry(source.path.text, to)) {
        throw OperationEnd(alreadyExistsError, to);
    }
    check(source, to);
    if (!isSameEntry(parentOf(source.path.text), parentOf(to))) {
        throw OperationEnd(otherFolderError, to);
    }
    if (!renameEntry(source.path.text, to, false)) {
        endWithErrno(source.path.text);
    }
}

void FileOperation::transferAll(const std::vector<Transfer>& transfers) {
    std::optional<Progress> progress;
    if (!has(FOF_SILENT) && dialogs_.presenter()) {
        progress.emplace(dialogs_, operation_.hwnd, captionOf(operation_.wFunc), stepsOf(transfers));
    } else {
        progress.emplace();
    }
    TreeTransfer transfer(isMove(), questions_, stepOf(*progress));
    for (const auto& [from, to] : transfers) {
        makeFolders(parentOf(to));
        transfer.run(from, to);
    }
}

void FileOperation::showError(const OperationEnd& end) const {
    const std::string text = "Error " + std::to_string(end.code()) + ": " + end.what();
    const char* const caption = operation_.wFunc == FO_DELETE ? "Error Deleting File or Folder"
                                : operation_.wFunc == FO_COPY ? "Error Copying File or Folder"
                                : operation_.wFunc == FO_MOVE ? "Error Moving File or Folder"
                                                              : "Error Renaming File or Folder";
    dialogs_.messageBox(operation_.hwnd, text, caption, MB_OK | iconError);
}

std::vector<FileOperation::Transfer> FileOperation::plan() const {
    const std::vector<OperationSource> sources = findSources(files_, operation_.pFrom);
    std::vector<Transfer> transfers = has(FOF_MULTIDESTFILES) ? planExact(sources) : planInto(sources);
    for (std::size_t i = 0; i < sources.size(); ++i) {
        check(sources[i], transfers[i].to);
    }
    return transfers;
}

std::vector<FileOperation::Transfer> FileOperation::planExact(const std::vector<OperationSource>& sources) const {
    const std::vector<std::string> targets = pathsOf(operation_.pTo);
    if (targets.size() != sources.size()) {
        throw OperationEnd(targets.empty()                   ? invalidPathError
                           : targets.size() < sources.size() ? manySourcesError
                                                             : manyTargetsError,
                           operation_.pTo);
    }
    std::vector<Transfer> transfers;
    for (std::size_t i = 0; i < sources.size(); ++i) {
        transfers.push_back({sources[i].path.text, targetOf(sources[i], targets[i])});
    }
    return transfers;
}

std::vector<FileOperation::Transfer> FileOperation::planInto(const std::vector<OperationSource>& sources) const {
    const std::vector<std::string> targets = pathsOf(operation_.pTo);
    if (targets.size() != 1) {
        throw OperationEnd(targets.empty() ? invalidPathError : manyTargetsError, operation_.pTo);
    }
    const std::string folder = findTarget(files_, codePage_, targets.front()).path;
    if (!isFolderOnDisk(folder) && sources.size() == 1 && sources.front().named) {
        return {{sources.front().path.text, targetOf(sources.front(), targets.front())}};
    }
    if (existsOnDisk(folder) && !isFolderOnDisk(folder)) {
        throw OperationEnd(folderOntoFileError, folder);
    }
    const PresentNames present(folder);
    std::vector<Transfer> transfers;
    for (const OperationSource& source : sources) {
        if (source.isDriveRoot) {
            throw OperationEnd(driveRootError, source.path.text);
        }
        transfers.push_back({source.path.text, present.placeOf(nameOf(source.path.text))});
    }
    return transfers;
}

std::string FileOperation::targetOf(const OperationSource& source, const std::string& path) const {
    const OperationTarget target = findTarget(files_, codePage_, path);
    const bool isOtherCase = isMove() && isSameEntry(source.path.text, target.path) && nameOf(target.path) != target.writtenName;
    return isOtherCase ? joined(parentOf(target.path), target.writtenName) : target.path;
}

void FileOperation::check(const OperationSource& source, const std::string& to) const {
    const std::string& from = source.path.text;
    if (source.isDriveRoot && isMove()) {
        throw OperationEnd(driveRootError, from);
    }
    if (isSameEntry(from, to)) {
        throw OperationEnd(sameFileError, to);
    }
    if (isInside(to, from)) {
        throw OperationEnd(intoItselfError, to);
    }
    struct stat facts {};
    const bool isFolder = lstat(from.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
    if (existsOnDisk(to) && isFolder != isFolderOnDisk(to)) {
        throw OperationEnd(isFolder ? folderOntoFileError : fileOntoFolderError, to);
    }
}

void FileOperation::makeFolders(const std::string& path) const {
    if (existsOnDisk(path)) {
        return;
    }
    makeFolders(parentOf(path));
    questions_.beforeMakingFolder(path);
    if (mkdir(path.c_str(), 0777) != 0) {
        endWithErrno(path);
    }
}

std::uint64_t FileOperation::stepsOf(const std::vector<Transfer>& transfers) const {
    std::uint64_t steps = 0;
    for (const auto& [from, to] : transfers) {
        steps += isMove() && isOnSameDisk(from, to) ? 1 : entriesIn(from);
    }
    return steps;
}

} // namespace mox::host
