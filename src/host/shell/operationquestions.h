// What a file operation asks before it does something that cannot be taken back.
#pragma once

#include "host/dialogs/dialogs.h"
#include "host/shell/operationsources.h"

#include <cstdint>
#include <string>
#include <vector>

namespace mox::host {

/// Each question ends the operation as cancelled if the answer is no. With FOF_NOCONFIRMATION none is asked: all are answered by
/// yes.
class OperationQuestions {
public:
    OperationQuestions(Dialogs& dialogs, platform::Handle owner, std::uint16_t flags)
        : dialogs_(dialogs), owner_(owner), flags_(flags) {}

    bool areAsked() const noexcept;

    void beforeDeletion(const std::vector<OperationSource>& sources, bool toTrash) const;
    /// A file that is read-only or belongs to the system.
    void beforeDeletionOfProtected(const std::string& path) const;
    /// The trash does not take it.
    void beforeDeletionForGood(const std::string& path) const;
    /// Another file takes the place of one; asks extra if that is protected.
    void beforeReplacing(const std::string& target) const;
    /// The same for a file in a folder that may be merged: asks only if that is protected.
    void beforeReplacingInMerge(const std::string& target) const;
    /// A folder goes into one of the same name.
    void beforeMerging(const std::string& target) const;
    void beforeMakingFolder(const std::string& path) const;

private:
    void ask(std::string_view caption, const std::string& text, const std::string& path) const;

    Dialogs& dialogs_;
    platform::Handle owner_;
    std::uint16_t flags_;
};

/// What protects a file from being deleted unasked: "read-only", "system", or null. Links are not protected.
const char* protectionOf(const std::string& path);

} // namespace mox::host
