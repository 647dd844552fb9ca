#include "host/pictures/PropertyBag.h"

#include "host/files/crc32.h"
#include "host/pictures/bagvalue.h"
#include "host/pictures/errornumbers.h"
#include "host/pictures/imagebytes.h"
#include "host/text/lowercase.h"

namespace mox::runtime {

namespace {

// The contents: the signature, the number of properties (32 bits), and the CRC-32 of what follows. Each property is its name and
// its value, both with their lengths in bytes in front (32 bits).
constexpr std::uint32_t signature = 0x4741424D; // MBAG
constexpr std::size_t headerBytes = 12;
constexpr std::size_t leastPropertyBytes = 8;

bool isMissing(const Variant& argument) {
    return argument.vt == VT_ERROR && argument.scode == DISP_E_PARAMNOTFOUND;
}

std::uint32_t checksum(std::span<const std::byte> bytes) {
    return host::crc32(0, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::span<const std::byte> takeCounted(host::ImageBytes bytes, std::size_t& place) {
    const std::size_t size = bytes.u32(place);
    const auto part = bytes.part(place + 4, size);
    place += 4 + size;
    return part;
}

void putCounted(host::ImageWriter& writer, std::span<const std::byte> bytes) {
    if (bytes.size() > 0xFFFFFFFF) {
        throw RuntimeError(errOutOfMemory);
    }
    writer.u32(bytes.size());
    writer.bytes(bytes);
}

/// The bytes in an array by value or by reference.
std::span<const std::byte> bytesOfArray(const Variant& value) {
    constexpr VARTYPE byteArray = VT_ARRAY | VT_UI1;
    const VARIANT* variant = &value;
    if (variant->vt == (VT_BYREF | VT_VARIANT) && variant->pvarVal) {
        variant = variant->pvarVal;
    }
    const SAFEARRAY* const array = variant->vt == byteArray                                    ? variant->parray
                                   : variant->vt == (VT_BYREF | byteArray) && variant->pparray ? *variant->pparray
                                                                                               : nullptr;
    if ((variant->vt & ~VT_BYREF) != byteArray || (array && array->cDims != 1)) {
        throw RuntimeError(errTypeMismatch);
    }
    return array ? std::span(static_cast<const std::byte*>(array->pvData), array->rgsabound[0].cElements)
                 : std::span<const std::byte>();
}

} // namespace

Variant PropertyBag::ReadProperty(const String& name, const Variant& defaultValue) const {
    const auto found = properties_.find(host::lowerCase(name));
    if (found != properties_.end()) {
        return decodeBagValue(found->second.value);
    }
    if (isMissing(defaultValue)) {
        throw RuntimeError(errNotFoundInBag, u"Data value named '" + std::u16string(name.view()) + u"' not found");
    }
    Variant result;
    succeed(VariantCopyInd(&result, &defaultValue));
    return result;
}

void PropertyBag::WriteProperty(const String& name, const Variant& value, const Variant& defaultValue) {
    std::u16string key = host::lowerCase(name);
    if (!isMissing(defaultValue) && equalsDefault(value, defaultValue)) {
        properties_.erase(key);
        return;
    }
    properties_.insert_or_assign(std::move(key), Property{std::u16string(name.view()), encodeBagValue(value)});
}

Variant PropertyBag::get_Contents() const {
    host::ImageWriter body;
    for (const auto& [key, property] : properties_) {
        putCounted(body, std::as_bytes(std::span(property.name)));
        putCounted(body, property.value);
    }
    const std::vector<std::byte> bytes = body.take();
    if (bytes.size() > 0x7FFFFFFF - headerBytes) {
        throw RuntimeError(errOutOfMemory);
    }
    Array<Byte> contents(0, static_cast<Long>(headerBytes + bytes.size()) - 1);
    const std::uint32_t header[] = {signature, static_cast<std::uint32_t>(properties_.size()), checksum(bytes)};
    static_assert(sizeof header == headerBytes);
    std::memcpy(contents.data(), header, headerBytes);
    std::copy_n(reinterpret_cast<const Byte*>(bytes.data()), bytes.size(), contents.data() + headerBytes);
    return contents;
}

void PropertyBag::put_Contents(const Variant& value) {
    try {
        properties_ = parse(bytesOfArray(value));
    } catch (const host::ImageError&) {
        throw RuntimeError(errInvalidFileFormat);
    }
}

PropertyBag::Properties PropertyBag::parse(std::span<const std::byte> contents) {
    const host::ImageBytes header(contents);
    const std::size_t count = header.u32(4);
    const host::ImageBytes bytes(header.from(headerBytes));
    host::requireImage(header.u32(0) == signature && header.u32(8) == checksum(bytes.all()));
    host::requireImage(count <= bytes.size() / leastPropertyBytes);
    Properties properties;
    std::size_t place = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const auto name = takeCounted(bytes, place);
        const auto value = takeCounted(bytes, place);
        host::requireImage(name.size() % sizeof(char16_t) == 0 && isBagValue(value));
        std::u16string text(name.size() / sizeof(char16_t), u'\0');
        std::memcpy(text.data(), name.data(), name.size());
        std::u16string key = host::lowerCase(text);
        host::requireImage(
            properties.try_emplace(std::move(key), Property{std::move(text), {value.begin(), value.end()}}).second);
    }
    host::requireImage(place == bytes.size());
    return properties;
}

} // namespace mox::runtime
