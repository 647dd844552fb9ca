#include "host/files/runtimeerrors.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace mox::host {

namespace {

struct SystemError {
    int system;
    std::int32_t runTime;
};
constexpr std::array systemErrors{
    SystemError{0, 0},
    SystemError{EBUSY, permissionDenied},
    SystemError{EDQUOT, diskFull},
    SystemError{EFBIG, diskFull}, // no space for it on this disk, whatever else there is
    SystemError{EIO, deviceIoError},
    SystemError{EMFILE, tooManyFiles},
    SystemError{ENAMETOOLONG, badFileName},
    SystemError{ENFILE, tooManyFiles},
    SystemError{ENODEV, deviceUnavailable},
    SystemError{ENOENT, pathNotFound},
    SystemError{ENOSPC, diskFull},
    SystemError{ENOTDIR, pathNotFound},
    SystemError{ENXIO, deviceUnavailable},
    SystemError{EROFS, permissionDenied},
    SystemError{ETXTBSY, permissionDenied},
};

} // namespace

std::int32_t runtimeErrorOf(int systemError) noexcept {
    const auto found = std::ranges::find(systemErrors, systemError, &SystemError::system);
    return found == systemErrors.end() ? pathFileAccessError : found->runTime;
}

} // namespace mox::host
