#include "host/metafiles/metafiles.h"

#include "host/desktop/desktop.h"
#include "host/files/files.h"
#include "host/files/pendingfile.h"
#include "host/metafiles/enhancedplayer.h"
#include "host/metafiles/metafilecontext.h"
#include "host/metafiles/oldplayer.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <new>

namespace mox::host {

namespace {

bool writeAll(int file, std::span<const std::byte> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    }
    return true;
}

/// Whole or not at all.
bool writeFile(const std::string& path, std::span<const std::byte> bytes) {
    PendingFile file(path, 0666);
    return file && writeAll(file.number(), bytes) && file.complete(true);
}

std::uint32_t give(std::span<const std::byte> from, std::span<std::byte> to) {
    const std::size_t count = to.empty() ? from.size() : std::min(from.size(), to.size());
    std::copy_n(from.begin(), to.empty() ? 0 : count, to.begin());
    return static_cast<std::uint32_t>(count);
}

} // namespace

std::shared_ptr<const Device> Metafiles::referenceDevice(platform::Handle reference) const {
    if (reference == 0) {
        return graphics_.desktop().device();
    }
    const auto context = graphics_.context(reference);
    return context ? context->sharedDevice() : nullptr;
}

platform::Handle Metafiles::create(platform::Handle reference, std::string_view file, const RECT& frame,
                                   std::string_view description) {
    const auto device = referenceDevice(reference);
    std::optional<std::filesystem::path> path;
    if (!file.empty()) {
        path = files_.resolveFile(file);
    }
    if (!device || (!file.empty() && (!path || std::filesystem::is_directory(*path)))) {
        return 0;
    }
    auto context = std::make_shared<MetafileContext>(graphics_, device, codePage_, frame, codePage_.toUtf16(description));
    context->setFile(path ? path->string() : std::string());
    return graphics_.open(std::move(context));
}

platform::Handle Metafiles::close(platform::Handle hdc) {
    const auto context = std::dynamic_pointer_cast<MetafileContext>(graphics_.context(hdc));
    if (!context || !graphics_.deleteContext(hdc)) {
        return 0;
    }
    EnhancedMetafile metafile;
    try {
        metafile.bits = context->finish();
    } catch (const std::bad_alloc&) {
        return 0;
    }
    if (metafile.bits.empty() || (!context->file().empty() && !writeFile(context->file(), metafile.bits))) {
        return 0;
    }
    return graphics_.add("metafile", std::move(metafile));
}

bool Metafiles::play(platform::Handle hdc, platform::Handle metafile, const RECT& area) const {
    const auto context = graphics_.context(hdc);
    const auto played = graphics_.object<EnhancedMetafile>(metafile);
    return context && played && playEnhanced(played->bits, *context, area, codePage_);
}

platform::Handle Metafiles::openEnhanced(std::span<const std::byte> bits) {
    const auto header = EnhancedHeader::read(bits);
    if (!header) {
        return 0;
    }
    const auto whole = bits.first(header->bytes);
    return graphics_.add("metafile", EnhancedMetafile{{whole.begin(), whole.end()}});
}

platform::Handle Metafiles::openOld(std::span<const std::byte> bits) {
    const auto size = sizeOfOld(bits);
    if (!size) {
        return 0;
    }
    const auto whole = bits.first(*size);
    return graphics_.add("metafile", OldMetafile{{whole.begin(), whole.end()}});
}

platform::Handle Metafiles::convert(std::span<const std::byte> bits, platform::Handle reference) {
    const auto device = referenceDevice(reference);
    if (!device || !sizeOfOld(bits)) {
        return 0;
    }
    const RECT frame{0, 0, device->capability(platform::HORZSIZE) * 100, device->capability(platform::VERTSIZE) * 100};
    try {
        MetafileContext context(graphics_, device, codePage_, frame, {});
        // What cannot be drawn is not in the picture; the rest is.
        playOld(bits, context, codePage_);
        EnhancedMetafile metafile{context.finish()};
        return metafile.bits.empty() ? 0 : graphics_.add("metafile", std::move(metafile));
    } catch (const std::bad_alloc&) {
        return 0;
    }
}

std::uint32_t Metafiles::enhancedBits(platform::Handle metafile, std::span<std::byte> bits) const {
    const auto found = graphics_.object<EnhancedMetafile>(metafile);
    return found ? give(found->bits, bits) : 0;
}

std::uint32_t Metafiles::oldBits(platform::Handle metafile, std::span<std::byte> bits) const {
    const auto found = graphics_.object<OldMetafile>(metafile);
    return found ? give(found->bits, bits) : 0;
}

} // namespace mox::host
