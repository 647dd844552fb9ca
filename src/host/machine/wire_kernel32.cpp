#include "host/files/openfile.h"
#include "host/machine/wiring.h"
#include "host/processes/process.h"
#include "host/processes/processsnapshot.h"

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

Handle openProcess(Handles& handles, std::uint32_t id) {
    return handles.open("process", Process::open(id));
}

bool closeHandle(Handles& handles, Handle handle) {
    return handles.close<ProcessSnapshot>(handle) || handles.close<Process>(handle) || handles.close<OpenFile>(handle);
}

/// A conversion into the caller's buffer; for an empty one the size that it would need. 0 if the buffer is too small.
template <class Unit, class Into, class Whole> std::int32_t deliver(std::span<Unit> buffer, Into into, Whole whole) {
    return static_cast<std::int32_t>(buffer.empty() ? whole().size() : into().value_or(0));
}

/// Converts by the code page of that number, `CP_ACP` being the machine's own; gives 0 for an unknown one.
template <class Convert> std::int32_t convert(Machine& machine, std::uint32_t number, Convert conversion) {
    if (number == platform::CP_ACP) {
        return conversion(machine.codePage);
    }
    return CodePage::isKnown(number) ? conversion(CodePage(number)) : 0;
}

} // namespace

void wireKernel32(Machine& machine) {
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
    kernel32.OpenProcess = [&](auto, auto, auto process) { return openProcess(handles, process); };
    kernel32.CloseHandle = [&](auto handle) { return closeHandle(handles, handle); };

    kernel32.GetTickCount = [&] { return static_cast<std::uint32_t>(machine.clock().now()); };

    kernel32.WideCharToMultiByte = [&](auto codePage, auto text, auto bytes) {
        return convert(machine, codePage, [&](const CodePage& page) {
            return deliver(
                bytes, [&] { return page.fromUtf16(text, bytes); }, [&] { return page.fromUtf16(text); });
        });
    };
    kernel32.MultiByteToWideChar = [&](auto codePage, auto bytes, auto text) {
        return convert(machine, codePage, [&](const CodePage& page) {
            return deliver(
                text, [&] { return page.toUtf16(bytes, text); }, [&] { return page.toUtf16(bytes); });
        });
    };
}

} // namespace mox::host
