// StdPicture and OleCreatePictureIndirect: kinds, sizes, and who frees the handle.
#include "pictures_support.h"

#include "support/faultsweep.h"

namespace mox::test {

namespace {

using namespace platform;

struct PictureTest : PicturesTest {};

TEST_F(PictureTest, aNewOneIsEmpty) {
    const StdPicture made = StdPicture::create();
    for (const StdPicture& picture : {made, makePicture(describe(PICTYPE_NONE, 0))}) {
        EXPECT_EQ(picture.Type(), 0);
        EXPECT_EQ(picture.Handle(), 0);
        EXPECT_EQ(picture.Width(), 0);
        EXPECT_EQ(picture.Height(), 0);
        picture.Render(0, 0, 0, 1, 1, 0, 0, 1, 1);
        EXPECT_EQ(errorOf([&] { picture.put_hPal(1); }), 380);
    }
}

TEST_F(PictureTest, tellsSizesInHundredthsOfAMillimetre) {
    const struct {
        int pixels;
        Long himetric;
    } cases[] = {{1, 26}, {2, 53}, {3, 79}, {16, 423}, {32, 847}, {96, 2540}, {100, 2646}, {1024, 27093}};
    for (const auto& [pixels, himetric] : cases) {
        const StdPicture bitmap = makePicture(describe(PICTYPE_BITMAP, addBitmap(pixels, 1), 77));
        EXPECT_EQ(bitmap.Width(), himetric) << pixels;
        EXPECT_EQ(bitmap.Height(), 26);
        EXPECT_EQ(bitmap.Type(), 1);
        EXPECT_EQ(bitmap.hPal(), 77);
        bitmap.put_hPal(5);
        EXPECT_EQ(bitmap.hPal(), 5);
    }
    HRESULT status = S_OK;
    const Handle icon = addIcon(16, 32);
    const StdPicture iconPicture = makePicture(describe(PICTYPE_ICON, icon), false, status);
    EXPECT_EQ(iconPicture.Type(), 3);
    EXPECT_EQ(iconPicture.Handle(), icon);
    EXPECT_EQ(iconPicture.Width(), 423);
    EXPECT_EQ(iconPicture.Height(), 847);
    EXPECT_TRUE(machine->handles.close<host::Icon>(icon));
    const Handle metafile = machine->graphics.add("metafile", host::OldMetafile{});
    const StdPicture oldPicture = makePicture(describe(PICTYPE_METAFILE, metafile, 0x8001FFFF), false, status);
    EXPECT_EQ(oldPicture.Type(), 2);
    EXPECT_EQ(oldPicture.Width(), 0xFFFF);
    EXPECT_EQ(oldPicture.Height(), 0x8001);
    EXPECT_EQ(oldPicture.hPal(), 0);
    EXPECT_TRUE(machine->handles.close<host::OldMetafile>(metafile));
    const Handle enhanced = machine->graphics.add("metafile", host::EnhancedMetafile{emptyMetafile({-100, 50, 2440, 1050})});
    const StdPicture enhancedPicture = makePicture(describe(PICTYPE_ENHMETAFILE, enhanced), false, status);
    EXPECT_EQ(enhancedPicture.Type(), 4);
    EXPECT_EQ(enhancedPicture.Width(), 2540);
    EXPECT_EQ(enhancedPicture.Height(), 1000);
    EXPECT_TRUE(machine->handles.close<host::EnhancedMetafile>(enhanced));
}

TEST_F(PictureTest, freesTheHandleThatItOwnsWithItsLastReference) {
    const Handle owned = addBitmap(4, 4);
    const Handle borrowed = addBitmap(4, 4);
    {
        const StdPicture first = makePicture(describe(PICTYPE_BITMAP, owned));
        const StdPicture second = first;
        EXPECT_EQ(first.Handle(), owned);
        const StdPicture third = makePicture(describe(PICTYPE_BITMAP, borrowed), false);
        EXPECT_TRUE(machine->graphics.bitmap(owned));
    }
    EXPECT_FALSE(machine->graphics.bitmap(owned));
    EXPECT_TRUE(machine->graphics.bitmap(borrowed));
    EXPECT_TRUE(machine->gdi32.DeleteObject(borrowed));
}

TEST_F(PictureTest, freesEachKindByItsOperation) {
    const struct {
        std::uint32_t type;
        Handle handle;
        OperationBase& operation;
    } cases[] = {
        {PICTYPE_BITMAP, addBitmap(1, 1), machine->gdi32.DeleteObject},
        {PICTYPE_METAFILE, machine->graphics.add("metafile", host::OldMetafile{}), machine->gdi32.DeleteMetaFile},
        {PICTYPE_ICON, addIcon(1, 1), machine->user32.DestroyIcon},
        {PICTYPE_ENHMETAFILE, machine->graphics.add("metafile", host::EnhancedMetafile{emptyMetafile({0, 0, 1, 1})}),
         machine->gdi32.DeleteEnhMetaFile},
    };
    for (const auto& [type, handle, operation] : cases) {
        makePicture(describe(type, handle));
        EXPECT_EQ(operation.calls(), 1u) << operation.fullName();
    }
}

TEST_F(PictureTest, refusesAHandleThatIsNotOfItsKind) {
    const Handle bitmap = addBitmap(2, 2);
    const Handle icon = addIcon(2, 2);
    const Handle pen = machine->gdi32.CreatePen(PS_SOLID, 1, 0);
    PICTDESC tooSmall = describe(PICTYPE_BITMAP, bitmap);
    tooSmall.cbSizeofstruct = 15;
    PICTDESC tooLarge = tooSmall;
    tooLarge.cbSizeofstruct = 0xFFFFFFFF;
    for (const PICTDESC& description :
         {describe(PICTYPE_BITMAP, 0), describe(PICTYPE_BITMAP, -1), describe(PICTYPE_BITMAP, 4712),
          describe(PICTYPE_BITMAP, icon), describe(PICTYPE_BITMAP, pen), describe(PICTYPE_ICON, bitmap),
          describe(PICTYPE_METAFILE, bitmap), describe(PICTYPE_ENHMETAFILE, bitmap), describe(5, bitmap),
          describe(0xFFFFFFFF, bitmap), tooSmall, tooLarge}) {
        HRESULT status = S_OK;
        EXPECT_FALSE(makePicture(description, true, status)) << description.picType << " " << description.handle;
        EXPECT_EQ(status, E_INVALIDARG);
    }
    void* object = &tooSmall;
    EXPECT_EQ(machine->oleaut32.OleCreatePictureIndirect(describe(PICTYPE_BITMAP, bitmap), IID_IClassFactory, true, &object),
              E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    EXPECT_EQ(machine->oleaut32.OleCreatePictureIndirect(describe(PICTYPE_BITMAP, bitmap), IID_IDispatch, true, nullptr),
              E_POINTER);
    // What failed has left all handles to us.
    EXPECT_TRUE(machine->gdi32.DeleteObject(bitmap));
    EXPECT_TRUE(machine->gdi32.DeleteObject(pen));
    EXPECT_TRUE(machine->handles.close<host::Icon>(icon));
}

TEST_F(PictureTest, isMadeByTheExportedFunctionToo) {
    const ::PICTDESC description{16, 1, addBitmap(3, 3), 0};
    void* object = nullptr;
    ASSERT_EQ(OleCreatePictureIndirect(&description, IID_IDispatch, VARIANT_TRUE, &object), S_OK);
    EXPECT_EQ(StdPicture(Ref<MoxRuntime::IPictureDisp>::attach(static_cast<MoxRuntime::IPictureDisp*>(object))).Width(), 79);
    ASSERT_EQ(OleCreatePictureIndirect(nullptr, IID_IDispatch, VARIANT_TRUE, &object), S_OK);
    EXPECT_EQ(StdPicture(Ref<MoxRuntime::IPictureDisp>::attach(static_cast<MoxRuntime::IPictureDisp*>(object))).Type(), -1);
    EXPECT_EQ(OleCreatePictureIndirect(&description, IID_IDispatch, VARIANT_TRUE, nullptr), E_POINTER);
    EXPECT_EQ(OleCreatePictureIndirect(nullptr, IID_IDispatch, VARIANT_TRUE, nullptr), E_POINTER);
}

TEST_F(PictureTest, losesNothingUnderFaults) {
    sweepFaults([](FaultRun& run) {
        const Handle bitmap = run.machine()->graphics.add(host::Bitmap::create(2, 2));
        void* object = nullptr;
        const HRESULT status =
            run.machine()->oleaut32.OleCreatePictureIndirect({16, PICTYPE_BITMAP, bitmap, 0}, IID_IDispatch, true, &object);
        EXPECT_EQ(SUCCEEDED(status), object != nullptr);
        EXPECT_TRUE(SUCCEEDED(status) || run.faulted());
        if (object) {
            static_cast<IDispatch*>(object)->Release();
        } else {
            EXPECT_TRUE(run.machine()->handles.close<host::Bitmap>(bitmap));
        }
    });
}

} // namespace

} // namespace mox::test
