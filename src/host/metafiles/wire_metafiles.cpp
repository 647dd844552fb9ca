#include "host/graphics/wire_graphics.h"
#include "host/machine/wiring.h"
#include "host/metafiles/metafiles.h"

namespace mox::host {

void wireMetafiles(Machine& machine) {
    platform::Gdi32& gdi32 = machine.gdi32;
    // Keeps nothing of its own: all that there is stands behind handles.
    Metafiles metafiles(machine.graphics, machine.files, machine.codePage);
    gdi32.CreateEnhMetaFileA = [metafiles](auto reference, auto file, const auto& frame, auto description) mutable {
        return metafiles.create(reference, file, frame, description);
    };
    gdi32.CloseEnhMetaFile = [metafiles](auto hdc) mutable { return metafiles.close(hdc); };
    gdi32.PlayEnhMetaFile = [metafiles](auto hdc, auto metafile, const auto& area) {
        return metafiles.play(hdc, metafile, area);
    };
    gdi32.DeleteEnhMetaFile = [&handles = machine.handles](auto metafile) { return handles.close<EnhancedMetafile>(metafile); };
    gdi32.GetEnhMetaFileBits = [metafiles](auto metafile, auto bits) { return metafiles.enhancedBits(metafile, bits); };
    gdi32.SetEnhMetaFileBits = [metafiles](auto bits) mutable { return metafiles.openEnhanced(bits); };
    gdi32.GetMetaFileBitsEx = [metafiles](auto metafile, auto bits) { return metafiles.oldBits(metafile, bits); };
    gdi32.SetMetaFileBitsEx = [metafiles](auto bits) mutable { return metafiles.openOld(bits); };
    gdi32.DeleteMetaFile = [&handles = machine.handles](auto metafile) { return handles.close<OldMetafile>(metafile); };
    gdi32.SetWinMetaFileBits = [metafiles](auto bits, auto reference) mutable { return metafiles.convert(bits, reference); };
}

} // namespace mox::host
