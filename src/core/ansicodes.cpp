#include "core/ansicodes.h"

#include "platform/kernel32.h"

#include <algorithm>

namespace mox::server {

using platform::CP_ACP;
using platform::kernel32;

std::vector<std::uint16_t> ansiCodes(std::u16string_view text) {
    constexpr std::size_t longestPiece = 4096;
    std::vector<std::uint16_t> codes;
    codes.reserve(text.size());
    std::array<char, 2 * longestPiece> bytes;
    while (!text.empty()) {
        const std::u16string_view piece = text.substr(0, longestPiece);
        const auto count = static_cast<std::size_t>(kernel32().WideCharToMultiByte(CP_ACP, piece, bytes));
        if (count == piece.size()) {
            const auto* first = reinterpret_cast<const Byte*>(bytes.data());
            codes.insert(codes.end(), first, first + count);
        } else {
            // Some characters have two bytes: which, only each one by itself can tell.
            for (const char16_t& c : piece) {
                const auto length = kernel32().WideCharToMultiByte(CP_ACP, {&c, 1}, bytes);
                const auto lead = static_cast<Byte>(bytes[0]);
                codes.push_back(length == 2 ? static_cast<std::uint16_t>(lead << 8 | static_cast<Byte>(bytes[1])) : lead);
            }
        }
        text.remove_prefix(piece.size());
    }
    return codes;
}

char16_t AnsiCharacters::lookUp(Byte code) {
    const char byte = static_cast<char>(code);
    char16_t character = 0;
    kernel32().MultiByteToWideChar(CP_ACP, {&byte, 1}, {&character, 1});
    return character;
}

} // namespace mox::server
