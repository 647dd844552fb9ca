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
    /// An empty picture without a name, and for an empty one. Error 53 or 76 for a file that is not there, 75 for one that cannot
    /// be read, 481 for what is no image, 7 for one of absurd size.
    Ref<MoxRuntime::IPictureDisp> LoadPicture(const Variant& fileName) const;
    /// In the format of its kind; the file is replaced when it is written completely. Error 380 for an empty picture, 61, 70, 75
    /// and 76 for a file that cannot be written.
    void SavePicture(MoxRuntime::IPictureDisp* picture, const String& fileName) const;
};

} // namespace mox::runtime
