// Owners of what GIO gives out.
#pragma once

#include <gio/gio.h>

#include <memory>

namespace mox::host {

struct FreeGText {
    void operator()(char* text) const noexcept { g_free(text); }
};
using GText = std::unique_ptr<char, FreeGText>;

struct ReleaseGObject {
    void operator()(gpointer object) const noexcept { g_object_unref(object); }
};
template <class Type> using GObjectHolder = std::unique_ptr<Type, ReleaseGObject>;

} // namespace mox::host
