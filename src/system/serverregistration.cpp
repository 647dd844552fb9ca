#include "system/serverregistration.h"

#include "automation/objects/errormodes.h"
#include "automation/objects/runtimeerror.h"
#include "core/ansi.h"
#include "core/modMoxHub.h"

#include "platform/kernel32.h"
#include "platform/runtime.h"

#include <algorithm>
#include <string>

namespace mox::server {

namespace {

using platform::Handle;
using platform::kernel32;

constexpr Long shortestWait = 100;
constexpr Long longestWait = 30000;
constexpr std::int32_t minimisedWithFocus = 2;

class LoadedLibrary {
public:
    explicit LoadedLibrary(const String& file) : handle(kernel32().LoadLibraryA(toAnsi(file))) {}
    ~LoadedLibrary() {
        if (handle != 0) {
            carryOn([this] { kernel32().FreeLibrary(handle); });
        }
    }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;

    const Handle handle;
};

class RunningThread {
public:
    explicit RunningThread(platform::Procedure routine) : handle(kernel32().CreateThread(routine)) {}
    ~RunningThread() {
        if (handle != 0) {
            carryOn([this] { kernel32().CloseHandle(handle); });
        }
    }
    RunningThread(const RunningThread&) = delete;
    RunningThread& operator=(const RunningThread&) = delete;

    const Handle handle;
};

} // namespace

Boolean runRoutineOfLibrary(const String& file, std::string_view routine, Long msTimeout) noexcept {
    Boolean result;
    trapAndLeave([&] {
        const LoadedLibrary library(file);
        const auto procedure = library.handle != 0 ? kernel32().GetProcAddress(library.handle, routine) : nullptr;
        if (!procedure) {
            return;
        }
        const RunningThread thread(procedure);
        if (thread.handle == 0) {
            return;
        }
        const auto milliseconds = static_cast<std::uint32_t>(std::clamp(msTimeout, shortestWait, longestWait));
        if (kernel32().WaitForSingleObject(thread.handle, milliseconds) == platform::WAIT_OBJECT_0) {
            result = True;
        }
    });
    return result;
}

Boolean startServerProgram(const String& file, std::u16string_view option) {
    if (!modMoxHub::FileExists(file)) {
        return False;
    }
    const std::u16string commandLine = u"\"" + std::u16string(file) + u"\" " + std::u16string(option);
    double task = 0;
    const std::int32_t error = platform::runtime().Shell(toAnsi(commandLine), minimisedWithFocus, task);
    if (error != 0) {
        throw RuntimeError(error);
    }
    return task != 0;
}

} // namespace mox::server
