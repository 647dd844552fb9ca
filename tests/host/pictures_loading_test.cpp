// LoadPicture and SavePicture, and the formats that come through libraries.
#include "pictures_files.h"
#include "pictures_jpegs.h"
#include "pictures_support.h"

#include "host/pictures/imagefile.h"
#include "host/pictures/pngfile.h"

#include <fstream>

namespace mox::test {

namespace {

using host::ImageError;
using host::Pixel;

Bytes fromHex(std::string_view text) {
    Bytes bytes;
    const auto digit = [](char c) { return static_cast<unsigned>(c <= '9' ? c - '0' : c - 'A' + 10); };
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        bytes.push_back(static_cast<std::byte>(digit(text[i]) << 4 | digit(text[i + 1])));
    }
    return bytes;
}

/// A screen of so many pixels with a picture of 3 by 1 in it: colours 1, 2 and 3 of black, red, green, blue.
Bytes gifOf(unsigned width, unsigned height, int transparent = -1, unsigned pictureWidth = 3) {
    FileMaker file;
    file.text("GIF89a").u16({width, height}).u8({0x81, 0, 0}).u8({0, 0, 0, 255, 0, 0, 0, 255, 0, 0, 0, 255});
    if (transparent >= 0) {
        file.u8({0x21, 0xF9, 4, 1, 0, 0, static_cast<unsigned>(transparent), 0});
    }
    file.u8({0x2C}).u16({0, 0, pictureWidth, 1}).u8({0, 2, 2, 0x8C, 0x56, 0, 0x3B});
    return file.bytes();
}

Pixel distanceOf(Pixel one, Pixel other) {
    Pixel most = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        most = std::max(
            most, static_cast<Pixel>(std::abs(static_cast<int>(one >> shift & 0xFF) - static_cast<int>(other >> shift & 0xFF))));
    }
    return most;
}

TEST(JpegFiles, areReadInAllColourSpaces) {
    const struct {
        std::string_view file;
        Pixel left, right;
    } cases[] = {{greyJpeg, 0, 0xFFFFFF},
                 {colourJpeg, 0xFF0000, 0x0000FF},
                 {progressiveJpeg, 0xFF0000, 0x0000FF},
                 {inkJpeg, 0xFFFFFF, 0x008080}};
    for (const auto& [hex, left, right] : cases) {
        const Bytes file = fromHex(hex);
        const auto bitmap = host::readBitmap(file);
        ASSERT_EQ(bitmap->width(), 8);
        ASSERT_EQ(bitmap->height(), 1);
        for (int x = 0; x < 8; ++x) {
            EXPECT_LE(distanceOf(bitmap->pixels(0)[x], x < 4 ? left : right), 4u) << x << " " << std::hex << bitmap->pixels(0)[x];
            EXPECT_EQ(bitmap->pixels(0)[x] >> 24, 0u);
        }
        for (std::size_t size = 0; size < file.size(); ++size) {
            EXPECT_TRUE(isRefused(std::span(file).first(size))) << size;
        }
    }
}

TEST(JpegFiles, withAbsurdSizesAreRefused) {
    Bytes file = fromHex(greyJpeg);
    const auto frame = std::ranges::search(file, bytesOf({0xFF, 0xC0})).begin();
    std::fill_n(frame + 5, 4, std::byte{0xFF});
    EXPECT_TRUE(isRefused(file));
}

TEST(GifFiles, areReadWithWhiteForWhatIsTransparent) {
    const struct {
        Bytes file;
        std::vector<Pixel> first;
        int width, height;
    } cases[] = {
        {gifOf(3, 1), {0xFF0000, 0x00FF00, 0x0000FF}, 3, 1},
        {gifOf(3, 1, 2), {0xFF0000, 0xFFFFFF, 0x0000FF}, 3, 1},
        {gifOf(4, 2), {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF}, 4, 2},
        {gifOf(0, 0), {0xFF0000, 0x00FF00, 0x0000FF}, 3, 1},
    };
    for (const auto& [file, first, width, height] : cases) {
        const auto bitmap = host::readBitmap(file);
        ASSERT_EQ(bitmap->width(), width);
        ASSERT_EQ(bitmap->height(), height);
        EXPECT_EQ(std::vector<Pixel>(bitmap->pixels(0), bitmap->pixels(0) + width * height), first);
    }
    const Bytes whole = gifOf(3, 1, 2);
    for (std::size_t size = 0; size + 3 < whole.size(); ++size) { // without what ends the picture and the file
        EXPECT_TRUE(isRefused(std::span(whole).first(size))) << size;
    }
    EXPECT_TRUE(isRefused(gifOf(3, 1, -1, 0)));
    EXPECT_TRUE(isRefused(gifOf(0xFFFF, 0xFFFF)));
    EXPECT_TRUE(isRefused(gifOf(3, 1, -1, 0xFFFF)));
}

TEST(PngFiles, areMixedWithWhite) {
    const auto opaque = host::Bitmap::create(2, 1);
    opaque->pixels(0)[1] = 0x12345678;
    EXPECT_EQ(host::readBitmap(host::writePng(*opaque))->pixels(0)[1], 0x345678u);
    EXPECT_EQ(host::readPng(host::writePng(*opaque))->pixels(0)[1], 0xFF345678u);
    // Two pixels with alpha by an independent writer: half of red, and nothing.
    const auto mixed = host::readBitmap(
        fromHex("89504E470D0A1A0A0000000D4948445200000002000000010806000000F4227F8A0000000F4944415478DA63F8CFC0D0C000"
                "04000A810180B4FB42A00000000049454E44AE426082"));
    EXPECT_LE(distanceOf(mixed->pixels(0)[0], 0xFF7F7F), 1u);
    EXPECT_EQ(mixed->pixels(0)[1], 0xFFFFFFu);
    Bytes absurd = host::writePng(*opaque);
    absurd[16] = absurd[20] = std::byte{0x7F};
    EXPECT_TRUE(isRefused(absurd));
}

