#include "host/desktop/systemcolors.h"

#include "graphics_support.h"

#include <limits>

namespace mox::test {

namespace {

using namespace platform;

constexpr COLORREF red = 0x0000FF;
constexpr COLORREF green = 0x00FF00;
constexpr COLORREF blue = 0xFF0000;

struct DesktopWindowsTest : testing::Test {
    TestMachine machine;
    User32& user = machine->user32;
    Gdi32& gdi = machine->gdi32;
    host::Desktop& desktop = machine->desktop;

    Handle shownWindow(const RECT& place) {
        const Handle window = desktop.createWindow(place, u"Test");
        EXPECT_NE(window, 0);
        EXPECT_TRUE(desktop.showWindow(window, true));
        return window;
    }
    /// All of a window in one colour.
    void paint(Handle window, COLORREF color, std::uint32_t flags = DCX_WINDOW) {
        const Handle hdc = user.GetDCEx(window, 0, flags);
        const Handle brush = gdi.CreateSolidBrush(color);
        EXPECT_TRUE(user.FillRect(hdc, {-1000, -1000, 5000, 5000}, brush));
        EXPECT_TRUE(gdi.DeleteObject(brush));
        EXPECT_TRUE(user.ReleaseDC(window, hdc));
    }
    COLORREF at(Handle window, int x, int y, std::uint32_t flags = 0) {
        const Handle hdc = user.GetDCEx(window, 0, flags);
        const COLORREF color = gdi.GetPixel(hdc, x, y);
        EXPECT_TRUE(user.ReleaseDC(window, hdc));
        return color;
    }
    COLORREF onScreen(int x, int y) { return at(0, x, y); }
};

TEST_F(DesktopWindowsTest, tellsWhereWindowsAre) {
    RECT place;
    EXPECT_TRUE(user.GetWindowRect(user.GetDesktopWindow(), place));
    EXPECT_EQ(place, (RECT{0, 0, 1024, 768}));
    const Handle window = desktop.createWindow({-10, 20, 200, 300}, u"Title");
    EXPECT_TRUE(user.GetWindowRect(window, place));
    EXPECT_EQ(place, (RECT{-10, 20, 200, 300}));
    EXPECT_EQ(desktop.window(window)->title(), u"Title");
    EXPECT_EQ(desktop.window(window)->clientArea(), (RECT{4, 30, 206, 276}));
    EXPECT_TRUE(desktop.destroyWindow(window));
    for (const Handle none : {window, Handle{0}, Handle{-1}, gdi.GetStockObject(BLACK_PEN)}) {
        EXPECT_FALSE(user.GetWindowRect(none, place)) << none;
        EXPECT_EQ(user.GetDCEx(none == 0 ? -4 : none, 0, DCX_WINDOW), 0) << none;
        EXPECT_EQ(user.GetDC(none == 0 ? -4 : none), 0) << none;
        EXPECT_FALSE(desktop.moveWindow(none, place)) << none;
        EXPECT_FALSE(desktop.showWindow(none, true)) << none;
        EXPECT_FALSE(desktop.raiseWindow(none)) << none;
        EXPECT_FALSE(desktop.destroyWindow(none)) << none;
    }
    EXPECT_FALSE(desktop.destroyWindow(user.GetDesktopWindow()));
    EXPECT_EQ(desktop.createWindow({0, 0, 40000, 10}, u""), 0);
    constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
    const Handle odd = desktop.createWindow({most, most, -most, -most}, u"");
    EXPECT_TRUE(desktop.showWindow(odd, true));
    EXPECT_EQ(desktop.window(odd)->clientArea(), RECT());
    EXPECT_EQ(desktop.window(odd)->surface(), nullptr);
    EXPECT_EQ(onScreen(0, 0), host::systemColor(host::colorBackground));
    EXPECT_TRUE(desktop.destroyWindow(odd));
}

TEST_F(DesktopWindowsTest, givesBackOnlyContextsThatWereTaken) {
    const Handle memory = gdi.CreateCompatibleDC(0);
    const Handle screen = gdi.CreateDCA("DISPLAY", "", "", {});
    const Handle taken = user.GetDC(0);
    EXPECT_EQ(machine->handles.count().at("dc"), 3U);
    EXPECT_EQ(gdi.GetDeviceCaps(taken, LOGPIXELSX), 96);
    EXPECT_FALSE(user.ReleaseDC(0, memory));
    EXPECT_FALSE(user.ReleaseDC(0, screen));
    EXPECT_FALSE(user.ReleaseDC(0, 0));
    EXPECT_TRUE(user.ReleaseDC(0, taken));
    EXPECT_FALSE(user.ReleaseDC(0, taken));
    EXPECT_EQ(gdi.GetPixel(taken, 0, 0), CLR_INVALID);
    EXPECT_TRUE(gdi.DeleteDC(memory));
    EXPECT_TRUE(gdi.DeleteDC(screen));
}

TEST_F(DesktopWindowsTest, drawsOnTheInsideOrOnAllOfAWindow) {
    const Handle window = shownWindow({100, 100, 160, 180});
    EXPECT_EQ(onScreen(99, 100), host::systemColor(host::colorBackground));
    EXPECT_EQ(onScreen(100, 100), host::systemColor(host::colorWindowFrame));
    EXPECT_EQ(onScreen(102, 150), host::systemColor(host::colorActiveBorder));
    EXPECT_EQ(onScreen(130, 110), host::systemColor(host::colorActiveCaption));
    EXPECT_EQ(onScreen(104, 130), host::systemColor(host::colorWindow));
    EXPECT_EQ(onScreen(155, 175), host::systemColor(host::colorWindow));
    EXPECT_EQ(onScreen(156, 175), host::systemColor(host::colorActiveBorder));
    paint(window, red, 0);
    EXPECT_EQ(onScreen(104, 130), red);
    EXPECT_EQ(onScreen(155, 175), red);
    EXPECT_EQ(onScreen(103, 130), host::systemColor(host::colorActiveBorder));
    EXPECT_EQ(onScreen(104, 129), host::systemColor(host::colorActiveCaption));
    EXPECT_EQ(at(window, 0, 0), red);
    EXPECT_EQ(at(window, 4, 30, DCX_WINDOW), red);
    EXPECT_EQ(at(window, 52, 0), CLR_INVALID);
    EXPECT_EQ(at(window, 59, 79, DCX_WINDOW), host::systemColor(host::colorWindowFrame));
    EXPECT_EQ(at(window, 60, 79, DCX_WINDOW), CLR_INVALID);
    paint(window, green);
    EXPECT_EQ(onScreen(100, 100), green);
    EXPECT_EQ(onScreen(160, 100), host::systemColor(host::colorBackground));
    EXPECT_TRUE(desktop.destroyWindow(window));
    EXPECT_EQ(onScreen(100, 100), host::systemColor(host::colorBackground));
}

TEST_F(DesktopWindowsTest, showsWindowsInTheirOrder) {
    const Handle low = shownWindow({0, 0, 100, 100});
    const Handle high = shownWindow({50, 50, 150, 150});
    paint(low, red);
    paint(high, green);
    EXPECT_EQ(onScreen(49, 49), red);
    EXPECT_EQ(onScreen(60, 60), green);
    EXPECT_TRUE(desktop.raiseWindow(low));
    EXPECT_EQ(onScreen(60, 60), red);
    EXPECT_EQ(onScreen(120, 120), green);
    EXPECT_TRUE(desktop.moveWindow(low, {200, 200, 300, 300}));
    EXPECT_EQ(onScreen(60, 60), green);
    EXPECT_EQ(onScreen(10, 10), host::systemColor(host::colorBackground));
    EXPECT_EQ(onScreen(250, 250), red);
    EXPECT_TRUE(desktop.showWindow(high, false));
    EXPECT_EQ(onScreen(60, 60), host::systemColor(host::colorBackground));
    paint(high, blue); // it has its pixels all the same
    EXPECT_EQ(onScreen(60, 60), host::systemColor(host::colorBackground));
    EXPECT_EQ(at(high, 0, 0, DCX_WINDOW), blue);
    EXPECT_TRUE(desktop.showWindow(high, true));
    EXPECT_EQ(onScreen(60, 60), blue);
    EXPECT_TRUE(desktop.moveWindow(high, {-50, -50, 50, 50})); // partly outside
    EXPECT_EQ(onScreen(0, 0), blue);
    EXPECT_TRUE(desktop.destroyWindow(low));
    EXPECT_TRUE(desktop.destroyWindow(high));
}

TEST_F(DesktopWindowsTest, keepsTheInsideInAnotherSize) {
    const Handle window = shownWindow({0, 0, 60, 80});
    const Handle hdc = user.GetDC(window);
    EXPECT_EQ(gdi.SetPixel(hdc, 3, 2, red), red);
    EXPECT_TRUE(desktop.moveWindow(window, {10, 10, 200, 200}));
    EXPECT_EQ(gdi.GetPixel(hdc, 3, 2), red); // the context goes on with the new pixels
    EXPECT_EQ(gdi.GetPixel(hdc, 100, 100), host::systemColor(host::colorWindow));
    EXPECT_EQ(onScreen(10 + 4 + 3, 10 + 30 + 2), red);
    EXPECT_TRUE(desktop.moveWindow(window, {10, 10, 14, 20})); // no inside any more
    EXPECT_EQ(gdi.GetPixel(hdc, 0, 0), CLR_INVALID);
    EXPECT_EQ(gdi.SetPixel(hdc, 0, 0, red), CLR_INVALID);
    EXPECT_TRUE(gdi.Rectangle(hdc, 0, 0, 10, 10));
    EXPECT_FALSE(desktop.moveWindow(window, {0, 0, 100000, 100000}));
    EXPECT_TRUE(desktop.destroyWindow(window));
    EXPECT_EQ(gdi.GetPixel(hdc, 0, 0), CLR_INVALID);
    EXPECT_TRUE(user.ReleaseDC(window, hdc));
}

TEST_F(DesktopWindowsTest, leavesWhatIsDrawnOnTheScreenWhereNoWindowChanges) {
    const Handle low = shownWindow({0, 0, 100, 100});
    const Handle high = shownWindow({50, 50, 150, 150});
    const Handle screen = user.GetDC(0);
    for (const POINT place : {POINT{10, 10}, POINT{60, 60}, POINT{500, 500}}) {
        EXPECT_EQ(gdi.SetPixel(screen, place.x, place.y, green), green);
    }
    paint(low, red);
    EXPECT_EQ(gdi.GetPixel(screen, 10, 10), red);
    EXPECT_EQ(gdi.GetPixel(screen, 60, 60), green);
    EXPECT_EQ(gdi.GetPixel(screen, 500, 500), green);
    EXPECT_TRUE(desktop.moveWindow(high, {90, 90, 190, 190}));
    EXPECT_EQ(gdi.GetPixel(screen, 60, 60), red);
    EXPECT_EQ(gdi.GetPixel(screen, 500, 500), green);
    // Whoever writes to the pixels themselves says so.
    host::Window& window = *desktop.window(low);
    window.surface()->pixels(5)[5] = host::toPixel(blue);
    EXPECT_EQ(gdi.GetPixel(screen, 5, 5), red);
    desktop.invalidate(window);
    EXPECT_EQ(gdi.GetPixel(screen, 5, 5), blue);
    EXPECT_EQ(gdi.GetPixel(screen, 1024, 0), CLR_INVALID);
    EXPECT_TRUE(user.ReleaseDC(0, screen));
    EXPECT_TRUE(desktop.destroyWindow(low));
    EXPECT_TRUE(desktop.destroyWindow(high));
}

TEST_F(DesktopWindowsTest, capturesTheScreenAndWindows) {
    const Handle window = shownWindow({20, 10, 60, 60});
    const Handle cover = shownWindow({50, 50, 100, 100});
    paint(window, red);
    paint(window, green, 0);
    paint(cover, blue);
    Surface surface(machine.machine(), 60, 70);
    const auto capture = [&](Handle of, std::uint32_t flags) {
        const Handle hdc = user.GetDCEx(of, 0, flags);
        EXPECT_TRUE(gdi.BitBlt(surface.hdc(), 0, 0, 40, 50, hdc, of == 0 ? 20 : 0, of == 0 ? 10 : 0, SRCCOPY));
        EXPECT_TRUE(user.ReleaseDC(of, hdc));
    };
    const auto expect = [&](const char* what, COLORREF corner, COLORREF inside, COLORREF covered) {
        const auto at = [&](int x, int y) { return gdi.GetPixel(surface.hdc(), x, y); };
        EXPECT_EQ(at(0, 0), corner) << what;
        EXPECT_EQ(at(4, 30), inside) << what;
        EXPECT_EQ(at(35, 45), covered) << what;
        EXPECT_EQ(at(40, 50), 0xFFFFFFU) << what;
    };
    capture(0, 0);
    expect("screen", red, green, blue);
    capture(window, DCX_WINDOW);
    expect("window", red, green, green);
    surface.clear();
    capture(window, 0);
    expect("inside", green, 0xFFFFFF, 0xFFFFFF); // 32 by 16 pixels
    EXPECT_EQ(gdi.GetPixel(surface.hdc(), 31, 15), green);
    EXPECT_EQ(gdi.GetPixel(surface.hdc(), 32, 15), 0xFFFFFFU);
    // Into a window, and within one.
    const Handle hdc = user.GetDC(window);
    EXPECT_EQ(gdi.SetPixel(hdc, 0, 0, blue), blue);
    EXPECT_TRUE(gdi.BitBlt(hdc, 5, 5, 10, 10, hdc, 0, 0, SRCCOPY));
    EXPECT_EQ(onScreen(20 + 4 + 5, 10 + 30 + 5), blue);
    EXPECT_TRUE(user.ReleaseDC(window, hdc));
    EXPECT_TRUE(desktop.destroyWindow(window));
    EXPECT_TRUE(desktop.destroyWindow(cover));
}

TEST(BitmapPartTest, sharesThePixelsOfTheWhole) {
    const auto whole = host::Bitmap::create(5, 4);
    const auto part = host::Bitmap::part(whole, {1, 1, 4, 3});
    ASSERT_NE(part, nullptr);
    EXPECT_EQ(part->width(), 3);
    EXPECT_EQ(part->height(), 2);
    part->pixels(1)[2] = 0x123456;
    EXPECT_EQ(whole->pixels(2)[3], 0x123456U);
    EXPECT_EQ(part->bytes().data(), reinterpret_cast<std::byte*>(whole->pixels(1) + 1));
    EXPECT_EQ(part->bytes().data() + part->bytes().size(), reinterpret_cast<std::byte*>(whole->pixels(2) + 4));
    const auto copy = part->copy();
    EXPECT_EQ(copy->pixels(1)[2], 0x123456U);
    EXPECT_EQ(copy->bytes().size(), 24U);
    for (const RECT& area : {RECT{0, 0, 6, 1}, RECT{-1, 0, 2, 2}, RECT{2, 2, 2, 4}, RECT{0, 3, 1, 5}}) {
        EXPECT_EQ(host::Bitmap::part(whole, area), nullptr);
    }
    EXPECT_EQ(host::Bitmap::part(host::Bitmap::create({.width = 4, .height = 4, .bitsPerPixel = 24}), {0, 0, 1, 1}), nullptr);
}

} // namespace

} // namespace mox::test
