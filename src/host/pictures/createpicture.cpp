#include "host/pictures/createpicture.h"

#include "host/machine/machine.h"
#include "host/pictures/StdPicture.h"

#include <new>

namespace mox::host {

HRESULT createPicture(Machine& machine, const platform::PICTDESC* description, REFIID iid, bool owns, void** result) noexcept {
    if (!result) {
        return E_POINTER;
    }
    *result = nullptr;
    try {
        const auto content =
            description ? contentOf(machine.graphics, *description) : PictureContent{.type = pictureUninitialized, .size = {}};
        if (!content) {
            return E_INVALIDARG;
        }
        const auto picture = makeObject<runtime::StdPicture>(*content);
        const HRESULT status = picture->QueryInterface(iid, result);
        if (SUCCEEDED(status) && owns) {
            implementationOf<runtime::StdPicture>(picture.get())->own();
        }
        return status;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

} // namespace mox::host

HRESULT OleCreatePictureIndirect(const PICTDESC* lpPictDesc, REFIID riid, BOOL fOwn, PVOID* lplpvObj) {
    if (lplpvObj) {
        *lplpvObj = nullptr;
    }
    mox::host::Machine& machine = mox::host::Machine::current();
    if (!lpPictDesc) {
        return mox::host::createPicture(machine, nullptr, riid, fOwn != 0, lplpvObj);
    }
    if (!lplpvObj) {
        return E_POINTER;
    }
    const mox::platform::PICTDESC description{lpPictDesc->cbSizeofstruct, lpPictDesc->picType, lpPictDesc->handle,
                                              lpPictDesc->hpal};
    return machine.oleaut32.OleCreatePictureIndirect(description, riid, fOwn != 0, lplpvObj);
}
