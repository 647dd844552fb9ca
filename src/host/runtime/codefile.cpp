#include "host/runtime/codefile.h"

#include <dlfcn.h>

namespace mox::host {

std::filesystem::path fileOfCode(const void* code) {
    Dl_info info{};
    if (dladdr(code, &info) == 0 || !info.dli_fname) {
        return {};
    }
    std::error_code error;
    std::filesystem::path file = std::filesystem::canonical(info.dli_fname, error);
    return error ? std::filesystem::path() : file;
}

} // namespace mox::host
