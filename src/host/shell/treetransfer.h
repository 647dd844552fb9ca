// Copies and moves files and folders.
#pragma once

#include "host/shell/operationquestions.h"
#include "host/shell/treewalk.h"

#include <string>
#include <vector>

#include <sys/stat.h>

namespace mox::host {

/// Brings entries to their exact places, whose folders exist. A folder is merged into one that is there already; in that, names
/// are the same that differ in case only. Ends the operation at the first entry that fails; what was brought before stays.
class TreeTransfer {
public:
    TreeTransfer(bool move, const OperationQuestions& questions, TreeStep before)
        : move_(move), questions_(questions), before_(std::move(before)) {}

    void run(const std::string& from, const std::string& to);

private:
    struct Copied {
        std::string path;
        struct stat facts;
    };

    void merge(const std::string& from, const std::string& to);
    void mergeEntry(const std::string& from, const std::string& to);
    /// To a place that is free, or whose file is to be replaced.
    void bring(const std::string& from, const std::string& to, bool replace);
    void moveEntry(const std::string& from, const std::string& to, bool replace);
    void copyTree(const std::string& from, const std::string& to, bool replace);
    void copyEntry(const std::string& from, const std::string& to, bool replace);
    void copyFolder(const std::string& from, const std::string& to);
    /// Deletes what was copied to another disk, and only that, as long as it is as it was.
    void deleteCopied();

    bool move_;
    const OperationQuestions& questions_;
    TreeStep before_;
    std::vector<Copied> copied_;
};

} // namespace mox::host
