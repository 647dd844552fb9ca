// Identifiers and their text form.
#pragma once

#include <mox/abi/basetypes.h>

#include <array>
#include <optional>
#include <string_view>

namespace mox::automation {

/// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}" in upper case.
using GuidText = std::array<char16_t, 38>;
GuidText guidText(const GUID& id) noexcept;

/// The identifier of its text form, in any case; nothing for any other text.
std::optional<GUID> guidFromText(std::u16string_view text) noexcept;

/// The class that is registered under a ProgID. Fails with `CO_E_CLASSSTRING` if there is none.
HRESULT classOfProgId(std::u16string_view progId, CLSID& id);

} // namespace mox::automation
