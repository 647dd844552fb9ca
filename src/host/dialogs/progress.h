// A long work that the user can watch and stop.
#pragma once

#include "host/dialogs/dialogs.h"

namespace mox::host {

/// The progress of one work, shown by the presenter as long as this lives. With no presenter nothing is shown.
class MOX_API Progress {
public:
    /// Shows nothing.
    Progress() = default;
    Progress(const Dialogs& dialogs, platform::Handle owner, std::string_view caption, std::uint64_t steps);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Before each step, with what it is about. False from the time on that the user wants the work to stop.
    bool next(std::string_view text);

private:
    std::shared_ptr<DialogPresenter> presenter_;
    std::uint64_t done_ = 0;
    bool stopped_ = false;
};

} // namespace mox::host