struct LoadingTest : PicturesTest {
    Global global = Global::create();

    std::filesystem::path place(const char* name) const { return const_cast<TestMachine&>(machine).folder() / name; }
    Variant drivePath(const char* name) { return String(machine->codePage.toUtf16(machine->files.toDrivePath(place(name)))); }
    void write(const char* name, const Bytes& bytes) const {
        std::ofstream(place(name), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    Bytes read(const char* name) const {
        std::ifstream file(place(name), std::ios::binary);
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        return FileMaker().text(text).bytes();
    }
};

TEST_F(LoadingTest, makesPicturesOfAllKindsWhateverTheName) {
    const struct {
        const char* name;
        Bytes file;
        Integer type;
        Long width;
    } cases[] = {
        {"bitmap", bmpOf(96, 1, 1, 0, {0, 1}, Bytes(12)), 1, 2540},
        {"jpeg.bmp", fromHex(colourJpeg), 1, 212},
        {"gif.ico", gifOf(96, 1), 1, 2540},
        {"png.jpg", host::writePng(*host::Bitmap::create(96, 2)), 1, 2540},
        {"icon", icoOf(1, {{2, 1, 24, iconDib(2, 1, 24, {}, Bytes(12))}}), 3, 53},
        {"metafile", placeableWmfOf(0x7FFF, 1, 254), 2, 327670},
        {"enhanced", emptyMetafile({0, 0, 1234, 5}), 4, 1234},
    };
    for (const auto& [name, file, type, width] : cases) {
        SCOPED_TRACE(name);
        write(name, file);
        const StdPicture picture = global.LoadPicture(drivePath(name));
        EXPECT_EQ(picture.Type(), type);
        EXPECT_EQ(picture.Width(), width);
        EXPECT_NE(picture.Handle(), 0);
        global.SavePicture(picture, drivePath("saved").as<String>());
        const StdPicture again = global.LoadPicture(drivePath("saved"));
        EXPECT_EQ(again.Type(), type);
        EXPECT_NEAR(again.Width(), width, 10);
    }
    EXPECT_EQ(global.LoadPicture(String()).Type(), 0);
}

TEST_F(LoadingTest, raisesWhatIsWrong) {
    write("text", FileMaker().text("this is no picture").bytes());
    write("nothing", {});
    write("cut", bmpOf(9, 9, 24, 0, {}, Bytes(9)));
    write("huge", bmpOf(100000, 100000, 24, 0, {}, Bytes(9)));
    std::filesystem::create_directory(place("folder"));
    const struct {
        const char* name;
        Long error;
    } cases[] = {{"text", 481}, {"nothing", 481}, {"cut", 481}, {"huge", 7}, {"missing", 53}, {"no/such", 76}, {"folder", 75}};
    for (const auto& [name, error] : cases) {
        EXPECT_EQ(errorOf([&] { global.LoadPicture(drivePath(name)); }), error) << name;
    }
    EXPECT_EQ(openHandles(), 0u);
}

TEST_F(LoadingTest, replacesAFileWholeOrNotAtAll) {
    const Bytes before = FileMaker().text("what was there").bytes();
    const StdPicture picture = makePicture(describe(platform::PICTYPE_BITMAP, addBitmap(2, 2)));
    const StdPicture empty = StdPicture::create();
    const auto save = [&](const StdPicture& saved, const char* name) {
        return errorOf([&] { global.SavePicture(saved, drivePath(name).as<String>()); });
    };
    write("file", before);
    std::filesystem::permissions(place("file"), std::filesystem::perms::owner_read | std::filesystem::perms::owner_write |
                                                    std::filesystem::perms::group_read);
    EXPECT_EQ(save(empty, "file"), 380);
    EXPECT_EQ(save(StdPicture(), "file"), 91);
    EXPECT_EQ(read("file"), before);
    EXPECT_EQ(save(picture, "file"), 0);
    EXPECT_EQ(global.LoadPicture(drivePath("file")).Width(), 53);
    EXPECT_EQ(std::filesystem::status(place("file")).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write | std::filesystem::perms::group_read);
    std::filesystem::create_directory(place("folder"));
    EXPECT_EQ(save(picture, "folder"), 75);
    EXPECT_EQ(save(picture, "no/such"), 76);
    write("target", before);
    std::filesystem::create_symlink("target", place("link"));
    EXPECT_EQ(save(picture, "link"), 0);
    EXPECT_TRUE(std::filesystem::is_symlink(place("link")));
    EXPECT_NE(read("target"), before);
    platform::Handle number = 0;
    ASSERT_EQ(machine->runtime.OpenBinary(machine->files.toDrivePath(place("file")), platform::FileAccess::read, number), 0);
    machine->runtime.CloseFile(number);
    for (const auto& entry : std::filesystem::directory_iterator(machine.folder())) {
        EXPECT_FALSE(entry.path().filename().native().starts_with(".mox-")) << entry.path();
    }
}

} // namespace

} // namespace mox::test
