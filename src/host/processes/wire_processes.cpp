#include "host/processes/wire_processes.h"

#include "host/files/openfile.h"
#include "host/machine/machine.h"
#include "host/processes/library.h"
#include "host/processes/process.h"
#include "host/processes/processsnapshot.h"
#include "host/processes/programs.h"
#include "host/processes/thread.h"

#include <unistd.h>

namespace mox::host {

namespace {

using platform::Handle;
using platform::invalidHandle;

Handle createSnapshot(Handles& handles) {
    const Handle snapshot = handles.open("snapshot", std::make_shared<ProcessSnapshot>());
    return snapshot != 0 ? snapshot : invalidHandle;
}

/// Fills in the entry that `step` gives.
bool enumerate(Machine& machine, Handle handle, platform::PROCESSENTRY32& entry, const ProcessFacts* (ProcessSnapshot::*step)()) {
    constexpr std::uint32_t entrySize = 296;
    constexpr std::size_t longestName = 259; // in front of the final NUL
    const std::shared_ptr<ProcessSnapshot> snapshot = machine.handles.get<ProcessSnapshot>(handle);
    const ProcessFacts* const process = snapshot && entry.dwSize == entrySize ? ((*snapshot).*step)() : nullptr;
    if (!process) {
        return false;
    }
    entry.th32ProcessID = process->id;
    entry.th32ParentProcessID = process->parent;
    entry.szExeFile = machine.codePage.fromUtf8(process->name).substr(0, longestName);
    return true;
}

bool closeHandle(Handles& handles, Handle handle) {
    return handles.close<ProcessSnapshot>(handle) || handles.close<Process>(handle) || handles.close<Thread>(handle) ||
           handles.close<OpenFile>(handle);
}

std::uint32_t waitFor(Handles& handles, Handle handle, std::uint32_t milliseconds) {
    const auto answer = [](bool hasEnded) { return hasEnded ? platform::WAIT_OBJECT_0 : platform::WAIT_TIMEOUT; };
    if (const auto thread = handles.get<Thread>(handle)) {
        return answer(thread->waitForEnd(milliseconds));
    }
    const auto process = handles.get<Process>(handle);
    const std::optional<bool> hasEnded = process ? process->waitForEnd(milliseconds) : std::nullopt;
    return hasEnded ? answer(*hasEnded) : platform::WAIT_FAILED;
}

bool exitCodeOf(Handles& handles, Handle handle, std::uint32_t& code) {
    const std::shared_ptr<Thread> thread = handles.get<Thread>(handle);
    if (thread) {
        code = thread->exitCode().value_or(platform::STILL_ACTIVE);
    }
    return thread != nullptr;
}

platform::Procedure procedureOf(Handles& handles, Handle handle, std::string_view name) {
    const std::shared_ptr<Library> library = handles.get<Library>(handle);
    return library ? library->find(name) : nullptr;
}

} // namespace

void wireProcesses(Machine& machine) {
    platform::Kernel32& kernel32 = machine.kernel32;
    Handles& handles = machine.handles;

    kernel32.GetCurrentProcessId = [] { return static_cast<std::uint32_t>(getpid()); };
    kernel32.CreateToolhelp32Snapshot = [&](auto, auto) { return createSnapshot(handles); };
    kernel32.Process32First = [&](auto snapshot, auto& entry) {
        return enumerate(machine, snapshot, entry, &ProcessSnapshot::first);
    };
    kernel32.Process32Next = [&](auto snapshot, auto& entry) {
        return enumerate(machine, snapshot, entry, &ProcessSnapshot::next);
    };
    kernel32.OpenProcess = [&](auto, auto, auto process) { return handles.open("process", Process::open(process)); };
    kernel32.CloseHandle = [&](auto handle) { return closeHandle(handles, handle); };

    kernel32.LoadLibraryA = [&](auto file) {
        return handles.open("library", Library::load(machine.files, machine.codePage, file));
    };
    kernel32.FreeLibrary = [&](auto library) { return handles.close<Library>(library); };
    kernel32.GetProcAddress = [&](auto library, auto name) { return procedureOf(handles, library, name); };

    kernel32.CreateThread = [&](auto routine) { return handles.open("thread", Thread::start(routine)); };
    kernel32.WaitForSingleObject = [&](auto handle, auto milliseconds) { return waitFor(handles, handle, milliseconds); };
    kernel32.GetExitCodeThread = [&](auto thread, auto& code) { return exitCodeOf(handles, thread, code); };

    // The machine's programs have no windows of their own that the style could be for.
    machine.runtime.Shell = [&](auto commandLine, auto, auto& task) {
        return startProgram(machine.files, machine.codePage, commandLine, task);
    };
}

} // namespace mox::host
