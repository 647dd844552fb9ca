#include "drawing/drawing_support.h"

#include <algorithm>

namespace mox::test {

namespace {

using Rows = std::vector<std::string>;

const Rows arrow{"m.#m", "m##r", "mm#m"};

class PicturesTest : public DrawingTest {
protected:
    StdPicture bitmap = picture(arrow, usualLetters);

    StdPicture icon() {
        auto& gdi32 = machine->gdi32;
        const auto color = buffer(4, 4, 0x0000FF);
        const platform::Handle mask = gdi32.CreateBitmap(4, 4, 1, 1, {});
        const platform::Handle hdc = gdi32.CreateCompatibleDC(0);
        const platform::Handle before = gdi32.SelectObject(hdc, mask);
        gdi32.SetPixel(hdc, 0, 0, 0xFFFFFF);
        gdi32.SetPixel(hdc, 3, 3, 0xFFFFFF);
        gdi32.SelectObject(hdc, before);
        gdi32.DeleteDC(hdc);
        const StdPicture colors = color.CreateOlePicture();
        machine->user32.DestroyIcon(0);
        drawing.FillRect2(color.hDC(), 0, 0, 1, 1, 0);
        drawing.FillRect2(color.hDC(), 3, 3, 4, 4, 0);
        const StdPicture masked = color.CreateOlePicture();
        const platform::Handle handle = machine->user32.CreateIconIndirect({true, 0, 0, mask, masked.Handle()});
        gdi32.DeleteObject(mask);
        return drawing.CreateOlePictureFromHIcon(handle);
    }

