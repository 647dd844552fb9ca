// A tour of the library from C++: values, texts, rotation, errors, events.
#include <mox/mox.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

using namespace mox;

int main(int argc, char** argv) {
    try {
        const moxHub hub = moxHub::create();
        std::printf("mox %s, used by %s\n\n", hub.ExtensionInfo(moxext_VersionString).as<String>().utf8().c_str(),
                    hub.ExtensionInfo(moxext_UsedByApp).as<String>().utf8().c_str());

        const moxVars vars = hub.Vars();
        std::printf("1 inch is %.4f cm, A4 is %.1f points wide\n", vars.ConvertUnit(1, suINCH, suCM),
                    vars.ConvertUnit(210, suMM, suPOINTS));
        Long flags = 0;
        vars.vLong().SetBit(flags, 31, true);
        std::printf("bit 31 alone is %d; FFFF reads as %d\n", flags, vars.Hex2Long(u"FFFF"));

        const moxVarString text = vars.vString();
        std::printf("\"Grüße & mehr\" in a URL: %s\n", text.URLEncode(u"Grüße & mehr").utf8().c_str());
        std::printf("  and in a page: %s\n", text.StringEntities(u"Grüße & mehr", true).utf8().c_str());
        if (argc > 1) {
            std::ifstream file(argv[1]);
            const std::string content{std::istreambuf_iterator<char>(file), {}};
            std::printf("checksum of %s: %08X\n", argv[1], static_cast<unsigned>(text.StringChecksum(String::fromUtf8(content))));
        }

        RECT page{0, 0, 210, 297};
        Array<POINTAPI> corners;
        RECT bounds;
        vars.vMath().RotateRect(page, 30, corners, bounds);
        std::printf("a page of 210 x 297 turned by 30 degrees needs %d x %d\n", bounds.Right - bounds.Left,
                    bounds.Bottom - bounds.Top);

        try {
            hub.Form();
        } catch (const Error& error) {
            std::printf("hub.Form: error %d, %s (%s)\n", error.number(), error.what(), error.source().utf8().c_str());
        }

        const moxTimer timer = hub.Controls().CreateTimerObject();
        int ticks = 0;
        const Connection connection = timer.connect({.Timer = [&](Long events, Long milliseconds) {
            std::printf("timer event %d after %d ms\n", events, milliseconds);
            if (++ticks == 3) {
                timer.StopTimer();
            }
        }});
        timer.StartTimer(20);
        while (timer.Running()) {
            pump(20);
        }
        return 0;
    } catch (const Error& error) {
        std::fprintf(stderr, "error %d: %s\n", error.number(), error.what());
        return 1;
    }
}
