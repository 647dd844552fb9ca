#include "host/pictures/contentimage.h"

#include "host/graphics/graphics.h"

namespace mox::host {

namespace {

/// Adds each kind of image; `size` is that of an old-style metafile.
struct Adding {
    Graphics& graphics;
    platform::PICTDESC description;
    platform::SIZE size;

    void operator()(std::shared_ptr<Bitmap>&& bitmap) {
        description.picType = platform::PICTYPE_BITMAP;
        description.handle = graphics.add(std::move(bitmap));
    }
    void operator()(Icon&& icon) {
        description.picType = platform::PICTYPE_ICON;
        description.handle = graphics.add("icon", std::move(icon));
    }
    void operator()(PlacedMetafile&& placed) {
        description.picType = platform::PICTYPE_METAFILE;
        description.handle = graphics.add("metafile", std::move(placed.metafile));
        size = placed.size;
    }
    void operator()(EnhancedMetafile&& metafile) {
        description.picType = platform::PICTYPE_ENHMETAFILE;
        description.handle = graphics.add("metafile", std::move(metafile));
    }
};

template <class Object> Image imageOfObject(const Graphics& graphics, platform::Handle handle) {
    const auto object = graphics.object<Object>(handle);
    requireImage(object != nullptr);
    return *object;
}

} // namespace

PictureContent addImage(Graphics& graphics, Image image) {
    Adding adding{graphics, {}, {}};
    std::visit([&](auto&& kind) { adding(std::move(kind)); }, std::move(image));
    if (adding.description.handle == 0) {
        throw ImageError(ImageError::Kind::tooLarge);
    }
    std::optional<PictureContent> content = contentOf(graphics, adding.description);
    if (content && content->type == pictureMetafile) {
        content->size = adding.size; // more than a description can say
    }
    return content.value_or(PictureContent());
}

Image imageOf(const Graphics& graphics, const PictureContent& content) {
    switch (content.type) {
    case pictureBitmap: {
        auto bitmap = graphics.bitmap(content.handle);
        requireImage(bitmap != nullptr);
        return bitmap;
    }
    case pictureMetafile: {
        const auto metafile = graphics.object<OldMetafile>(content.handle);
        requireImage(metafile != nullptr);
        return PlacedMetafile{*metafile, content.size};
    }
    case pictureIcon:
        return imageOfObject<Icon>(graphics, content.handle);
    case pictureEnhancedMetafile:
        return imageOfObject<EnhancedMetafile>(graphics, content.handle);
    default:
        throw ImageError();
    }
}

} // namespace mox::host
