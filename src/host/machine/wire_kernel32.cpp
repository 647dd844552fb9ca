#include "host/machine/systemversion.h"
#include "host/machine/wiring.h"

namespace mox::host {

namespace {

/// A conversion into the caller's buffer; for an empty one the size that it would need. 0 if the buffer is too small.
template <class Unit, class Into, class Whole> std::int32_t deliver(std::span<Unit> buffer, Into into, Whole whole) {
    return static_cast<std::int32_t>(buffer.empty() ? whole().size() : into().value_or(0));
}

/// Converts by the code page of that number, `CP_ACP` being the machine's own; gives 0 for an unknown one.
template <class Convert> std::int32_t convert(Machine& machine, std::uint32_t number, Convert conversion) {
    if (number == platform::CP_ACP) {
        return conversion(machine.codePage);
    }
    return CodePage::isKnown(number) ? conversion(CodePage(number)) : 0;
}

} // namespace

void wireKernel32(Machine& machine) {
    platform::Kernel32& kernel32 = machine.kernel32;

    kernel32.GetVersionExA = [&](auto& record) { return describeVersion(machine.config().windows, machine.codePage, record); };
    kernel32.GetProductInfo = [&](auto major, auto, auto, auto, auto& type) {
        return describeProduct(machine.config(), major, type);
    };

    kernel32.GetTickCount = [&] { return static_cast<std::uint32_t>(machine.clock().now()); };

    kernel32.WideCharToMultiByte = [&](auto codePage, auto text, auto bytes) {
        return convert(machine, codePage, [&](const CodePage& page) {
            return deliver(
                bytes, [&] { return page.fromUtf16(text, bytes); }, [&] { return page.fromUtf16(text); });
        });
    };
    kernel32.MultiByteToWideChar = [&](auto codePage, auto bytes, auto text) {
        return convert(machine, codePage, [&](const CodePage& page) {
            return deliver(
                text, [&] { return page.toUtf16(bytes, text); }, [&] { return page.toUtf16(bytes); });
        });
    };
}

} // namespace mox::host
