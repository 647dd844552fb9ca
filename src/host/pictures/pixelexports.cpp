// The exported functions for pictures in other languages.
#include "host/machine/machine.h"
#include "host/pictures/contentimage.h"
#include "host/pictures/createpicture.h"
#include "host/pictures/errornumbers.h"
#include "host/pictures/imagelimits.h"
#include "host/pictures/pixelrows.h"
#include "host/pictures/pngfile.h"

#include <new>

namespace mox::host {

namespace {

HRESULT statusOf(const ImageError& error) {
    return error.kind() == ImageError::Kind::tooLarge ? E_OUTOFMEMORY : statusOfRuntimeError(runtime::errInvalidPicture);
}

template <class Task> HRESULT guarded(Task&& task) noexcept {
    SetErrorInfo(0, nullptr); // none that is pending may seem to belong to this call
    try {
        return task();
    } catch (const ImageError& error) {
        return statusOf(error);
    } catch (const StatusError& error) {
        return error.status();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

/// The bitmap of a picture with pixels. Throws `StatusError`.
std::shared_ptr<const Bitmap> bitmapOfObject(Machine& machine, IUnknown* picture) {
    const auto content = contentOfObject(machine.graphics, picture);
    if (!content || content->type <= pictureNone) {
        throw StatusError(E_INVALIDARG);
    }
    return bitmapOf(machine, *content);
}

platform::RECT areaOf(LONG x, LONG y, LONG cx, LONG cy) {
    constexpr std::int64_t most = 0x7FFFFFFF;
    const bool isArea = cx > 0 && cy > 0 && std::int64_t{x} + cx <= most && std::int64_t{y} + cy <= most;
    if (!isArea) {
        throw StatusError(E_INVALIDARG);
    }
    checkedImageBytes(cx, cy, 32);
    return {x, y, x + cx, y + cy};
}

bool contains(const platform::RECT& outer, const platform::RECT& inner) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right && inner.bottom <= outer.bottom;
}

std::span<Pixel> rowsOf(BYTE* rows, std::size_t size, LONG cx, LONG cy) {
    if (!rows || cx <= 0 || cy <= 0 || size != std::size_t{4} * static_cast<std::size_t>(cx) * static_cast<std::size_t>(cy)) {
        throw StatusError(E_INVALIDARG);
    }
    return {reinterpret_cast<Pixel*>(rows), size / sizeof(Pixel)};
}

std::shared_ptr<DeviceContext> contextOf(Machine& machine, LONG hdc) {
    auto context = machine.graphics.context(hdc);
    if (!context) {
        throw StatusError(E_INVALIDARG);
    }
    return context;
}

/// True if the area is on the surface of the context, by its device coordinates.
bool isOnSurface(const DeviceContext& context, const platform::RECT& area) {
    const SignedRect device = context.toDevice(SignedRect{area.left, area.top, area.right - area.left, area.bottom - area.top});
    return device.cx > 0 && device.cy > 0 &&
           contains(context.canvas().bounds(), {device.x, device.y, device.x + device.cx, device.y + device.cy});
}

/// Fills a result place with a picture that owns `image`.
HRESULT givePicture(Machine& machine, Image image, REFIID iid, PVOID* result) {
    return ownedPicture(addImage(machine.graphics, std::move(image)))->QueryInterface(iid, result);
}

} // namespace

} // namespace mox::host

namespace platform = mox::platform;
using namespace mox::host;

HRESULT MoxGetPixelSize(IUnknown* picture, LONG hdc, LONG* width, LONG* height) {
    if (!width || !height) {
        return E_POINTER;
    }
    return guarded([&] {
        Machine& machine = Machine::current();
        if (picture) {
            const auto bitmap = bitmapOfObject(machine, picture);
            *width = bitmap->width();
            *height = bitmap->height();
        } else {
            const platform::RECT bounds = contextOf(machine, hdc)->canvas().bounds();
            *width = bounds.right - bounds.left;
            *height = bounds.bottom - bounds.top;
        }
        return S_OK;
    });
}

HRESULT MoxGetPixels(IUnknown* picture, LONG hdc, LONG x, LONG y, LONG cx, LONG cy, BYTE* rows, std::size_t size) {
    return guarded([&] {
        Machine& machine = Machine::current();
        const platform::RECT area = areaOf(x, y, cx, cy);
        const std::span<Pixel> place = rowsOf(rows, size, cx, cy);
        if (picture) {
            const auto bitmap = bitmapOfObject(machine, picture);
            if (!contains(bitmap->bounds(), area)) {
                return E_INVALIDARG;
            }
            copyRows(*bitmap, area, place);
            return S_OK;
        }
        if (!isOnSurface(*contextOf(machine, hdc), area)) {
            return E_INVALIDARG;
        }
        const auto bitmap = bitmapOf(machine, hdc, area);
        if (!bitmap) {
            return E_FAIL;
        }
        copyRows(*bitmap, bitmap->bounds(), place);
        return S_OK;
    });
}

HRESULT MoxCreatePicture(LONG width, LONG height, const BYTE* rows, std::size_t size, REFIID riid, PVOID* picture) {
    if (!picture) {
        return E_POINTER;
    }
    *picture = nullptr;
    return guarded([&] {
        const std::span<const Pixel> pixels = rowsOf(const_cast<BYTE*>(rows), size, width, height);
        checkedImageBytes(width, height, 32);
        auto bitmap = createImage({.width = width, .height = height});
        std::memcpy(bitmap->bytes().data(), pixels.data(), size);
        return givePicture(Machine::current(), std::move(bitmap), riid, picture);
    });
}

HRESULT MoxLoadPicture(const BYTE* file, std::size_t size, REFIID riid, PVOID* picture) {
    if (!picture) {
        return E_POINTER;
    }
    *picture = nullptr;
    return guarded([&] {
        return givePicture(Machine::current(), readImage(std::as_bytes(std::span(file, file ? size : 0))), riid, picture);
    });
}

HRESULT MoxSavePicture(IUnknown* picture, BOOL asPng, SAFEARRAY** file) {
    if (!file) {
        return E_POINTER;
    }
    *file = nullptr;
    return guarded([&] {
        Machine& machine = Machine::current();
        const auto content = contentOfObject(machine.graphics, picture);
        if (!content || content->type <= pictureNone) {
            return E_INVALIDARG;
        }
        const std::vector<std::byte> bytes =
            asPng ? writePng(*bitmapOf(machine, *content)) : writeImage(imageOf(machine.graphics, *content));
        *file = mox::Array<mox::Byte>(std::span(reinterpret_cast<const mox::Byte*>(bytes.data()), bytes.size())).detach();
        return S_OK;
    });
}
