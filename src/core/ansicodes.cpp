#include "core/ansicodes.h"

#include "automation/objects/runtimeerror.h"

#include "platform/kernel32.h"

namespace mox::server {

using platform::CP_ACP;
using platform::kernel32;

AnsiCodes::AnsiCodes(std::u16string_view text) : count_(text.size()), bytes_(std::make_unique_for_overwrite<Byte[]>(count_)) {
    auto* const bytes = reinterpret_cast<char*>(bytes_.get());
    if (kernel32().WideCharToMultiByte(CP_ACP, text, {bytes, count_}) == static_cast<Long>(count_)) {
        return;
    }
    // There is no room, for some characters have two bytes: which, only each one by itself can tell.
    wide_.reserve(count_);
    for (const char16_t& character : text) {
        std::array<char, 2> pair{};
        const auto length = kernel32().WideCharToMultiByte(CP_ACP, {&character, 1}, pair);
        if (length <= 0) {
            throw RuntimeError(errOutOfMemory);
        }
        const auto lead = static_cast<Byte>(pair[0]);
        wide_.push_back(length == 2 ? static_cast<std::uint16_t>(lead << 8 | static_cast<Byte>(pair[1])) : lead);
    }
}

char16_t AnsiCharacters::lookUp(Byte code) {
    const char byte = static_cast<char>(code);
    if (kernel32().MultiByteToWideChar(CP_ACP, {&byte, 1}, {&characters_[code], 1}) <= 0) {
        throw RuntimeError(errOutOfMemory);
    }
    return characters_[code];
}

} // namespace mox::server
