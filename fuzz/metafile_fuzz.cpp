// Random metafiles of both styles: played onto a small bitmap and into a recording, whose metafile is whole and is played as
// well.
#include "require.h"

#include "host/graphics/rastercanvas.h"
#include "host/machine/machine.h"
#include "host/metafiles/enhancedplayer.h"
#include "host/metafiles/metafilecontext.h"
#include "host/metafiles/oldplayer.h"

using namespace mox;
using namespace mox::host;

namespace {

constexpr int width = 48;
constexpr int height = 32;
constexpr RECT area{0, 0, width, height};
/// Beyond this a picture takes time, not luck.
constexpr std::size_t mostRecorded = std::size_t{1} << 20;

class Target {
public:
    explicit Target(Machine& machine)
        : context_(machine.graphics, DeviceContext::Kind::memory, machine.desktop.device(),
                   std::make_shared<RasterCanvas>(Bitmap::create(width, height))) {
        context_.state().clip = Region(RECT{1, 1, width - 1, height - 1});
        context_.state().textColor = 0x123456;
    }

    DeviceContext& context() { return context_; }
    /// Nothing is left over, and nothing drawn outside the clipping.
    void check() const {
        require(context_.state().textColor == 0x123456 && context_.state().world.isIdentity() && context_.state().clip);
        const Bitmap& bitmap = *context_.canvas().bitmap();
        for (int x = 0; x < width; ++x) {
            require(bitmap.pixels(0)[x] == 0 && bitmap.pixels(height - 1)[x] == 0);
        }
    }

private:
    DeviceContext context_;
};

void play(Machine& machine, std::span<const std::byte> bytes, DeviceContext& context) {
    if (EnhancedHeader::read(bytes)) {
        playEnhanced(bytes, context, area, machine.codePage);
    } else {
        playOld(bytes, context, machine.codePage);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Machine machine{MachineConfig()};
    const std::span bytes(reinterpret_cast<const std::byte*>(data), size);
    Target first(machine);
    play(machine, bytes, first.context());
    first.check();

    MetafileContext recording(machine.graphics, machine.desktop.device(), machine.codePage, {0, 0, 1000, 700}, u"fuzz");
    play(machine, bytes, recording);
    const auto metafile = recording.finish();
    require(EnhancedHeader::read(metafile).has_value());
    if (metafile.size() <= mostRecorded) {
        Target second(machine);
        play(machine, metafile, second.context());
        second.check();
    }
    return 0;
}
