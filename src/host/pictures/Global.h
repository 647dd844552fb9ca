#pragma once

// Arguments of Load and Unload have the name of a base class.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
#include "MoxRuntime/Global.h"
#pragma GCC diagnostic pop

namespace mox::runtime {

/// What programs reach without creating anything.
class Global final : public Implements<Global> {
public:
    Ref<MoxRuntime::_Screen> get_Screen() const;
    /// Error 445: there are no forms yet.
    void Load(IDispatch* object) const;
    /// Error 445: there are no forms yet.
    void Unload(IDispatch* object) const;
    Ref<MoxRuntime::IPictureDisp> LoadPicture(const Variant& fileName) const;
    void SavePicture(MoxRuntime::IPictureDisp* picture, const String& fileName) const;
};

} // namespace mox::runtime
