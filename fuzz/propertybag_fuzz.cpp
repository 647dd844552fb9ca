// Contents of property bags: values or a clear refusal, no handle left, and what was read gives the same contents again.
#include "host/machine/machine.h"

#include <mox/runtime.h>

#include <cstdlib>
#include <cstring>

namespace {

using namespace mox;

/// On a machine in memory.
PropertyBag makeBag() {
    [[maybe_unused]] static const bool isConfigured = [] {
        host::Machine::configure({});
        return true;
    }();
    return PropertyBag::create();
}

} // namespace

/// The input is the number of properties in its first byte, and what follows the header of the contents, whose checksum is made
/// right.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    constexpr std::size_t headerBytes = 12;
    const std::uint8_t count = size > 0 ? bytes[0] % 8 : 0;
    const bool isDamaged = size > 0 && bytes[0] >= 0xF8;
    if (size > 0) {
        ++bytes;
        --size;
    }
    const PropertyBag bag = makeBag();
    Array<Byte> contents(0, static_cast<Long>(size + headerBytes) - 1);
    std::uint32_t crc = 0;
    platform::ntdll().RtlComputeCrc32(crc, {reinterpret_cast<const char*>(bytes), size});
    const std::uint32_t header[] = {0x4741424D, count, isDamaged ? ~crc : crc};
    std::memcpy(contents.data(), header, headerBytes);
    std::copy_n(bytes, size, contents.data() + headerBytes);
    try {
        bag.put_Contents(contents);
    } catch (const Error&) {
        return 0;
    }
    // Names and values come in their order or not, but none is lost.
    const PropertyBag again = PropertyBag::create();
    again.put_Contents(bag.Contents());
    if (again.Contents().as<Array<Byte>>().size() != contents.size()) {
        std::abort();
    }
    for (const char16_t* name : {u"a", u"b", u"PictureBytes"}) {
        try {
            again.ReadProperty(name);
        } catch (const Error&) {
        }
    }
    if (!host::Machine::current().handles.count().empty()) {
        std::abort();
    }
    return 0;
}
