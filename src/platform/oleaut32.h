// oleaut32: picture objects. The types of OLE Automation are with the automation layer.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

#include <mox/automation.h>

namespace mox::platform {

inline constexpr std::uint32_t PICTYPE_NONE = 0;
inline constexpr std::uint32_t PICTYPE_BITMAP = 1;
inline constexpr std::uint32_t PICTYPE_METAFILE = 2;
inline constexpr std::uint32_t PICTYPE_ICON = 3;
inline constexpr std::uint32_t PICTYPE_ENHMETAFILE = 4;

/// What a picture object is made of.
struct PICTDESC {
    std::uint32_t cbSizeofstruct = 16;
    std::uint32_t picType = PICTYPE_NONE;
    Handle handle = 0;
    /// The palette of a bitmap. Of an old-style metafile, its extents in hundredths of a millimetre: width in the low, height in
    /// the high word.
    std::int32_t hpal = 0;
};

struct Oleaut32 : SystemLibrary {
    Oleaut32() : SystemLibrary("oleaut32") {}

    /// A new picture object. With `owns` it frees the handle with its last reference; on failure the handle stays the caller's.
    Operation<HRESULT(const PICTDESC& description, const GUID& interfaceId, bool owns, void** object)> OleCreatePictureIndirect{
        *this, "OleCreatePictureIndirect", E_FAIL};
};

/// Of the present machine.
MOX_API Oleaut32& oleaut32();

} // namespace mox::platform
