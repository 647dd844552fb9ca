// The class table of the platform itself.
#include "host/pictures/Global.h"
#include "host/pictures/PropertyBag.h"
#include "host/pictures/Screen.h"
#include "host/pictures/StdFont.h"
#include "host/pictures/StdPicture.h"

#include "automation/objects/module.h"

namespace mox {

namespace {

using namespace runtime;
namespace description = MoxRuntime::description;

template <class Class> Ref<IDispatch> make() {
    return makeObject<Class>();
}

constexpr ClassEntry classTable[] = {
    {description::StdFont, &make<StdFont>},
    {description::StdPicture, &make<StdPicture>},
    {description::PropertyBag, &make<PropertyBag>},
    {description::Screen, &make<Screen>},
    {description::Global, &make<Global>},
    // Described, but without code yet.
    {description::Form, nullptr},
    {description::Controls, nullptr},
    {description::PictureBox, nullptr},
    {description::Label, nullptr},
    {description::ComboBox, nullptr},
    {description::HScrollBar, nullptr},
    {description::VScrollBar, nullptr},
};

} // namespace

const ServerModule& platformModule() {
    // Never destroyed: at the end of the process objects may outlive every order of destruction.
    static const ServerModule& module = *std::make_unique<ServerModule>(description::library, classTable).release();
    return module;
}

namespace {

// The library is known from the start, not only once somebody creates an object.
[[maybe_unused]] const ServerModule& madeAtStart = platformModule();

} // namespace

} // namespace mox
