#include "host/graphics/wire_graphics.h"
#include "host/machine/wiring.h"
#include "host/pictures/createpicture.h"

#include "automation/objects/activation.h"

namespace mox::host {

namespace {

constexpr std::int32_t cannotCreateObject = 429;

std::int32_t createObject(const GUID& classId, Ref<IDispatch>& object) {
    Ref<IClassFactory> factory;
    const HRESULT found =
        automation::Servers::ofProcess().getClassObject(classId, IID_IClassFactory, reinterpret_cast<void**>(factory.out()));
    const bool isMade =
        SUCCEEDED(found) && SUCCEEDED(factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(object.out())));
    return isMade ? 0 : cannotCreateObject;
}

} // namespace

void wirePictures(Machine& machine) {
    machine.oleaut32.OleCreatePictureIndirect = [&](auto& description, auto& iid, bool owns, void** object) {
        return createPicture(machine, &description, iid, owns, object);
    };
    machine.runtime.New = [](auto& classId, auto& object) { return createObject(classId, object); };
}

} // namespace mox::host
