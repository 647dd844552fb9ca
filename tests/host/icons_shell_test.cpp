#include "icons_support.h"

#include "host/icons/artwork.h"
#include "host/icons/icontheme.h"
#include "host/icons/vectordrawing.h"
#include "host/shell/shellpicture.h"

#include "support/faultsweep.h"

#include <png.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <set>

namespace mox::test {

namespace {

using namespace platform;
using host::Artwork;

constexpr std::uint32_t largeFlags = SHGFI_SYSICONINDEX | SHGFI_ICON | SHGFI_SHELLICONSIZE;
constexpr std::uint32_t smallFlags = largeFlags | SHGFI_SMALLICON;

std::filesystem::path makeFolder(TestMachine& machine, std::initializer_list<const char*> names) {
    // The home's own drive, so that a machine of any configuration has it.
    const std::filesystem::path folder = machine.home() / "drives/C/shown";
    std::filesystem::create_directories(folder);
    for (const char* name : names) {
        std::ofstream(folder / name) << "x";
    }
    return folder;
}

Pixels drawnPixels(Artwork artwork, int size) {
    return pixelsOf(*host::drawnIcon(artwork, {size, size})->image);
}

TEST(ArtworkTest, isThereInEverySizeAndNothingLooksLikeAnother) {
    for (const int size : {16, 32, 48}) {
        std::set<Pixels> seen;
        for (int number = 0; number < host::artworks; ++number) {
            const Pixels pixels = drawnPixels(static_cast<Artwork>(number), size);
            EXPECT_TRUE(seen.insert(pixels).second) << number;
            const auto opaque = std::ranges::count_if(pixels, [](host::Pixel pixel) { return pixel >> 24 == 0xFF; });
            EXPECT_GT(opaque, size * size / 5) << number;
            EXPECT_LT(pixels.front() >> 24, 0x60U) << number;
            EXPECT_LT(pixels.back() >> 24, 0x60U) << number;
        }
    }
    EXPECT_FALSE(host::drawnIcon(Artwork::folder, {0, 16}));
}

TEST(VectorDrawingTest, coversPixelsByArea) {
    struct {
        const char* figures;
        Pixels expected; // of 4 by 2 pixels, so that 8 by 16 units of the grid are one
    } const cases[] = {
        {"R 0 0 16 16 0", {0xFF0000FF, 0xFF0000FF, 0, 0, 0, 0, 0, 0}},
        {"R 4 8 20 32 0", {0x400000FF, 0x800000FF, 0x400000FF, 0, 0x800000FF, 0xFF0000FF, 0x800000FF, 0}},
        {"M 0 0 L 8 0 L 8 16 L 0 16 Z M 8 0 L 16 0 L 16 16 L 8 16", {0xFF0000FF, 0xFF0000FF, 0, 0, 0, 0, 0, 0}},
        {"R 0 0 16 16 0 R 0 0 16 16 0", {0xFF0000FF, 0xFF0000FF, 0, 0, 0, 0, 0, 0}},           // no hole
        {"M 0 0 L 8 0 L 8 16 L 0 16 Z M 0 0 L 0 16 L 8 16 L 8 0 Z", {0, 0, 0, 0, 0, 0, 0, 0}}, // a hole
        {"R -8 -16 40 48 0", Pixels(8, 0xFF0000FF)},                                           // beyond the edge
        {"M 0 0 L 8 0 L 0 16", {0x800000FF, 0, 0, 0, 0, 0, 0, 0}},
        {"", Pixels(8)},
    };
    for (const auto& [figures, expected] : cases) {
        const host::DrawnArea area{figures, 0xFF0000FF, 0xFF0000FF};
        const Pixels found = pixelsOf(*host::drawAreas({&area, 1}, 4, 2));
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_NEAR(found[i] >> 24, expected[i] >> 24, 1) << figures << ", pixel " << i;
            EXPECT_EQ(found[i] & 0xFFFFFF, found[i] >> 24 != 0 ? 0xFFU : 0U) << figures << ", pixel " << i;
        }
    }
    const host::DrawnArea line{"W 8 M 8 16 L 24 16", 0xFFFFFFFF, 0xFF000000};
    const Pixels found = pixelsOf(*host::drawAreas({&line, 1}, 32, 32));
    double area = 0;
    std::ranges::for_each(found, [&](host::Pixel pixel) { area += (pixel >> 24) / 255.0; });
    EXPECT_NEAR(area, 16 * 8 + 3.14159 * 16, 0.5); // with its round ends
    EXPECT_GT(found[12 * 32 + 16] & 0xFF, found[19 * 32 + 16] & 0xFF);
    for (const char* wrong : {"L 1 1", "M 1", "X", "O 1 2", "M 1 2 C 1 2 3", "M 1 2 W 3 L 4 5", "Z", "R 1 2 3 4"}) {
        const host::DrawnArea bad{wrong, 0, 0};
        EXPECT_THROW(host::drawAreas({&bad, 1}, 4, 4), std::invalid_argument) << wrong;
    }
}

TEST(ShellIconsTest, showsFilesByTheirKind) {
    TestMachine machine;
    const auto folder = makeFolder(machine, {"a.exe", "b.BAT", "c", "d.unknownkind"});
    std::filesystem::create_directories(folder / "sub");
    std::filesystem::create_directories(machine->config().trash);
    std::filesystem::create_directory_symlink(machine->config().trash, folder / "trash");
    struct {
        const char* path;
        std::uint32_t flags;
        Artwork artwork;
    } const cases[] = {
        {"C:\\", 0, Artwork::drive},
        {"C:\\shown", 0, Artwork::folder},
        {"C:\\shown\\sub\\", 0, Artwork::folder},
        {"C:\\shown", SHGFI_OPENICON, Artwork::openFolder},
        {"C:\\shown\\trash", SHGFI_OPENICON, Artwork::trash},
        {"C:\\shown\\A.EXE", 0, Artwork::application},
        {"C:\\shown\\b.bat", SHGFI_OPENICON, Artwork::application},
        {"C:\\shown\\d.unknownkind", 0, Artwork::document},
    };
    std::set<std::uint32_t> lists;
    for (const auto& [path, flags, artwork] : cases) {
        SCOPED_TRACE(path);
        for (const int size : {32, 16}) {
            SHFILEINFOA info;
            info.iIcon = -1;
            const std::uint32_t list =
                machine->shell32.SHGetFileInfoA(path, 0, info, flags | (size == 32 ? largeFlags : smallFlags));
            lists.insert(list);
            ASSERT_NE(info.hIcon, 0);
            EXPECT_EQ(pixelsOf(*machine->icons.icon(info.hIcon)->image), drawnPixels(artwork, size));
            EXPECT_TRUE(machine->user32.DestroyIcon(info.hIcon));
            SHFILEINFOA again;
            EXPECT_EQ(
                machine->shell32.SHGetFileInfoA(path, 0, again, flags | SHGFI_SYSICONINDEX | (size == 16 ? SHGFI_SMALLICON : 0)),
                list);
            EXPECT_EQ(again.iIcon, info.iIcon);
            EXPECT_EQ(again.hIcon, 0);
            EXPECT_EQ(machine->shell32.SHGetFileInfoA(path, 0, again, flags | SHGFI_ICON), 1U);
            EXPECT_TRUE(machine->user32.DestroyIcon(again.hIcon));
        }
    }
    EXPECT_EQ(lists.size(), 2U);
    EXPECT_EQ(lists.count(0), 0U);
    for (const char* path : {"C:\\none", "Q:\\", "", "C:\\*"}) {
        SHFILEINFOA info{"-", "-", 7, 8};
        EXPECT_EQ(machine->shell32.SHGetFileInfoA(path, 0, info, largeFlags | SHGFI_DISPLAYNAME), 0U) << path;
        EXPECT_EQ(info.szDisplayName + std::to_string(info.hIcon) + std::to_string(info.iIcon), "-78") << path;
    }
}

TEST(ShellIconsTest, knowsPicturesOfDrivesAndTypes) {
    struct {
        std::uint32_t kind;
        Artwork artwork;
    } const drives[] = {{DRIVE_REMOVABLE, Artwork::removableDrive},
                        {DRIVE_FIXED, Artwork::drive},
                        {DRIVE_REMOTE, Artwork::networkDrive},
                        {DRIVE_CDROM, Artwork::opticalDrive},
                        {DRIVE_RAMDISK, Artwork::drive}};
    for (const auto& [kind, artwork] : drives) {
        EXPECT_EQ(host::pictureOfDrive(kind).artwork, artwork) << kind;
    }
    if (!std::filesystem::exists("/usr/share/mime/generic-icons")) {
        GTEST_SKIP() << "no types are known here";
    }
    struct {
        const char* name;
        Artwork artwork;
    } const files[] = {{"a.txt", Artwork::text},  {"a.png", Artwork::image},   {"a.mp3", Artwork::audio},
                       {"a.avi", Artwork::video}, {"a.zip", Artwork::archive}, {"a.doc", Artwork::text}};
    for (const auto& [name, artwork] : files) {
        EXPECT_EQ(host::pictureOfFile(name).artwork, artwork) << name;
    }
}

/// An icon of one colour in a theme.
void writePng(const std::filesystem::path& file, int size, host::Pixel pixel) {
    std::filesystem::create_directories(file.parent_path());
    const Pixels pixels(static_cast<std::size_t>(size * size), pixel);
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = image.height = static_cast<png_uint_32>(size);
    image.format = PNG_FORMAT_BGRA;
    ASSERT_NE(png_image_write_to_file(&image, file.c_str(), 0, pixels.data(), 0, nullptr), 0);
}

void writeIndex(const std::filesystem::path& theme, const std::string& text) {
    std::filesystem::create_directories(theme);
    std::ofstream(theme / "index.theme") << "[Icon Theme]\nName=x\n" << text;
}

TEST(IconThemeTest, findsTheBestFileInThemesThatBuildOnOthers) {
    const host::TemporaryFolder data(std::filesystem::temp_directory_path(), "mox-icons-");
    const auto own = data.path() / "own";
    const auto shared = data.path() / "shared";
    writeIndex(own / "mine", "Inherits=base,mine\nDirectories=16/a,32/a,48/a,s/a,fine/a,none/a\n"
                             "[16/a]\nSize=16\n[32/a]\nSize=32\nType=Fixed\n[48/a]\nSize=48\n[s/a]\nSize=32\nType=Scalable\n"
                             "[fine/a]\nSize=32\nScale=2\n");
    writeIndex(shared / "base", "Inherits=mine,hicolor\nDirectories=32/b\n[32/b]\nSize=32\n");
    writeIndex(shared / "hicolor", "Directories=16/h\n[16/h]\nSize=16\n");
    writePng(own / "mine/16/a/one.png", 16, 0xFF000001);
    writePng(shared / "mine/32/a/one.png", 32, 0xFF000002); // the same theme in another folder
    writePng(own / "mine/fine/a/one.png", 64, 0xFF000003);
    writePng(own / "mine/48/a/two.png", 48, 0x80204060);
    writePng(own / "mine/16/a/two.png", 16, 0xFF000005);
    writePng(shared / "base/32/b/three.png", 32, 0xFF000006);
    writePng(shared / "hicolor/16/h/four.png", 16, 0xFF000007);
    writePng(own / "outside.png", 32, 0xFF000008);
    std::ofstream(own / "mine/32/a/damaged.png") << "\x89PNG\r\n\x1a\n and no more";
    const host::IconTheme theme({own, data.path() / "nowhere", shared}, "mine");
    struct {
        std::vector<std::string> names;
        int size;
        host::Pixel pixel; // 0: none
    } const cases[] = {
        {{"one"}, 16, 0xFF000001},
        {{"one"}, 32, 0xFF000002},
        {{"two"}, 16, 0xFF000005},
        {{"two"}, 32, 0x80204060}, // made smaller
        {{"none", "three"}, 32, 0xFF000006},
        {{"three", "one"}, 16, 0xFF000006},
        {{"four"}, 32, 0xFF000007},
        {{"damaged", "four"}, 16, 0xFF000007},
        {{"damaged"}, 32, 0},
        {{}, 16, 0},
        {{"../../../outside"}, 32, 0},
        {{"", ".."}, 32, 0},
    };
    for (const auto& [names, size, pixel] : cases) {
        const auto icon = theme.find(names, size);
        ASSERT_EQ(icon.has_value(), pixel != 0) << testing::PrintToString(names);
        if (icon) {
            EXPECT_EQ(pixelsOf(*icon->image), Pixels(static_cast<std::size_t>(size * size), pixel))
                << testing::PrintToString(names);
        }
    }
    host::MachineConfig config;
    config.iconFolders = {own, shared};
    config.iconTheme = "base";
    writePng(shared / "base/32/b/folder.png", 32, 0xFF123456);
    TestMachine machine(config);
    makeFolder(machine, {});
    SHFILEINFOA info;
    EXPECT_NE(machine->shell32.SHGetFileInfoA("C:\\shown", 0, info, smallFlags), 0U);
    EXPECT_EQ(pixelsOf(*machine->icons.icon(info.hIcon)->image), Pixels(256, 0xFF123456));
    EXPECT_TRUE(machine->user32.DestroyIcon(info.hIcon));
}

TEST(ImageListTest, drawsFocusAndSelectionBlended) {
    TestMachine machine;
    makeFolder(machine, {});
    constexpr COLORREF highlight = 0xCC6633;
    const auto color = machine->user32.GetSysColor.replace([](std::int32_t index) { return index == 13 ? highlight : 0; });
    SHFILEINFOA info;
    const auto list = static_cast<Handle>(machine->shell32.SHGetFileInfoA("C:\\shown", 0, info, SHGFI_SYSICONINDEX));
    ASSERT_NE(list, 0);
    const Pixels icon = drawnPixels(Artwork::folder, 32);
    struct {
        std::uint32_t style;
        double part;
    } const cases[] = {{ILD_NORMAL, 0},
                       {ILD_TRANSPARENT, 0},
                       {ILD_TRANSPARENT | ILD_BLEND25, 0.25},
                       {ILD_TRANSPARENT | ILD_BLEND50, 0.5},
                       {ILD_BLEND25 | ILD_BLEND50, 0.5}};
    for (const auto& [style, part] : cases) {
        const Handle hdc = machine->gdi32.CreateCompatibleDC(0);
        const Handle bitmap = addBitmap(machine, {.width = 32, .height = 32}, Pixels(1024, 0x00FF00));
        const Handle first = machine->gdi32.SelectObject(hdc, bitmap);
        EXPECT_TRUE(machine->comctl32.ImageList_Draw(list, info.iIcon, hdc, 0, 0, style));
        const Pixels found = pixelsOf(*machine->graphics.bitmap(bitmap));
        for (std::size_t i = 0; i < icon.size(); ++i) {
            const double alpha = (icon[i] >> 24) / 255.0;
            for (int shift = 0; shift < 24; shift += 8) {
                const double shown = (icon[i] >> shift & 0xFF) * (1 - part) + (host::toPixel(highlight) >> shift & 0xFF) * part;
                ASSERT_NEAR(found[i] >> shift & 0xFF, shown * alpha + (shift == 8 ? 255 : 0) * (1 - alpha), 2)
                    << style << ", pixel " << i << ", bit " << shift;
            }
        }
        for (const std::int32_t none : {-1, 1000}) {
            EXPECT_FALSE(machine->comctl32.ImageList_Draw(list, none, hdc, 0, 0, style));
        }
        EXPECT_FALSE(machine->comctl32.ImageList_Draw(bitmap, info.iIcon, hdc, 0, 0, style));
        EXPECT_FALSE(machine->comctl32.ImageList_Draw(list, info.iIcon, bitmap, 0, 0, style));
        machine->gdi32.SelectObject(hdc, first);
        EXPECT_TRUE(machine->gdi32.DeleteObject(bitmap));
        EXPECT_TRUE(machine->gdi32.DeleteDC(hdc));
    }
}

TEST(ShellIconsTest, leavesNothingBehindUnderFaults) {
    sweepFaults([](FaultRun& run) {
        TestMachine& machine = run.machine();
        SHFILEINFOA info;
        const bool isKnown = machine->shell32.SHGetFileInfoA("C:\\", 0, info, largeFlags) != 0;
        EXPECT_EQ(isKnown, info.hIcon != 0);
        EXPECT_TRUE(isKnown || run.faulted());
        const bool isGone = isKnown && machine->user32.DestroyIcon(info.hIcon);
        EXPECT_TRUE(isGone || run.faulted());
        const Handle icon = machine->user32.LoadIconA(0, IDI_HAND);
        ICONINFO parts;
        if (machine->user32.GetIconInfo(icon, parts)) {
            const Handle copy = machine->user32.CreateIconIndirect(parts);
            EXPECT_TRUE(copy != 0 || run.faulted());
            machine->user32.DestroyIcon(copy);
        }
        machine->gdi32.DeleteObject(parts.hbmMask);
        machine->gdi32.DeleteObject(parts.hbmColor);
    });
}

} // namespace

} // namespace mox::test
