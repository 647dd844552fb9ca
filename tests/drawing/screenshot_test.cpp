#include "drawing/drawing_support.h"

namespace mox::test {

namespace {

class ScreenShotTest : public DrawingTest {
protected:
    /// Fills a part of the screen.
    void paintScreen(Long left, Long top, Long right, Long bottom, Long color) {
        const platform::Handle screen = machine->user32.GetDC(0);
        drawing.FillRect2(screen, left, top, right, bottom, color);
        machine->user32.ReleaseDC(0, screen);
    }

    moxScreenShot shots = drawing.ScreenShot();
};

TEST_F(ScreenShotTest, copiesAPartOfTheScreen) {
    paintScreen(10, 10, 20, 20, 0x0000FF);
    paintScreen(12, 11, 13, 12, 0x00FF00);
    const std::vector<std::string> expected{"rrr", "rgr", "rrr"};
    const auto buffer = shots.OffscreenBufferFromDesktop(11, 10, 3, 3);
    EXPECT_EQ(rows(buffer.hDC(), 3, 3, usualLetters), expected);
    const StdPicture picture = shots.PictureFromDesktop(11, 10, 3, 3);
    const auto target = this->buffer(3, 3);
    drawing.DrawPicture(picture, target.hDC());
    EXPECT_EQ(rows(target.hDC(), 3, 3, usualLetters), expected);
    // Beyond the screen there is nothing to copy.
    const auto beyond = shots.OffscreenBufferFromDesktop(-2, -2, 3, 3);
    EXPECT_EQ(pixel(beyond.hDC(), 0, 0), 0xFFFFFF);
}

TEST_F(ScreenShotTest, takesNothingOfWindowsThatAreNone) {
    EXPECT_EQ(shots.OffscreenBufferFromWindow(4711).CX(), 0);
    EXPECT_EQ(errorOf([&] { shots.PictureFromWindow(4711); }), 0);
}

TEST(ScreenShotFaultsTest, leaveNothingOpen) {
    sweepFaults([](FaultRun& run) {
        const moxScreenShot shots{server::create<TRL_OBKR_MOX::_moxScreenShot>()};
        const auto buffer = shots.OffscreenBufferFromDesktop(0, 0, 4, 4);
        const StdPicture picture = shots.PictureFromDesktop(0, 0, 4, 4);
        const StdPicture window = shots.PictureFromWindow(run.machine()->user32.GetDesktopWindow());
        if (!run.faulted()) {
            EXPECT_NE(buffer.hDC(), 0);
            EXPECT_TRUE(picture && window);
        }
    });
}

} // namespace

} // namespace mox::test
