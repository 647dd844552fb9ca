#include "host/dialogs/progress.h"

namespace mox::host {

Progress::Progress(const Dialogs& dialogs, platform::Handle owner, std::string_view caption, std::uint64_t steps)
    : presenter_(dialogs.presenter()) {
    if (presenter_) {
        presenter_->begin(owner, caption, steps);
    }
}

Progress::~Progress() {
    if (presenter_) {
        presenter_->end();
    }
}

bool Progress::next(std::string_view text) {
    stopped_ = stopped_ || (presenter_ && !presenter_->step(done_++, text));
    return !stopped_;
}

} // namespace mox::host
