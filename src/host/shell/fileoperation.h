// SHFileOperationA.
#pragma once

#include "host/dialogs/progress.h"
#include "host/files/files.h"
#include "host/shell/operationend.h"
#include "host/shell/operationquestions.h"
#include "host/shell/operationsources.h"
#include "host/shell/trash.h"

#include "platform/shell32.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace mox::host {

/// One operation of the shell on files and folders. All sources and targets are looked at before anything changes.
class FileOperation {
public:
    FileOperation(const Files& files, const CodePage& codePage, Dialogs& dialogs, const Trash& trash,
                  platform::SHFILEOPSTRUCTA& operation);

    /// 0, or what ended it. Says whether it was cancelled in the operation.
    std::int32_t run();

private:
    struct Transfer {
        std::string from;
        std::string to;
    };

    bool has(std::uint16_t flag) const noexcept { return (operation_.fFlags & flag) != 0; }
    bool isMove() const noexcept { return operation_.wFunc != platform::FO_COPY; }

    void perform();
    void erase();
    void eraseOne(const std::string& path, Progress& progress) const;
    void renameOne();
    void transferAll(const std::vector<Transfer>& transfers);
    void showError(const OperationEnd& end) const;

    std::vector<Transfer> plan() const;
    std::vector<Transfer> planExact(const std::vector<OperationSource>& sources) const;
    std::vector<Transfer> planInto(const std::vector<OperationSource>& sources) const;
    std::string targetOf(const OperationSource& source, const std::string& path) const;
    void check(const OperationSource& source, const std::string& to) const;
    void makeFolders(const std::string& path) const;
    std::uint64_t stepsOf(const std::vector<Transfer>& transfers) const;

    const Files& files_;
    const CodePage& codePage_;
    Dialogs& dialogs_;
    const Trash& trash_;
    platform::SHFILEOPSTRUCTA& operation_;
    OperationQuestions questions_;
};

} // namespace mox::host
