#include "host/pictures/bagvalue.h"

#include "automation/types/safearray.h"
#include "automation/types/varianttypes.h"
#include "host/machine/machine.h"
#include "host/pictures/StdFont.h"
#include "host/pictures/createpicture.h"
#include "host/pictures/errornumbers.h"
#include "host/pictures/imagebytes.h"
#include "host/pictures/picturebytes.h"

#include <algorithm>

namespace mox::runtime {

namespace {

using host::ImageBytes;
using host::ImageWriter;

constexpr VARTYPE byteArray = VT_ARRAY | VT_UI1;
constexpr std::uint8_t kindNothing = 0;
constexpr std::uint8_t kindPicture = 1;
constexpr std::uint8_t kindFont = 2;
constexpr std::uint8_t fontItalic = 1;
constexpr std::uint8_t fontUnderline = 2;
constexpr std::uint8_t fontStrikethrough = 4;
constexpr std::size_t fontBytes = 13;

/// Bytes of the types that are nothing but a number; none for others.
std::optional<std::size_t> sizeOfPlain(VARTYPE type) {
    using namespace automation;
    return plainTypes.contains(type) ? std::optional<std::size_t>(elementSize(type)) : std::nullopt;
}

bool isObject(VARTYPE type) {
    return type == VT_DISPATCH || type == VT_UNKNOWN;
}

void putText(ImageWriter& writer, BSTR text) {
    const std::size_t size = SysStringByteLen(text);
    writer.u32(size);
    writer.bytes(std::as_bytes(std::span(reinterpret_cast<const char*>(text), size)));
}

void putFont(ImageWriter& writer, const StdFont& font) {
    writer.number(font.get_Size().tenThousandths);
    writer.number(font.get_Weight());
    writer.number(font.get_Charset());
    writer.u8((font.get_Italic() ? fontItalic : 0) | (font.get_Underline() ? fontUnderline : 0) |
              (font.get_Strikethrough() ? fontStrikethrough : 0));
    putText(writer, font.get_Name().get());
}

void putObject(ImageWriter& writer, IUnknown* object) {
    if (!object) {
        writer.u8(kindNothing);
        return;
    }
    if (const auto* const font = implementationOf<StdFont>(object)) {
        writer.u8(kindFont);
        putFont(writer, *font);
        return;
    }
    const host::Graphics& graphics = host::Machine::current().graphics;
    const std::optional<host::PictureContent> picture = host::contentOfObject(graphics, object);
    if (!picture) {
        throw RuntimeError(errCannotSaveObject, u"Illegal parameter. Can't write object because it does not support persistence");
    }
    writer.u8(kindPicture);
    writer.bytes(host::savePictureBytes(graphics, *picture));
}

void putArray(ImageWriter& writer, SAFEARRAY* array) {
    LONG lower = 0;
    LONG upper = -1;
    if (array && SafeArrayGetDim(array) != 1) {
        throw RuntimeError(errCannotSaveArray, u"Illegal parameter. Can't write arrays");
    }
    if (array) {
        succeed(SafeArrayGetLBound(array, 1, &lower));
        succeed(SafeArrayGetUBound(array, 1, &upper));
    }
    writer.i32(lower);
    writer.bytes(std::as_bytes(std::span(static_cast<const char*>(array ? array->pvData : nullptr),
                                         static_cast<std::size_t>(std::int64_t{upper} - lower + 1))));
}

[[noreturn]] void refuse() {
    throw RuntimeError(errInvalidFileFormat);
}

String takeText(ImageBytes bytes, std::size_t place) {
    const std::size_t size = bytes.u32(place);
    const auto text = bytes.part(place + 4, size);
    host::requireImage(place + 4 + size == bytes.size());
    BSTR result =
        size == 0 ? nullptr : SysAllocStringByteLen(reinterpret_cast<const char*>(text.data()), static_cast<UINT>(size));
    if (size != 0 && !result) {
        throw std::bad_alloc();
    }
    return String::attach(result);
}

Variant takeArray(ImageBytes bytes) {
    const std::int64_t lower = bytes.i32(0);
    const auto content = bytes.from(4);
    const std::int64_t upper = lower + static_cast<std::int64_t>(content.size()) - 1;
    host::requireImage(upper <= 0x7FFFFFFF);
    if (content.empty()) {
        return Array<Byte>(0, -1);
    }
    Array<Byte> array(static_cast<Long>(lower), static_cast<Long>(upper));
    std::memcpy(array.data(), content.data(), content.size());
    return array;
}

Variant takeFont(ImageBytes bytes) {
    const auto object = makeObject<StdFont>();
    StdFont& font = *implementationOf<StdFont>(object.get());
    font.put_Size(Currency{bytes.number<std::int64_t>(0)});
    font.put_Weight(bytes.i16(8));
    font.put_Charset(bytes.i16(10));
    const unsigned flags = bytes.u8(12);
    font.put_Italic((flags & fontItalic) != 0);
    font.put_Underline((flags & fontUnderline) != 0);
    font.put_Strikethrough((flags & fontStrikethrough) != 0);
    font.put_Name(takeText(bytes, fontBytes));
    return Ref<IDispatch>(object);
}

Variant takeObject(ImageBytes bytes) {
    switch (bytes.u8(0)) {
    case kindNothing:
        return Ref<IDispatch>();
    case kindPicture:
        return Ref<IDispatch>(host::ownedPicture(host::loadPictureBytes(host::Machine::current().graphics, bytes.from(1))));
    case kindFont:
        return takeFont(bytes.from(1));
    default:
        refuse();
    }
}

Variant takeValue(ImageBytes bytes) {
    const VARTYPE type = bytes.u16(0);
    const ImageBytes rest(bytes.from(2));
    if (type == VT_BSTR) {
        return takeText(rest, 0);
    }
    if (type == byteArray) {
        return takeArray(rest);
    }
    if (type == VT_DISPATCH) {
        return takeObject(rest);
    }
    const std::optional<std::size_t> size = sizeOfPlain(type);
    host::requireImage(size && *size == rest.size());
    Variant result;
    if (type == VT_DECIMAL) {
        std::memcpy(&result.decVal, rest.all().data(), *size);
    } else {
        std::memcpy(&result.llVal, rest.all().data(), *size);
    }
    result.vt = type;
    return result;
}

/// A number that amounts to the value; none for texts, arrays and objects.
std::optional<double> amountOf(const VARIANT& value) {
    const std::optional<std::size_t> size = sizeOfPlain(value.vt);
    Variant number;
    if (!size || *size == 0 || FAILED(VariantChangeType(&number, &value, 0, VT_R8))) {
        return std::nullopt;
    }
    return number.dblVal;
}

} // namespace

std::vector<std::byte> encodeBagValue(const VARIANT& value) {
    Variant plain;
    succeed(VariantCopyInd(&plain, &value));
    ImageWriter writer;
    writer.u16(isObject(plain.vt) ? VARTYPE{VT_DISPATCH} : plain.vt);
    if (const std::optional<std::size_t> size = sizeOfPlain(plain.vt)) {
        const void* const data = plain.vt == VT_DECIMAL ? static_cast<const void*>(&plain.decVal) : &plain.llVal;
        writer.bytes(std::span(static_cast<const std::byte*>(data), *size));
    } else if (plain.vt == VT_BSTR) {
        putText(writer, plain.bstrVal);
    } else if (plain.vt == byteArray) {
        putArray(writer, plain.parray);
    } else if (isObject(plain.vt)) {
        putObject(writer, plain.punkVal);
    } else if (plain.vt & VT_ARRAY) {
        throw RuntimeError(errCannotSaveArray, u"Illegal parameter. Can't write arrays");
    } else {
        throw RuntimeError(errTypeMismatch);
    }
    return writer.take();
}

Variant decodeBagValue(std::span<const std::byte> bytes) {
    try {
        return takeValue(bytes);
    } catch (const host::ImageError& error) {
        if (error.kind() == host::ImageError::Kind::tooLarge) {
            throw RuntimeError(errOutOfMemory);
        }
        refuse();
    } catch (const RuntimeError& error) {
        if (error.number() == errInvalidProperty) {
            refuse(); // a font that there cannot be
        }
        throw;
    }
}

bool isBagValue(std::span<const std::byte> bytes) noexcept {
    try {
        const ImageBytes value(bytes);
        if (value.u16(0) != VT_DISPATCH) {
            const VARTYPE type = value.u16(0);
            const std::optional<std::size_t> size = sizeOfPlain(type);
            return size              ? bytes.size() == 2 + *size
                   : type == VT_BSTR ? bytes.size() == 6 + std::size_t{value.u32(2)}
                                     : type == byteArray && bytes.size() >= 6;
        }
        switch (value.u8(2)) {
        case kindNothing:
            return bytes.size() == 3;
        case kindPicture:
            return host::isPictureBytes(value.from(3));
        case kindFont:
            return value.u32(3 + fontBytes) == bytes.size() - (7 + fontBytes);
        default:
            return false;
        }
    } catch (...) {
        return false;
    }
}

bool equalsDefault(const VARIANT& value, const VARIANT& defaultValue) {
    Variant one;
    Variant other;
    succeed(VariantCopyInd(&one, &value));
    succeed(VariantCopyInd(&other, &defaultValue));
    if (isObject(one.vt) && isObject(other.vt)) {
        return one.punkVal == other.punkVal;
    }
    if (one.vt == VT_BSTR && other.vt == VT_BSTR) {
        return std::u16string_view(one.bstrVal ? one.bstrVal : u"", SysStringLen(one.bstrVal)) ==
               std::u16string_view(other.bstrVal ? other.bstrVal : u"", SysStringLen(other.bstrVal));
    }
    if (one.vt == VT_EMPTY || one.vt == VT_NULL) {
        return one.vt == other.vt;
    }
    const std::optional<double> amount = amountOf(one);
    return amount && amount == amountOf(other);
}

} // namespace mox::runtime
