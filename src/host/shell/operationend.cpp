#include "host/shell/operationend.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace mox::host {

namespace {

struct SystemError {
    int system;
    std::int32_t code;
};
constexpr std::int32_t accessDenied = 5;
constexpr std::int32_t sharingViolation = 32;
constexpr std::int32_t diskFull = 112;
constexpr std::array systemErrors{
    SystemError{EACCES, accessDenied},
    SystemError{EBUSY, sharingViolation},
    SystemError{EDQUOT, diskFull},
    SystemError{EEXIST, 183},
    SystemError{EFBIG, diskFull},
    SystemError{EINVAL, invalidParameterError},
    SystemError{EIO, 1117},
    SystemError{ELOOP, 1921},
    SystemError{EMFILE, 4},
    SystemError{ENAMETOOLONG, 206},
    SystemError{ENFILE, 4},
    SystemError{ENOENT, fileNotFoundError},
    SystemError{ENOMEM, 8},
    SystemError{ENOSPC, diskFull},
    SystemError{ENOTDIR, pathNotFoundError},
    SystemError{ENOTEMPTY, 145},
    SystemError{ENOTSUP, notSupportedError},
    SystemError{EPERM, accessDenied},
    SystemError{EROFS, 19},
    SystemError{ETXTBSY, sharingViolation},
};

} // namespace

std::int32_t errorOfErrno(int error) noexcept {
    constexpr std::int32_t generalFailure = 31;
    const auto found = std::ranges::find(systemErrors, error, &SystemError::system);
    return found == systemErrors.end() ? generalFailure : found->code;
}

void endWithErrno(const std::string& path) {
    throw OperationEnd(errorOfErrno(errno), path);
}

} // namespace mox::host
