// Random program files: the version resource is read within bounds, and every value that a block has lies in it.
#include "require.h"

#include "host/files/peversion.h"
#include "host/files/versionblock.h"
#include "host/text/codepage.h"

#include <sys/mman.h>
#include <unistd.h>

#include <string>

using namespace mox::host;

namespace {

void checkBlock(const std::string& block) {
    for (const char* path : {"\\", "\\VarFileInfo\\Translation", "\\StringFileInfo\\040904E4\\CompanyName", "\\StringFileInfo"}) {
        std::string_view value;
        if (queryVersion(block, path, value)) {
            require(value.data() >= block.data() && value.data() + value.size() <= block.data() + block.size());
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const CodePage codePage(932);
    static const int file = memfd_create("program", MFD_CLOEXEC);
    static const std::string path = "/proc/self/fd/" + std::to_string(file);
    require(ftruncate(file, 0) == 0 && pwrite(file, data, size, 0) == static_cast<ssize_t>(size));

    const std::string resource = readVersionResource(path);
    require(resource.size() <= size);
    checkBlock(versionBlock(resource, codePage));
    // Most random bytes are no program: so they come once more as what a program would hold.
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    checkBlock(versionBlock(bytes, codePage));
    checkBlock(bytes);
    return 0;
}