    /// A green rectangle on nothing, 20 pixels wide and 10 high.
    StdPicture metafile() {
        auto& gdi32 = machine->gdi32;
        // 96 dots per inch: a pixel is 26.458 hundredths of a millimetre
        const platform::Handle hdc = gdi32.CreateEnhMetaFileA(0, "", {0, 0, 529, 265}, "");
        drawing.FillRect2(hdc, 0, 0, 20, 10, 0x00FF00);
        const platform::Handle handle = gdi32.CloseEnhMetaFile(hdc);
        platform::PICTDESC description;
        description.picType = platform::PICTYPE_ENHMETAFILE;
        description.handle = handle;
        void* object = nullptr;
        machine->oleaut32.OleCreatePictureIndirect(description, IID_IDispatch, true, &object);
        return StdPicture(Ref<IPictureDisp>::attach(static_cast<IPictureDisp*>(static_cast<IDispatch*>(object))));
    }
};

TEST_F(PicturesTest, AreDrawnByTheirKind) {
    const auto target = buffer(6, 4);
    EXPECT_TRUE(static_cast<bool>(drawing.DrawPicture(bitmap, target.hDC(), 1, 1)));
    EXPECT_EQ(rows(target.hDC(), 6, 4, usualLetters), (Rows{"......", ".m.#m.", ".m##r.", ".mm#m."}));
    target.Cls();
    EXPECT_TRUE(static_cast<bool>(drawing.DrawPicture(icon(), target.hDC(), 1, 0)));
    EXPECT_EQ(rows(target.hDC(), 6, 4, usualLetters), (Rows{"..rrr.", ".rrrr.", ".rrrr.", ".rrr.."}));
    target.Cls();
    EXPECT_TRUE(static_cast<bool>(drawing.DrawPicture(metafile(), target.hDC(), 2, 1, 3, 2)));
    EXPECT_EQ(rows(target.hDC(), 6, 4, usualLetters), (Rows{"......", "..ggg.", "..ggg.", "......"}));

    EXPECT_FALSE(static_cast<bool>(drawing.DrawPicture(StdPicture::create(), target.hDC())));
    EXPECT_EQ(errorOf([&] { drawing.DrawPicture(StdPicture(), target.hDC()); }), 91);
    for (const auto& [name, answer] : std::map<std::string, bool>{
             {"icon as bitmap", static_cast<bool>(drawing.DrawBitmap(icon(), target.hDC()))},
             {"bitmap as icon", static_cast<bool>(drawing.DrawIcon(bitmap, target.hDC()))},
             {"bitmap as metafile", static_cast<bool>(drawing.DrawMetaFile(bitmap, target.hDC()))},
             {"nothing as bitmap", static_cast<bool>(drawing.DrawBitmap(StdPicture(), target.hDC()))},
             {"nothing in tiles",
              static_cast<bool>(drawing.DrawBitmap(StdPicture(), target.hDC(), 0, 0, 1, 1, 0, 0, 1, 1, True))},
             {"nothing as icon", static_cast<bool>(drawing.DrawIcon(StdPicture(), target.hDC(), 0, 0, 5, 5))},
             {"nothing as metafile", static_cast<bool>(drawing.DrawMetaFile(StdPicture(), target.hDC()))}}) {
        EXPECT_FALSE(answer) << name;
    }
}

TEST_F(PicturesTest, HaveANaturalSize) {
    EXPECT_EQ(drawing.PictureGetSize(bitmap), (Size{4, 3}));
    EXPECT_EQ(drawing.PictureGetSize(icon()), (Size{4, 4}));
    EXPECT_EQ(drawing.PictureGetSize(metafile()), (Size{20, 10}));
    EXPECT_EQ(drawing.PictureGetSize(StdPicture()), (Size{0, 0}));
    EXPECT_EQ(drawing.PictureGetSize(StdPicture::create()), (Size{0, 0}));
}

TEST_F(PicturesTest, AreTiledPastTheirArea) {
    const StdPicture tile = picture(Rows(10, "rrrrrrrrrb"), usualLetters);
    const auto target = buffer(40, 12);
    EXPECT_TRUE(static_cast<bool>(drawing.DrawBitmap(tile, target.hDC(), 0, 0, 25, 10, 0, 0, 0, 0, True)));
    EXPECT_EQ(pixel(target.hDC(), 28, 9), 0x0000FF);
    EXPECT_EQ(pixel(target.hDC(), 29, 0), 0xFF0000);
    EXPECT_EQ(pixel(target.hDC(), 30, 0), 0xFFFFFF);
    EXPECT_EQ(pixel(target.hDC(), 0, 10), 0xFFFFFF);
    target.Cls();
    EXPECT_TRUE(static_cast<bool>(drawing.DrawBitmap(bitmap, target.hDC(), 0, 0, 8, 3, 0, 0, 0, 0, True, True)));
    EXPECT_EQ(rows(target.hDC(), 8, 3, usualLetters), (Rows{"..#...#.", ".##r.##r", "..#...#."}));
    target.Cls();
    EXPECT_TRUE(static_cast<bool>(drawing.DrawBitmap(bitmap, target.hDC(), 0, 0, 8, 3, 0, 0, 0, 0, True, True, 0xFF00FF, 128)));
    EXPECT_EQ(pixel(target.hDC(), 0, 0), 0xFFFFFF);
    EXPECT_EQ(pixel(target.hDC(), 2, 0), 0x808080);
    for (const auto& [cx, source] : {std::pair{0, 0}, std::pair{std::numeric_limits<Long>::min(), -1}}) {
        auto none = machine->oleaut32.OleCreatePictureIndirect.replace([](auto&&...) { return E_FAIL; });
        EXPECT_FALSE(
            static_cast<bool>(drawing.DrawBitmap(StdPicture::create(), target.hDC(), cx, 1, cx, 1, 0, 0, source, 1, True)));
    }
}

TEST_F(PicturesTest, LeaveAColorOut) {
    const auto target = buffer(4, 3, 0x00FF00);
    const Rows expected{"g.#g", "g##r", "gg#g"};
    EXPECT_TRUE(static_cast<bool>(drawing.DrawBitmap(bitmap, target.hDC(), 0, 0, 0, 0, 0, 0, 0, 0, False, True)));
    EXPECT_EQ(rows(target.hDC(), 4, 3, usualLetters), expected);

    // An old system, where the copy is built by hand.
    DrawingOn old({4, 0, 1381, 2, "", 1, 0});
    const StdPicture same = old.picture(arrow, usualLetters);
    const auto ground = old.buffer(8, 6, 0x00FF00);
    EXPECT_TRUE(static_cast<bool>(old.drawing.DrawBitmap(same, ground.hDC(), 0, 0, 0, 0, 0, 0, 0, 0, False, True)));
    EXPECT_EQ(old.machine->msimg32.TransparentBlt.calls(), 0U);
    EXPECT_EQ(old.rows(ground.hDC(), 4, 3, usualLetters), expected);
    ground.Cls();
    EXPECT_TRUE(static_cast<bool>(old.drawing.DrawBitmap(same, ground.hDC(), 0, 0, 8, 6, 0, 0, 4, 3, False, True)));
    EXPECT_EQ(old.rows(ground.hDC(), 8, 6, usualLetters),
              (Rows{"gg..##gg", "gg..##gg", "gg####rr", "gg####rr", "gggg##gg", "gggg##gg"}));
    EXPECT_EQ(old.machine->gdi32.GetStretchBltMode(ground.hDC()), platform::COLORONCOLOR);
}

TEST_F(PicturesTest, AreMixedWithTheGround) {
    const auto target = buffer(4, 3, 0x00FF00);
    const Long hdc = target.hDC();
    EXPECT_TRUE(static_cast<bool>(drawing.DrawBitmap(bitmap, hdc, 0, 0, 0, 0, 0, 0, 0, 0, False, False, 0, 255)));
    EXPECT_EQ(rows(hdc, 4, 3, usualLetters), Rows(3, "gggg")) << "255 is invisible";
    EXPECT_TRUE(static_cast<bool>(drawing.DrawBitmap(bitmap, hdc, 0, 0, 0, 0, 0, 0, 0, 0, False, True, 0xFF00FF, 128)));
    EXPECT_EQ(pixel(hdc, 0, 0), 0x00FF00);
    EXPECT_EQ(pixel(hdc, 2, 0), 0x008000); // black with 127 of 255
    EXPECT_EQ(pixel(hdc, 1, 0), 0x7FFF7F);
    target.Cls();
    EXPECT_TRUE(static_cast<bool>(drawing.DrawBitmap(bitmap, hdc, 0, 0, 0, 0, 0, 0, 0, 0, False, False, 0xFF00FF, 128)));
    EXPECT_EQ(pixel(hdc, 0, 0), 0x7F807F);
    target.Cls();
    EXPECT_TRUE(static_cast<bool>(drawing.DrawIcon(icon(), hdc, 0, 0, 0, 0, 55)));
    EXPECT_EQ(pixel(hdc, 0, 0), 0x00FF00);
    EXPECT_EQ(pixel(hdc, 1, 1), 200 + 256 * 55);
    target.Cls();
    EXPECT_TRUE(static_cast<bool>(drawing.DrawMetaFile(metafile(), hdc, 1, 1, 2, 2, 254)));
    EXPECT_EQ(pixel(hdc, 1, 1), 0x00FF00);
}

TEST_F(PicturesTest, StretchWithTheModeOfTheSystem) {
    const auto target = buffer(4, 3);
    const Long hdc = target.hDC();
    machine->gdi32.SetStretchBltMode(hdc, platform::WHITEONBLACK);
    Long used = 0;
    {
        auto watch = machine->gdi32.StretchBlt.replace([&](platform::Handle to, auto...) {
            used = machine->gdi32.GetStretchBltMode(to);
            return true;
        });
        EXPECT_TRUE(static_cast<bool>(drawing.DrawBitmap(bitmap, hdc, 0, 0, 2, 2)));
    }
    EXPECT_EQ(used, platform::HALFTONE);
    EXPECT_EQ(machine->gdi32.GetStretchBltMode(hdc), platform::WHITEONBLACK);
}

TEST_F(PicturesTest, ShowIconsOfTheSystem) {
    for (const moX_DRAW_SYSICON icon : {dsi_Error, dsi_Question, dsi_Warning, dsi_Information, dsi_WinLogo, dsi_Shield}) {
        const auto target = buffer(34, 34);
        EXPECT_TRUE(static_cast<bool>(drawing.DrawSystemIcon(icon, target.hDC(), 1, 1))) << icon;
        Long drawn = 0;
        for (Long y = 0; y < 34; ++y) {
            for (Long x = 0; x < 34; ++x) {
                drawn += pixel(target.hDC(), x, y) != 0xFFFFFF;
            }
        }
        EXPECT_GT(drawn, 200) << icon;
        EXPECT_EQ(pixel(target.hDC(), 0, 0), 0xFFFFFF);
        EXPECT_EQ(pixel(target.hDC(), 33, 33), 0xFFFFFF);
        EXPECT_TRUE(static_cast<bool>(drawing.DrawSystemIcon(icon, target.hDC(), 1, 1, 16, 0, 100))) << icon;
    }
    const auto target = buffer(4, 4);
    EXPECT_FALSE(static_cast<bool>(drawing.DrawSystemIcon(static_cast<moX_DRAW_SYSICON>(1), target.hDC())));
    DrawingOn xp({5, 1, 2600, 2, "", 1, 0});
    EXPECT_FALSE(static_cast<bool>(xp.drawing.DrawSystemIcon(dsi_Shield, xp.buffer(4, 4).hDC())));
    EXPECT_TRUE(static_cast<bool>(xp.drawing.DrawSystemIcon(dsi_Error, xp.buffer(4, 4).hDC())));
}

TEST_F(PicturesTest, TurnIntoBytesAndBack) {
    for (const StdPicture& picture : {bitmap, icon(), metafile()}) {
        Array<Byte> bytes;
        EXPECT_TRUE(static_cast<bool>(drawing.BitmapToByteArray(picture, bytes)));
        EXPECT_EQ(bytes.lower(), 0);
        EXPECT_GT(bytes.upper(), 12);
        const StdPicture back = drawing.BitmapFromByteArray(bytes);
        ASSERT_TRUE(static_cast<bool>(back));
        EXPECT_EQ(back.Type(), picture.Type());
        EXPECT_EQ(drawing.PictureGetSize(back), drawing.PictureGetSize(picture));
        EXPECT_NE(back.Handle(), picture.Handle());
        const auto one = buffer(20, 10);
        const auto two = buffer(20, 10);
        drawing.DrawPicture(picture, one.hDC());
        drawing.DrawPicture(back, two.hDC());
        EXPECT_EQ(rows(one.hDC(), 20, 10, usualLetters), rows(two.hDC(), 20, 10, usualLetters));
    }
    const std::uint64_t before = machine->runtime.New.calls();
    Array<Byte> none;
    Array<Byte> little(0, 12);
    EXPECT_FALSE(static_cast<bool>(drawing.BitmapFromByteArray(none)));
    EXPECT_FALSE(static_cast<bool>(drawing.BitmapFromByteArray(little)));
    EXPECT_EQ(machine->runtime.New.calls(), before) << "no bag for what is too short";
    Array<Byte> garbage(0, 99);
    EXPECT_FALSE(static_cast<bool>(drawing.BitmapFromByteArray(garbage)));
    Array<Byte> place(3, 40);
    auto noBag = machine->runtime.New.replace([](auto&&...) { return 429; });
    EXPECT_FALSE(static_cast<bool>(drawing.BitmapToByteArray(bitmap, place)));
    EXPECT_EQ(place.lower(), 0);
    EXPECT_EQ(place.size(), 1);
}

TEST_F(PicturesTest, ComeFromHandles) {
    EXPECT_FALSE(static_cast<bool>(drawing.CreateOlePictureFromHBitmap(0)));
    EXPECT_FALSE(static_cast<bool>(drawing.CreateOlePictureFromHIcon(0)));
    EXPECT_FALSE(static_cast<bool>(drawing.CreateOlePictureFromHBitmap(4711)));
    const platform::Handle handle = machine->gdi32.CreateBitmap(7, 5, 1, 32, {});
    {
        const StdPicture picture = drawing.CreateOlePictureFromHBitmap(handle);
        EXPECT_EQ(picture.Handle(), handle);
        EXPECT_EQ(picture.Width(), 185);
        EXPECT_EQ(picture.Height(), 132);
    }
    EXPECT_FALSE(machine->gdi32.DeleteObject(handle)) << "went with the picture";
    const auto source = buffer(4, 4, 0x0000FF);
    const StdPicture part = drawing.CreateOlePictureFromDC(source.hDC(), 1, 1, 2, 3);
    EXPECT_EQ(drawing.PictureGetSize(part), (Size{2, 3}));
}

TEST(PicturesFaultsTest, leaveNothingOpen) {
    const auto drawn = [](FaultRun& run, const std::function<bool(const moxDrawing&, Long, const StdPicture&)>& draw) {
        const moxDrawing drawing{server::create<TRL_OBKR_MOX::_moxDrawing>()};
        const auto source = drawing.CreateOffscreenBuffer(4, 4, 0x0000FF);
        const auto target = drawing.CreateOffscreenBuffer(8, 8);
        const StdPicture picture = source.CreateOlePicture();
        bool isDrawn = false;
        if (picture) {
            EXPECT_EQ(errorOf([&] { isDrawn = draw(drawing, target.hDC(), picture); }), 0);
        }
        EXPECT_TRUE(isDrawn || run.faulted());
    };
    for (const bool isTiled : {false, true}) {
        for (const Byte transparency : {Byte{0}, Byte{100}}) {
            sweepFaults([&](FaultRun& run) {
                drawn(run, [&](const moxDrawing& drawing, Long hdc, const StdPicture& picture) {
                    return static_cast<bool>(
                        drawing.DrawBitmap(picture, hdc, 0, 0, 5, 5, 0, 0, 4, 4, isTiled, True, 0xFF00FF, transparency));
                });
            });
        }
    }
    sweepFaults([&](FaultRun& run) {
        drawn(run, [&](const moxDrawing& drawing, Long, const StdPicture& picture) {
            Array<Byte> bytes;
            return static_cast<bool>(drawing.BitmapToByteArray(picture, bytes)) &&
                   static_cast<bool>(drawing.BitmapFromByteArray(bytes));
        });
    });
    sweepFaults([&](FaultRun& run) {
        drawn(run, [&](const moxDrawing& drawing, Long hdc, const StdPicture&) {
            return static_cast<bool>(drawing.DrawSystemIcon(dsi_Error, hdc, 0, 0, 0, 0, 9));
        });
    });
}

} // namespace

} // namespace mox::test
