#include "host/files/binaryfile.h"

#include "host/files/filestatements.h"
#include "host/files/runtimeerrors.h"

#include "platform/kernel32.h"

namespace mox::host {

using platform::FileAccess;

std::int32_t BinaryFile::open(const Files& files, std::string_view path, FileAccess access, std::shared_ptr<BinaryFile>& result) {
    const std::optional<DiskPath> place = files.placeOfFile(path);
    if (!place) {
        return errorOfPath(files, path);
    }
    OpenRequest request;
    request.read = access != FileAccess::write;
    request.write = access != FileAccess::read;
    request.share = platform::FILE_SHARE_READ | platform::FILE_SHARE_WRITE;
    request.create = true;
    int error = 0;
    if (std::shared_ptr<OpenFile> file = OpenFile::open(files.sharing(), *place, request, error)) {
        result = std::make_shared<BinaryFile>(std::move(file), access);
    }
    return runtimeErrorOf(error);
}

std::int32_t BinaryFile::length(std::int64_t& bytes) const {
    return runtimeErrorOf(file_->size(bytes));
}

std::int32_t BinaryFile::get(std::int64_t position, std::span<char> bytes) const {
    if (access_ == FileAccess::write) {
        return badFileMode;
    }
    if (position < 0) {
        return badRecordNumber;
    }
    std::size_t count = 0;
    const std::int32_t error = runtimeErrorOf(file_->read(position, bytes, count));
    return error == 0 && count < bytes.size() ? inputPastEnd : error;
}

std::int32_t BinaryFile::put(std::int64_t position, std::span<const char> bytes) const {
    if (access_ == FileAccess::read) {
        return badFileMode;
    }
    return position < 0 ? badRecordNumber : runtimeErrorOf(file_->write(position, bytes));
}

} // namespace mox::host
