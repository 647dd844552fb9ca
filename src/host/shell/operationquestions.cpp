#include "host/shell/operationquestions.h"

#include "host/shell/operationend.h"

#include "platform/kernel32.h"
#include "platform/shell32.h"

namespace mox::host {

namespace {

std::string quoted(const std::string& path) {
    return "\"" + nameOf(path) + "\"";
}

std::string areYouSure(const std::string& verb, const std::string& what) {
    return "Are you sure you want to " + verb + " " + what + "?";
}

} // namespace

bool OperationQuestions::areAsked() const noexcept {
    return (flags_ & platform::FOF_NOCONFIRMATION) == 0;
}

void OperationQuestions::beforeDeletion(const std::vector<OperationSource>& sources, bool toTrash) const {
    const std::string& first = sources.front().path.text;
    const bool isOne = sources.size() == 1;
    const std::string what = isOne ? quoted(first) : "these " + std::to_string(sources.size()) + " items";
    const char* const caption = !isOne                  ? "Confirm Multiple File Delete"
                                : isFolderOnDisk(first) ? "Confirm Folder Delete"
                                                        : "Confirm File Delete";
    ask(caption, toTrash ? areYouSure("move", what + " to the trash") : areYouSure("delete", what), first);
}

void OperationQuestions::beforeDeletionOfProtected(const std::string& path) const {
    if (const char* const protection = areAsked() ? protectionOf(path) : nullptr) {
        ask("Confirm File Delete", quoted(path) + " is a " + protection + " file. " + areYouSure("delete", "it"), path);
    }
}

void OperationQuestions::beforeDeletionForGood(const std::string& path) const {
    ask("Confirm File Delete", "The trash does not take " + quoted(path) + ". " + areYouSure("delete", "it for good"), path);
}

void OperationQuestions::beforeReplacing(const std::string& target) const {
    ask("Confirm File Replace", "There is already a file named " + quoted(target) + ". Do you want to replace it?", target);
    beforeReplacingInMerge(target);
}

void OperationQuestions::beforeReplacingInMerge(const std::string& target) const {
    if (const char* const protection = areAsked() ? protectionOf(target) : nullptr) {
        ask("Confirm File Replace", quoted(target) + " is a " + protection + " file. " + areYouSure("replace", "it"), target);
    }
}

void OperationQuestions::beforeMerging(const std::string& target) const {
    ask("Confirm Folder Replace",
        "There is already a folder named " + quoted(target) +
            ". Files in it with the same names are replaced. Do you want to go on?",
        target);
}

void OperationQuestions::beforeMakingFolder(const std::string& path) const {
    if ((flags_ & platform::FOF_NOCONFIRMMKDIR) == 0) {
        ask("Create Folder", "The folder " + quoted(path) + " does not exist. Do you want to create it?", path);
    }
}

void OperationQuestions::ask(std::string_view caption, const std::string& text, const std::string& path) const {
    if (areAsked() && !dialogs_.confirm(owner_, caption, text)) {
        throw OperationEnd(cancelledError, path);
    }
}

const char* protectionOf(const std::string& path) {
    const std::optional<FileFacts> facts = readFacts({path, 0});
    if (!facts || facts->folder || (facts->attributes & platform::FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        return nullptr;
    }
    if ((facts->attributes & platform::FILE_ATTRIBUTE_SYSTEM) != 0) {
        return "system";
    }
    return (facts->attributes & platform::FILE_ATTRIBUTE_READONLY) != 0 ? "read-only" : nullptr;
}

} // namespace mox::host
