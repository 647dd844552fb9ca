#include "automation/types/guid.h"

#include "automation/types/characters.h"

#include <mox/abi/functions.h>

#include <algorithm>
#include <sys/random.h>

namespace mox::automation {

namespace {

constexpr std::u16string_view pattern = u"{33221100-5544-7766-8899-AABBCCDDEEFF}";

using Bytes = std::array<std::uint8_t, sizeof(GUID)>;

Bytes bytesOf(const GUID& id) {
    Bytes bytes{static_cast<std::uint8_t>(id.Data1),       static_cast<std::uint8_t>(id.Data1 >> 8),
                static_cast<std::uint8_t>(id.Data1 >> 16), static_cast<std::uint8_t>(id.Data1 >> 24),
                static_cast<std::uint8_t>(id.Data2),       static_cast<std::uint8_t>(id.Data2 >> 8),
                static_cast<std::uint8_t>(id.Data3),       static_cast<std::uint8_t>(id.Data3 >> 8)};
    std::ranges::copy(id.Data4, bytes.begin() + 8);
    return bytes;
}

GUID guidOf(const Bytes& bytes) {
    GUID id{};
    id.Data1 = static_cast<std::uint32_t>(bytes[0] | bytes[1] << 8 | bytes[2] << 16) | static_cast<std::uint32_t>(bytes[3]) << 24;
    id.Data2 = static_cast<std::uint16_t>(bytes[4] | bytes[5] << 8);
    id.Data3 = static_cast<std::uint16_t>(bytes[6] | bytes[7] << 8);
    std::copy(bytes.begin() + 8, bytes.end(), id.Data4);
    return id;
}

} // namespace

GuidText guidText(const GUID& id) noexcept {
    const Bytes bytes = bytesOf(id);
    GuidText text{};
    for (std::size_t place = 0; place < text.size(); ++place) {
        // A pair of equal digits of the pattern is the number of the byte that stands there.
        const int byte = digitOf(pattern[place], 16);
        if (byte < 0) {
            text[place] = pattern[place];
        } else {
            text[place] = u"0123456789ABCDEF"[bytes[byte] >> 4];
            text[++place] = u"0123456789ABCDEF"[bytes[byte] & 15];
        }
    }
    return text;
}

std::optional<GUID> guidFromText(std::u16string_view text) noexcept {
    if (text.size() != pattern.size()) {
        return std::nullopt;
    }
    Bytes bytes{};
    for (std::size_t place = 0; place < text.size(); ++place) {
        const int byte = digitOf(pattern[place], 16);
        if (byte < 0) {
            if (text[place] != pattern[place]) {
                return std::nullopt;
            }
            continue;
        }
        const int high = digitOf(text[place], 16);
        const int low = digitOf(text[++place], 16);
        if (high < 0 || low < 0) {
            return std::nullopt;
        }
        bytes[byte] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return guidOf(bytes);
}

} // namespace mox::automation

using namespace mox::automation;

HRESULT CoCreateGuid(GUID* pguid) {
    if (!pguid) {
        return E_INVALIDARG;
    }
    // So few bytes come whole, or not at all.
    if (getrandom(pguid, sizeof *pguid, 0) != static_cast<ssize_t>(sizeof *pguid)) {
        *pguid = GUID_NULL;
        return E_FAIL;
    }
    // The marks of a random identifier: version 4, variant 1 (RFC 9562, section 5.4).
    pguid->Data3 = static_cast<std::uint16_t>((pguid->Data3 & 0x0FFF) | 0x4000);
    pguid->Data4[0] = static_cast<std::uint8_t>((pguid->Data4[0] & 0x3F) | 0x80);
    return S_OK;
}

BOOL IsEqualGUID(REFGUID rguid1, REFGUID rguid2) {
    return rguid1 == rguid2;
}

INT StringFromGUID2(REFGUID rguid, LPOLESTR lpsz, INT cchMax) {
    const GuidText text = guidText(rguid);
    constexpr INT needed = static_cast<INT>(text.size()) + 1;
    if (!lpsz || cchMax < needed) {
        return 0;
    }
    *std::ranges::copy(text, lpsz).out = 0;
    return needed;
}

HRESULT StringFromCLSID(REFCLSID rclsid, LPOLESTR* lplpsz) {
    if (!lplpsz) {
        return E_INVALIDARG;
    }
    constexpr INT size = std::tuple_size_v<GuidText> + 1;
    *lplpsz = static_cast<LPOLESTR>(CoTaskMemAlloc(size * sizeof(OLECHAR)));
    if (!*lplpsz) {
        return E_OUTOFMEMORY;
    }
    StringFromGUID2(rclsid, *lplpsz, size);
    return S_OK;
}

HRESULT StringFromIID(REFIID rclsid, LPOLESTR* lplpsz) {
    return StringFromCLSID(rclsid, lplpsz);
}

HRESULT CLSIDFromString(LPCOLESTR lpsz, CLSID* pclsid) {
    if (!pclsid) {
        return E_INVALIDARG;
    }
    *pclsid = GUID_NULL;
    if (!lpsz) {
        return S_OK; // no text stands for no class
    }
    const std::u16string_view text(lpsz);
    if (text.starts_with(u'{')) {
        const std::optional<GUID> id = guidFromText(text);
        *pclsid = id.value_or(GUID_NULL);
        return id ? S_OK : CO_E_CLASSSTRING;
    }
    return text.empty() ? CO_E_CLASSSTRING : classOfProgId(text, *pclsid);
}

HRESULT IIDFromString(LPCOLESTR lpsz, IID* lpiid) {
    if (!lpiid) {
        return E_INVALIDARG;
    }
    *lpiid = GUID_NULL;
    if (!lpsz) {
        return S_OK;
    }
    const std::optional<GUID> id = guidFromText(lpsz);
    *lpiid = id.value_or(GUID_NULL);
    return id ? S_OK : CO_E_IIDSTRING;
}
