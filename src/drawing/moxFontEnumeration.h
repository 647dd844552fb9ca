#pragma once

#include "TRL_OBKR_MOX/moxFontEnumeration.h"

#include "core/modMoxHub.h"

#include "platform/types.h"

#include <vector>

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// A list of fonts, sorted by name. Indexes beyond it give zero and empty values.
class moxFontEnumeration final : public Implements<moxFontEnumeration> {
public:
    Long get_Count() { return static_cast<Long>(fonts_.size()); }
    moX_FONT_FAMILY get_Family(Long Index);
    String get_Name(Long Index);
    moX_FONT_PITCH get_Pitch(Long Index);
    Boolean get_Symbol(Long Index);

    /// For `moxFont`: fills the list with the fonts of a context, 0 for the screen, unless it holds them already.
    void Enumerate(platform::Handle hDC);

private:
    /// An empty entry for an index beyond the list.
    const modMoxHub::FontEntry& entry(Long index) const;

    std::vector<modMoxHub::FontEntry> fonts_;
    platform::Handle listedContext_ = 0;
    bool isListed_ = false;
};

} // namespace mox::server
