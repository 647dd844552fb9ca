#include "host/pictures/createpicture.h"

#include "host/machine/machine.h"
#include "host/pictures/StdPicture.h"

#include <new>

namespace mox::host {

namespace {

/// A property of a foreign object as a number.
std::optional<Long> numberOf(IDispatch& object, DISPID id) {
    DISPPARAMS none{};
    Variant value;
    Variant number;
    if (FAILED(object.Invoke(id, GUID_NULL, 0, DISPATCH_PROPERTYGET, &none, value.out(), nullptr, nullptr)) ||
        FAILED(VariantChangeType(&number, &value, 0, VT_I4))) {
        return std::nullopt;
    }
    return number.lVal;
}

} // namespace

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

Ref<MoxRuntime::IPictureDisp> ownedPicture(const PictureContent& content) {
    try {
        const auto picture = makeObject<runtime::StdPicture>(content);
        implementationOf<runtime::StdPicture>(picture.get())->own();
        return picture;
    } catch (...) {
        freeContent(content);
        throw;
    }
}

std::optional<PictureContent> contentOfObject(const Graphics& graphics, IUnknown* object) {
    if (const auto* const picture = implementationOf<runtime::StdPicture>(object)) {
        return picture->content();
    }
    const Ref<MoxRuntime::IPictureDisp> foreign = Ref<IUnknown>(object).as<MoxRuntime::IPictureDisp>();
    if (!foreign) {
        return std::nullopt;
    }
    constexpr DISPID handleId = 0;
    constexpr DISPID typeId = 3;
    constexpr DISPID widthId = 4;
    constexpr DISPID heightId = 5;
    const std::optional<Long> type = numberOf(*foreign, typeId);
    const std::optional<Long> handle = numberOf(*foreign, handleId);
    if (!type || !handle) {
        return std::nullopt;
    }
    if (*type <= pictureNone) {
        return PictureContent();
    }
    std::optional<PictureContent> content = contentOf(graphics, {16, static_cast<std::uint32_t>(*type), *handle, 0});
    if (content && content->type == pictureMetafile) {
        content->size = {numberOf(*foreign, widthId).value_or(0), numberOf(*foreign, heightId).value_or(0)};
    }
    return content;
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
