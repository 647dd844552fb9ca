#include "host/files/binaryfile.h"
#include "host/files/filecopy.h"
#include "host/files/filetimes.h"
#include "host/files/openfile.h"
#include "host/files/runtimeerrors.h"
#include "host/files/wire_files.h"
#include "host/machine/machine.h"

#include <limits>

namespace mox::host {

namespace {

using namespace platform;

/// How CreateFileA's arguments ask for a file; nothing for a disposition that there is not.
std::optional<OpenRequest> requestOf(std::uint32_t access, std::uint32_t share, std::uint32_t disposition) {
    if (disposition < CREATE_NEW || disposition > OPEN_ALWAYS) {
        return std::nullopt;
    }
    OpenRequest request;
    request.read = (access & GENERIC_READ) != 0;
    request.write = (access & GENERIC_WRITE) != 0;
    request.share = share;
    request.create = disposition != OPEN_EXISTING;
    request.mustBeNew = disposition == CREATE_NEW;
    request.empty = disposition == CREATE_ALWAYS;
    return request;
}

Handle createFile(Machine& machine, std::string_view path, std::uint32_t access, std::uint32_t share, std::uint32_t disposition) {
    const std::optional<OpenRequest> request = requestOf(access, share, disposition);
    const std::optional<DiskPath> place = request ? machine.files.placeOfFile(path) : std::nullopt;
    if (!place) {
        return invalidHandle;
    }
    int error = 0;
    const Handle handle = machine.handles.open("file", OpenFile::open(machine.files.sharing(), *place, *request, error));
    return handle != 0 ? handle : invalidHandle;
}

std::uint32_t fileSize(const Handles& handles, Handle handle, std::uint32_t& high) {
    const std::shared_ptr<OpenFile> file = handles.get<OpenFile>(handle);
    std::int64_t bytes = 0;
    if (!file || file->size(bytes) != 0) {
        return INVALID_FILE_SIZE;
    }
    high = static_cast<std::uint32_t>(static_cast<std::uint64_t>(bytes) >> 32);
    return static_cast<std::uint32_t>(bytes);
}

bool setFileTime(const Handles& handles, Handle handle, std::uint64_t created, std::uint64_t accessed, std::uint64_t written) {
    const std::shared_ptr<OpenFile> file = handles.get<OpenFile>(handle);
    return file && file->mayWrite() && file->setTimes(created, accessed, written) == 0;
}

std::int32_t openBinary(Machine& machine, std::string_view path, FileAccess access, Handle& number) {
    std::shared_ptr<BinaryFile> file;
    const std::int32_t error = BinaryFile::open(machine.files, path, access, file);
    if (error != 0) {
        return error;
    }
    const Handle opened = machine.handles.open("open file", std::move(file));
    if (opened == 0) {
        return tooManyFiles;
    }
    number = opened;
    return 0;
}

/// Calls `statement` with the file of that number.
template <class Statement> std::int32_t withFile(const Handles& handles, Handle number, Statement statement) {
    const std::shared_ptr<BinaryFile> file = handles.get<BinaryFile>(number);
    return file ? statement(*file) : badFileName;
}

/// True with the time in `result` if there is one.
bool give(const std::optional<std::uint64_t>& time, std::uint64_t& result) {
    result = time.value_or(result);
    return time.has_value();
}

} // namespace

void wireOpenFiles(Machine& machine) {
    const Files& files = machine.files;
    Handles& handles = machine.handles;

    Kernel32& kernel32 = machine.kernel32;
    kernel32.CreateFileA = [&](auto path, auto access, auto share, auto disposition) {
        return createFile(machine, path, access, share, disposition);
    };
    kernel32.GetFileSize = [&](auto file, auto& high) { return fileSize(handles, file, high); };
    kernel32.SetFileTime = [&](auto file, auto created, auto accessed, auto written) {
        return setFileTime(handles, file, created, accessed, written);
    };
    kernel32.CopyFileA = [&](auto from, auto to, auto failIfExists) { return copyFile(files, from, to, failIfExists); };
    kernel32.MoveFileA = [&](auto from, auto to) { return moveFile(files, from, to); };
    kernel32.FileTimeToLocalFileTime = [](auto time, auto& local) { return give(localFromUtc(time), local); };
    kernel32.LocalFileTimeToFileTime = [](auto local, auto& time) { return give(utcFromLocal(local), time); };
    kernel32.SystemTimeToFileTime = [](const auto& calendar, auto& time) { return give(fileTimeOf(calendar), time); };

    Runtime& runtime = machine.runtime;
    runtime.OpenBinary = [&](auto file, auto access, auto& number) { return openBinary(machine, file, access, number); };
    runtime.LengthOfFile = [&](auto number, auto& length) {
        return withFile(handles, number, [&](const BinaryFile& file) { return file.length(length); });
    };
    runtime.GetBytes = [&](auto number, auto position, auto bytes) {
        return withFile(handles, number, [&](const BinaryFile& file) { return file.get(position, bytes); });
    };
    runtime.PutBytes = [&](auto number, auto position, auto bytes) {
        return withFile(handles, number, [&](const BinaryFile& file) { return file.put(position, bytes); });
    };
    runtime.CloseFile = [&](auto number) { return handles.close<BinaryFile>(number) ? 0 : badFileName; };
}

} // namespace mox::host
