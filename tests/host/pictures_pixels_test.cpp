// The exported functions for pixels.
#include "pictures_files.h"
#include "pictures_support.h"

#include "host/pictures/imagefile.h"

namespace mox::test {

namespace {

using namespace platform;

struct PixelsTest : PicturesTest {
    static StdPicture taken(void* object) {
        return StdPicture(Ref<MoxRuntime::IPictureDisp>::attach(static_cast<MoxRuntime::IPictureDisp*>(object)));
    }
    static StdPicture create(LONG width, LONG height, const std::vector<BYTE>& rows, HRESULT expected = S_OK) {
        void* object = nullptr;
        EXPECT_EQ(MoxCreatePicture(width, height, rows.data(), rows.size(), IID_IDispatch, &object), expected);
        return taken(object);
    }
    static std::vector<BYTE> read(const StdPicture& picture, LONG x, LONG y, LONG cx, LONG cy, HRESULT expected = S_OK) {
        std::vector<BYTE> rows(static_cast<std::size_t>(cx > 0 && cy > 0 ? 4 * cx * cy : 4));
        EXPECT_EQ(MoxGetPixels(picture.get(), 0, x, y, cx, cy, rows.data(), rows.size()), expected);
        return rows;
    }
};

TEST_F(PixelsTest, goInAndComeOut) {
    const std::vector<BYTE> rows{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24};
    const StdPicture picture = create(3, 2, rows);
    EXPECT_EQ(picture.Type(), 1);
    EXPECT_EQ(picture.Width(), 79);
    LONG width = 0;
    LONG height = 0;
    EXPECT_EQ(MoxGetPixelSize(picture.get(), 0, &width, &height), S_OK);
    EXPECT_EQ(width, 3);
    EXPECT_EQ(height, 2);
    EXPECT_EQ(read(picture, 0, 0, 3, 2), rows);
    EXPECT_EQ(read(picture, 1, 1, 2, 1), std::vector<BYTE>(rows.begin() + 16, rows.end()));
    const StdPicture section =
        makePicture(describe(PICTYPE_BITMAP, machine->graphics.add(std::get<std::shared_ptr<host::Bitmap>>(host::readImage(
                                                 bmpOf(1, 2, 8, 0, {0x112233, 0x445566}, bytesOf({1, 0, 0, 0, 0, 0, 0, 0})))))));
    EXPECT_EQ(read(section, 0, 0, 1, 2), (std::vector<BYTE>{0x33, 0x22, 0x11, 0, 0x66, 0x55, 0x44, 0}));
    const StdPicture icon = makePicture(describe(PICTYPE_ICON, addIcon(2, 2)));
    EXPECT_EQ(read(icon, 1, 1, 1, 1), (std::vector<BYTE>{255, 255, 255, 0})) << "on white";
}

TEST_F(PixelsTest, outsideAreRefused) {
    const StdPicture picture = create(2, 2, std::vector<BYTE>(16));
    const struct {
        LONG x, y, cx, cy;
    } areas[] = {{-1, 0, 1, 1}, {0, -1, 1, 1}, {1, 0, 2, 1}, {0, 1, 1, 2},
                 {0, 0, 0, 1},  {0, 0, 1, -1}, {2, 2, 1, 1}, {0x7FFFFFFF, 0, 1, 1}};
    for (const auto& [x, y, cx, cy] : areas) {
        read(picture, x, y, cx, cy, E_INVALIDARG);
    }
    std::vector<BYTE> rows(15);
    EXPECT_EQ(MoxGetPixels(picture.get(), 0, 0, 0, 2, 2, rows.data(), rows.size()), E_INVALIDARG);
    EXPECT_EQ(MoxGetPixels(picture.get(), 0, 0, 0, 1, 1, nullptr, 4), E_INVALIDARG);
    EXPECT_EQ(MoxGetPixels(StdPicture::create().get(), 0, 0, 0, 1, 1, rows.data(), 4), E_INVALIDARG);
    EXPECT_EQ(MoxGetPixels(nullptr, 4711, 0, 0, 1, 1, rows.data(), 4), E_INVALIDARG);
    create(2, 2, rows, E_INVALIDARG);
    create(0, 2, {}, E_INVALIDARG);
    create(-1, -4, std::vector<BYTE>(16), E_INVALIDARG);
    LONG place = 0;
    EXPECT_EQ(MoxGetPixelSize(nullptr, 0, &place, &place), E_INVALIDARG);
    EXPECT_EQ(MoxGetPixelSize(nullptr, 0, nullptr, &place), E_POINTER);
}

TEST_F(PixelsTest, comeFromAContextThatAPictureWasRenderedOn) {
    const StdPicture picture = create(2, 2, {1, 0, 0, 0, 2, 0, 0, 0, 3, 0, 0, 0, 4, 0, 0, 0});
    const Handle hdc = machine->gdi32.CreateCompatibleDC(0);
    const Handle bitmap = machine->graphics.add(host::Bitmap::create(2, 2));
    const Handle before = machine->gdi32.SelectObject(hdc, bitmap);
    const Long width = picture.Width();
    const Long height = picture.Height();
    const struct {
        Long xSrc, ySrc, cxSrc, cySrc;
        std::vector<BYTE> blues;
    } cases[] = {
        {0, height, width, -height, {1, 2, 3, 4}},
        {0, 0, width, height, {3, 4, 1, 2}},                   // upside down
        {width / 2, height, width / 2, -height, {2, 2, 4, 4}}, // the right half
    };
    for (const auto& [xSrc, ySrc, cxSrc, cySrc, blues] : cases) {
        picture.Render(hdc, 0, 0, 2, 2, xSrc, ySrc, cxSrc, cySrc);
        std::vector<BYTE> rows(16);
        EXPECT_EQ(MoxGetPixels(nullptr, hdc, 0, 0, 2, 2, rows.data(), rows.size()), S_OK);
        EXPECT_EQ((std::vector<BYTE>{rows[0], rows[4], rows[8], rows[12]}), blues) << xSrc << " " << ySrc;
        EXPECT_EQ(MoxGetPixels(nullptr, hdc, 1, 1, 2, 1, rows.data(), 8), E_INVALIDARG);
    }
    EXPECT_EQ(errorOf([&] { picture.Render(hdc, 0, 0, 0, 2, 0, 0, 1, 1); }), 380);
    EXPECT_NE(errorOf([&] { picture.Render(4711, 0, 0, 1, 1, 0, height, width, -height); }), 0);
    machine->gdi32.SelectObject(hdc, before);
    machine->gdi32.DeleteDC(hdc);
    machine->gdi32.DeleteObject(bitmap);
}

TEST_F(PixelsTest, travelThroughFiles) {
    const std::vector<BYTE> rows{1, 2, 3, 0, 5, 6, 7, 0};
    const StdPicture picture = create(2, 1, rows);
    for (const BOOL asPng : {0, 1}) {
        SAFEARRAY* array = nullptr;
        ASSERT_EQ(MoxSavePicture(picture.get(), asPng, &array), S_OK);
        const auto file = Array<Byte>::attach(array);
        void* object = nullptr;
        ASSERT_EQ(MoxLoadPicture(file.data(), static_cast<std::size_t>(file.size()), IID_IDispatch, &object), S_OK);
        EXPECT_EQ(read(taken(object), 0, 0, 2, 1), rows);
        EXPECT_EQ(MoxLoadPicture(file.data(), 10, IID_IDispatch, &object), statusOfRuntimeError(481));
        EXPECT_EQ(object, nullptr);
    }
    SAFEARRAY* array = nullptr;
    EXPECT_EQ(MoxSavePicture(StdPicture::create().get(), 1, &array), E_INVALIDARG);
    EXPECT_EQ(MoxSavePicture(nullptr, 1, &array), E_INVALIDARG);
    void* object = nullptr;
    EXPECT_EQ(MoxLoadPicture(nullptr, 100, IID_IDispatch, &object), statusOfRuntimeError(481));
}

} // namespace

} // namespace mox::test
