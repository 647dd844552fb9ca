#include "core/usedbyapp.h"

#include "core/ansi.h"

#include "platform/kernel32.h"
#include "platform/psapi.h"

#include <array>

namespace mox::server {

namespace {

using namespace platform;

/// The executable's file name as the process snapshot has it. A field without a NUL in its 260 bytes counts as no name.
std::string nameFromSnapshot(std::uint32_t processId) {
    constexpr std::uint32_t sizeOfEntry = 296;
    constexpr std::size_t sizeOfField = 260;
    std::string name;
    const Handle snapshot = kernel32().CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == invalidHandle) {
        return name;
    }
    PROCESSENTRY32 entry;
    entry.dwSize = sizeOfEntry;
    for (bool found = kernel32().Process32First(snapshot, entry); found; found = kernel32().Process32Next(snapshot, entry)) {
        if (entry.th32ProcessID == processId) {
            if (entry.szExeFile.size() < sizeOfField) {
                name = entry.szExeFile;
            }
            break;
        }
    }
    kernel32().CloseHandle(snapshot);
    return name;
}

/// The full path of the first module of the process, if it may be opened and read.
std::string pathFromModules(std::uint32_t processId) {
    std::string path;
    const Handle process = kernel32().OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, false, processId);
    if (process == 0) {
        return path;
    }
    std::array<Handle, 50> modules{};
    std::uint32_t needed = 0;
    if (psapi().EnumProcessModules(process, modules, needed)) {
        std::array<char, 260> buffer{};
        const std::uint32_t length = psapi().GetModuleFileNameExA(process, modules[0], buffer);
        path.assign(buffer.data(), std::min<std::size_t>(length, buffer.size()));
    }
    kernel32().CloseHandle(process);
    return path;
}

} // namespace

String usedByApp() {
    const std::uint32_t processId = kernel32().GetCurrentProcessId();
    std::string name = nameFromSnapshot(processId);
    if (!name.empty()) {
        if (std::string path = pathFromModules(processId); !path.empty()) {
            name = std::move(path);
        }
    }
    return fromAnsi(name);
}

} // namespace mox::server
