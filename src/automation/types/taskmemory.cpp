// Memory that one side of an interface allocates and the other frees.
#include <mox/abi/functions.h>

#include <algorithm>
#include <cstdlib>

PVOID CoTaskMemAlloc(std::size_t cb) {
    return std::malloc(std::max<std::size_t>(cb, 1)); // also nothing has an address of its own
}

PVOID CoTaskMemRealloc(PVOID pv, std::size_t cb) {
    if (pv && cb == 0) {
        std::free(pv);
        return nullptr;
    }
    return std::realloc(pv, std::max<std::size_t>(cb, 1));
}

void CoTaskMemFree(PVOID pv) {
    std::free(pv);
}
