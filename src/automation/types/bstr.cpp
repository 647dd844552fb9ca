// Counted strings: the length in bytes lies in the four bytes before the first character.
#include "automation/types/bstr.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace {

// The length needs four bytes; the four before it keep the text on a multiple of eight, as bytes that travel in a string
// may be numbers of any size.
constexpr std::size_t prefixSize = 8;
constexpr UINT longest = 0x7FFFFFF0;
constexpr UINT longestCharacters = longest / sizeof(OLECHAR);

std::byte* blockOf(BSTR text) {
    return reinterpret_cast<std::byte*>(text) - prefixSize;
}

/// Writes the length, and the NUL character behind the text.
BSTR finish(void* block, UINT byteLength) {
    std::byte* text = static_cast<std::byte*>(block) + prefixSize;
    std::memcpy(text - sizeof byteLength, &byteLength, sizeof byteLength);
    if (byteLength % sizeof(OLECHAR) != 0) {
        text[byteLength++] = std::byte{0};
    }
    const OLECHAR end = 0;
    std::memcpy(text + byteLength, &end, sizeof end);
    return reinterpret_cast<BSTR>(text);
}

std::size_t blockSize(UINT byteLength) {
    return prefixSize + byteLength + byteLength % sizeof(OLECHAR) + sizeof(OLECHAR);
}

BSTR allocate(UINT byteLength) {
    void* block = std::malloc(blockSize(byteLength));
    return block ? finish(block, byteLength) : nullptr;
}

} // namespace

BSTR SysAllocString(LPCOLESTR psz) {
    if (!psz) {
        return nullptr;
    }
    const std::size_t length = std::u16string_view(psz).size();
    return length <= longestCharacters ? SysAllocStringLen(psz, static_cast<UINT>(length)) : nullptr;
}

BSTR SysAllocStringLen(LPCOLESTR strIn, UINT ui) {
    if (ui > longestCharacters) {
        return nullptr;
    }
    const UINT byteLength = ui * static_cast<UINT>(sizeof(OLECHAR));
    BSTR text = allocate(byteLength);
    if (text && strIn) {
        std::memcpy(text, strIn, byteLength);
    }
    return text;
}

BSTR SysAllocStringByteLen(const char* psz, UINT len) {
    if (len > longest) {
        return nullptr;
    }
    BSTR text = allocate(len);
    if (text && psz) {
        std::memcpy(text, psz, len);
    }
    return text;
}

INT SysReAllocString(BSTR* pbstr, LPCOLESTR psz) {
    if (!pbstr) {
        return 0;
    }
    // The new text may be a part of the old one, which so has to live until it is copied.
    BSTR fresh = SysAllocString(psz);
    if (psz && !fresh) {
        return 0;
    }
    SysFreeString(*pbstr);
    *pbstr = fresh;
    return 1;
}

INT SysReAllocStringLen(BSTR* pbstr, LPCOLESTR psz, UINT len) {
    if (!pbstr || len > longestCharacters) {
        return 0;
    }
    if (!psz && *pbstr) {
        const UINT byteLength = len * static_cast<UINT>(sizeof(OLECHAR));
        void* block = std::realloc(blockOf(*pbstr), blockSize(byteLength));
        if (!block) {
            return 0;
        }
        *pbstr = finish(block, byteLength);
        return 1;
    }
    BSTR fresh = SysAllocStringLen(psz, len);
    if (!fresh) {
        return 0;
    }
    SysFreeString(*pbstr);
    *pbstr = fresh;
    return 1;
}

void SysFreeString(BSTR bstrString) {
    if (bstrString) {
        std::free(blockOf(bstrString));
    }
}

UINT SysStringLen(BSTR bstr) {
    return SysStringByteLen(bstr) / static_cast<UINT>(sizeof(OLECHAR));
}

UINT SysStringByteLen(BSTR bstr) {
    UINT byteLength = 0;
    if (bstr) {
        std::memcpy(&byteLength, reinterpret_cast<const std::byte*>(bstr) - sizeof byteLength, sizeof byteLength);
    }
    return byteLength;
}

namespace mox::automation {

HRESULT copyText(BSTR source, BSTR& copy) noexcept {
    copy = nullptr;
    if (source) {
        copy = SysAllocStringByteLen(reinterpret_cast<const char*>(source), SysStringByteLen(source));
        return copy ? S_OK : E_OUTOFMEMORY;
    }
    return S_OK;
}

HRESULT newText(std::string_view ascii, BSTR& text) noexcept {
    text = SysAllocStringLen(nullptr, static_cast<UINT>(ascii.size()));
    if (!text) {
        return E_OUTOFMEMORY;
    }
    std::copy(ascii.begin(), ascii.end(), text);
    return S_OK;
}

} // namespace mox::automation
