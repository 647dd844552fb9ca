// Helpers of this folder for counted strings.
#pragma once

#include <mox/abi/functions.h>

#include <string_view>

namespace mox::automation {

/// A copy of a counted string, byte for byte; nothing stays nothing. Fails with `E_OUTOFMEMORY`.
HRESULT copyText(BSTR source, BSTR& copy) noexcept;

/// A new counted string of ASCII characters. Fails with `E_OUTOFMEMORY`.
HRESULT newText(std::string_view ascii, BSTR& text) noexcept;

/// The characters of a counted string.
inline std::u16string_view viewOf(BSTR text) noexcept {
    return text ? std::u16string_view(text, SysStringLen(text)) : std::u16string_view();
}

} // namespace mox::automation
