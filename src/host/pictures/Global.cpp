#include "host/pictures/Global.h"

#include "host/machine/machine.h"
#include "host/pictures/Screen.h"
#include "host/pictures/StdPicture.h"
#include "host/pictures/contentimage.h"
#include "host/pictures/createpicture.h"
#include "host/pictures/errornumbers.h"
#include "host/pictures/wholefile.h"

namespace mox::runtime {

namespace {

bool isMissing(const Variant& argument) {
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

void raiseUnlessDone(std::int32_t error) {
    if (error != 0) {
        throw RuntimeError(error);
    }
}

/// Runs `task` and raises what image files raise.
template <class Task> auto withImages(Task&& task) {
    try {
        return task();
    } catch (const host::ImageError& error) {
        throw RuntimeError(error.kind() == host::ImageError::Kind::tooLarge ? errOutOfMemory : errInvalidPicture);
    }
}

} // namespace

Ref<MoxRuntime::_Screen> Global::get_Screen() const {
    return makeObject<Screen>();
}

void Global::Load(IDispatch*) const {
    throw RuntimeError(errActionNotSupported);
}

void Global::Unload(IDispatch*) const {
    throw RuntimeError(errActionNotSupported);
}

Ref<MoxRuntime::IPictureDisp> Global::LoadPicture(const Variant& fileName) const {
    const String name = isMissing(fileName) ? String() : fileName.as<String>();
    if (name.empty()) {
        return makeObject<StdPicture>();
    }
    host::Machine& machine = host::Machine::current();
    std::vector<std::byte> file;
    raiseUnlessDone(host::readWholeFile(machine.files, machine.codePage.fromUtf16(name), file));
    return withImages([&] { return host::ownedPicture(host::addImage(machine.graphics, host::readImage(file))); });
}

void Global::SavePicture(MoxRuntime::IPictureDisp* picture, const String& fileName) const {
    if (!picture) {
        throw RuntimeError(errObjectNotSet);
    }
    const host::Machine& machine = host::Machine::current();
    const auto content = host::contentOfObject(machine.graphics, picture);
    if (!content || content->type <= host::pictureNone) {
        throw RuntimeError(errInvalidProperty);
    }
    const auto file = withImages([&] { return host::writeImage(host::imageOf(machine.graphics, *content)); });
    raiseUnlessDone(host::writeWholeFile(machine.files, machine.codePage.fromUtf16(fileName), file));
}

} // namespace mox::runtime
