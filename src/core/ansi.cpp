#include "core/ansi.h"

#include "automation/objects/runtimeerror.h"

#include "platform/kernel32.h"

#include <span>

namespace mox::server {

using platform::CP_ACP;
using platform::kernel32;

namespace {

/// The count of a conversion of something, which has a result unless the conversion failed.
std::size_t converted(std::int32_t count) {
    if (count <= 0) {
        throw RuntimeError(errOutOfMemory);
    }
    return static_cast<std::size_t>(count);
}

} // namespace

std::string toAnsi(std::u16string_view text) {
    constexpr std::size_t mostBytesOfCharacter = 2;
    std::string bytes(text.size() * mostBytesOfCharacter, '\0');
    if (!text.empty()) {
        bytes.resize(converted(kernel32().WideCharToMultiByte(CP_ACP, text, bytes)));
    }
    return bytes;
}

String fromAnsi(std::string_view bytes) {
    if (bytes.empty()) {
        return {};
    }
    String text = String::ofLength(bytes.size());
    const std::size_t length = converted(kernel32().MultiByteToWideChar(CP_ACP, bytes, std::span(text.data(), bytes.size())));
    text.truncate(length);
    return text;
}

String fromAnsiToNul(std::string_view buffer) {
    return fromAnsi(buffer.substr(0, buffer.find('\0')));
}

} // namespace mox::server
