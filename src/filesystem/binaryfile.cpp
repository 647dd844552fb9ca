#include "filesystem/binaryfile.h"

#include "core/ansi.h"
#include "core/statement.h"

namespace mox::server {

using platform::runtime;

BinaryFile::BinaryFile(const String& path, platform::FileAccess access) {
    statement(runtime().OpenBinary(toAnsi(path), access, number_));
}

BinaryFile::~BinaryFile() {
    runtime().CloseFile(number_);
}

std::int64_t BinaryFile::length() const {
    std::int64_t length = 0;
    statement(runtime().LengthOfFile(number_, length));
    return length;
}

void BinaryFile::read(std::int64_t position, std::span<char> bytes) const {
    statement(runtime().GetBytes(number_, position, bytes));
}

void BinaryFile::write(std::int64_t position, std::span<const char> bytes) {
    statement(runtime().PutBytes(number_, position, bytes));
}

} // namespace mox::server
