// The bitmap filters from picture to picture.
#include "support/faultsweep.h"
#include "support/invoke.h"

#include "automation/objects/runtimeerror.h"
#include "core/classes.h"
#include "drawing/pictureproperties.h"

#include <mox/mox.h>
#include <mox/sharedobject.h>

#include <gtest/gtest.h>

#include <cstring>

namespace mox::test {

namespace {

using Pixels = std::vector<std::uint32_t>;

constexpr Long width = 4;
constexpr Long height = 3;
/// The bottom row first. White, black, grey, and colours.
const Pixels sample{0xFFFFFF, 0x000000, 0x7F7F7F, 0x0000FF, 0x00FF00, 0xFF0000,
                    0x123456, 0x808080, 0xFA0201, 0x646464, 0x010203, 0xFEFDFC};

StdPicture pictureOf(platform::Handle handle, std::uint32_t type = platform::PICTYPE_BITMAP) {
    platform::PICTDESC description;
    description.picType = type;
    description.handle = handle;
    void* object = nullptr;
    if (platform::oleaut32().OleCreatePictureIndirect(description, IID_IDispatch, true, &object) != S_OK) {
        platform::gdi32().DeleteObject(handle);
        return {};
    }
    return StdPicture(
        Ref<MoxRuntime::IPictureDisp>::attach(static_cast<MoxRuntime::IPictureDisp*>(static_cast<IDispatch*>(object))));
}

platform::Handle sampleSection() {
    platform::BITMAPINFO info;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biBitCount = 32;
    std::byte* bits = nullptr;
    const platform::Handle section = platform::gdi32().CreateDIBSection(0, info, platform::DIB_RGB_COLORS, bits);
    if (section != 0) {
        std::memcpy(bits, sample.data(), sample.size() * 4);
    }
    return section;
}

/// The pixels of a bitmap of the kind that filters make; none of other bitmaps.
Pixels pixelsOf(const StdPicture& picture) {
    platform::BITMAP bitmap;
    if (!picture || picture.Type() != platform::PICTYPE_BITMAP ||
        platform::gdi32().GetObjectA(picture.Handle(), platform::bytesOf(bitmap)) == 0 || bitmap.bmBitsPixel != 32 ||
        bitmap.bmWidthBytes != bitmap.bmWidth * 4 || !bitmap.bmBits) {
        return {};
    }
    Pixels pixels(static_cast<std::size_t>(bitmap.bmWidth) * static_cast<std::size_t>(bitmap.bmHeight));
    std::memcpy(pixels.data(), bitmap.bmBits, pixels.size() * 4);
    return pixels;
}

/// What a filter makes of each pixel of the sample.
Pixels eachOf(const std::function<std::uint32_t(std::uint32_t pixel)>& function) {
    Pixels result;
    std::ranges::transform(sample, std::back_inserter(result), function);
    return result;
}

/// One call of each filter.
struct FilterCase {
    const char* name;
    std::function<StdPicture(const moxBitmapFilter& filter, const StdPicture& picture)> call;
    Pixels expected;
};

std::vector<FilterCase> cases() {
    const auto grey = [](std::uint32_t pixel) {
        return ((pixel & 0xFF) * 71 + (pixel >> 8 & 0xFF) * 707 + (pixel >> 16) * 222) / 1000;
    };
    return {
        {"Brightness", [](auto& filter, auto& picture) { return filter.Brightness(picture, 255); },
         eachOf([](auto) { return 0xFFFFFFu; })},
        {"Contrast", [](auto& filter, auto& picture) { return filter.Contrast(picture, 32676); }, {}},
        {"Emboss", [](auto& filter, auto& picture) { return filter.Emboss(picture, 8); }, {}},
        {"GrayScale", [](auto& filter, auto& picture) { return filter.GrayScale(picture); },
         eachOf([&](auto pixel) { return grey(pixel) * 0x010101; })},
        {"GrayScale by its first factor", [](auto& filter, auto& picture) { return filter.GrayScale(picture, 1000, 0, 0); },
         eachOf([&](auto pixel) { return (pixel & 0xFF) * 0x010101; })},
        {"HSL without a change", [](auto& filter, auto& picture) { return filter.HSL(picture, False, 7, False, 8, False, 9); },
         sample},
        {"HSL of no brightness", [](auto& filter, auto& picture) { return filter.HSL(picture, False, 7, False, 8, True, 0); },
         Pixels(sample.size())},
        {"Invert", [](auto& filter, auto& picture) { return filter.Invert(picture); },
         eachOf([](auto pixel) { return pixel ^ 0xFFFFFF; })},
        {"Neon", [](auto& filter, auto& picture) { return filter.Neon(picture); }, {}},
        {"BlackAndWhite", [](auto& filter, auto& picture) { return filter.BlackAndWhite(picture, 128, 0x0000C0, 0x30FF20); },
         eachOf([&](auto pixel) { return grey(pixel) < 128 ? 0xC00000u : 0x20FF30u; })},
        {"RGB", [](auto& filter, auto& picture) { return filter.RGB(picture, 20, 0, 0, True); },
         eachOf([](auto pixel) { return (pixel + 0x140000) & 0xFFFFFF; })},
    };
}

class FiltersTest : public testing::Test {
protected:
    TestMachine machine;
    const moxBitmapFilter filter{server::create<TRL_OBKR_MOX::_moxBitmapFilter>()};
};

TEST_F(FiltersTest, MakeNewPictures) {
    const StdPicture picture = pictureOf(sampleSection());
    for (const auto& [name, call, expected] : cases()) {
        const StdPicture result = call(filter, picture);
        ASSERT_TRUE(static_cast<bool>(result)) << name;
        EXPECT_NE(result.Handle(), picture.Handle()) << name;
        const Pixels pixels = pixelsOf(result);
        EXPECT_EQ(pixels.size(), sample.size()) << name;
        if (!expected.empty()) {
            EXPECT_EQ(pixels, expected) << name;
        }
    }
    EXPECT_EQ(pixelsOf(picture), sample);
}

TEST_F(FiltersTest, OfThePlaceOfPixels) {
    const StdPicture picture = pictureOf(sampleSection());
    // The second pixel of the middle row: white below on the left of it, nearly black above on the right.
    EXPECT_EQ(pixelsOf(filter.Emboss(picture, 4))[5], 0x7F7F7Fu);
    EXPECT_EQ(pixelsOf(filter.Emboss(picture, 0))[5], 0xFFFFFFu);
    EXPECT_EQ(pixelsOf(filter.Emboss(picture)), pixelsOf(filter.Emboss(picture, 9)));
    EXPECT_NE(pixelsOf(filter.Neon(picture, 10, 0))[0], pixelsOf(filter.Neon(picture, 10, 2))[0]);
}

TEST_F(FiltersTest, ByNameAndByDefault) {
    const StdPicture picture = pictureOf(sampleSection());
    const Variant given(Ref<IDispatch>(picture.get()));
    const auto result = [&](const char16_t* name, const auto&... arguments) {
        const auto object = invoke(filter.get(), name, given, arguments...).template as<Ref<IDispatch>>();
        return pixelsOf(StdPicture(Ref<MoxRuntime::IPictureDisp>(static_cast<MoxRuntime::IPictureDisp*>(object.get()))));
    };
    EXPECT_EQ(result(u"Invert"), pixelsOf(filter.Invert(picture)));
    EXPECT_EQ(result(u"RGB", Byte{20}), pixelsOf(filter.RGB(picture, 20, 0, 0, False)));
    EXPECT_EQ(result(u"Neon"), pixelsOf(filter.Neon(picture, 10, 0, False)));
    EXPECT_EQ(result(u"BlackAndWhite"), pixelsOf(filter.BlackAndWhite(picture, 128, 0, 0xFFFFFF)));
    EXPECT_EQ(result(u"HSL"), sample);
}

TEST_F(FiltersTest, SystemColors) {
    const StdPicture picture = pictureOf(sampleSection());
    constexpr Long activeCaption = static_cast<Long>(0x80000002u);
    const platform::COLORREF color = machine->user32.GetSysColor(2);
    const std::uint32_t pixel = (color & 0xFF) << 16 | (color & 0xFF00) | color >> 16;
    EXPECT_EQ(pixelsOf(filter.BlackAndWhite(picture, 0, 0, activeCaption)), Pixels(sample.size(), pixel));
}

TEST_F(FiltersTest, BitmapsOfOtherDepths) {
    for (const std::uint32_t depth : {1u, 24u, 32u}) {
        const platform::Handle handle = machine->gdi32.CreateBitmap(5, 2, 1, depth, {});
        const StdPicture picture = pictureOf(handle);
        EXPECT_EQ(pixelsOf(filter.Invert(picture)), Pixels(10, 0xFFFFFF)) << depth;
    }
}

TEST_F(FiltersTest, NothingForOtherPictures) {
    const platform::Handle metafile = machine->gdi32.CloseEnhMetaFile(machine->gdi32.CreateEnhMetaFileA(0, "", {}, ""));
    const StdPicture others[] = {{},
                                 pictureOf(machine->user32.LoadIconA(0, platform::IDI_HAND), platform::PICTYPE_ICON),
                                 pictureOf(metafile, platform::PICTYPE_ENHMETAFILE)};
    for (const StdPicture& other : others) {
        for (const auto& [name, call, expected] : cases()) {
            EXPECT_FALSE(static_cast<bool>(call(filter, other))) << name << " of " << &other - others;
        }
    }
    const StdPicture picture = pictureOf(sampleSection());
    const auto before = machine->gdi32.CreateDIBSection.calls();
    EXPECT_FALSE(static_cast<bool>(filter.Brightness(picture, 256)));
    EXPECT_EQ(machine->gdi32.CreateDIBSection.calls(), before);
}

TEST(FiltersFaults, GiveNothingAndLeakNothing) {
    for (const FilterCase& one : cases()) {
        SCOPED_TRACE(one.name);
        sweepFaults([&](FaultRun& run) {
            const StdPicture picture = pictureOf(sampleSection());
            if (!picture) {
                EXPECT_TRUE(run.faulted());
                return;
            }
            const moxBitmapFilter filter{server::create<TRL_OBKR_MOX::_moxBitmapFilter>()};
            const StdPicture result = one.call(filter, picture);
            EXPECT_TRUE(static_cast<bool>(result) || run.faulted());
            if (result && !one.expected.empty()) {
                const Pixels pixels = pixelsOf(result);
                EXPECT_TRUE(pixels == one.expected || (run.faulted() && pixels.empty()));
            }
        });
    }
}

/// A picture object of somebody else, which answers calls by identifier alone.
class ForeignPicture final : public SharedObject<IDispatch> {
public:
    ForeignPicture(Variant type, platform::Handle handle, EXCEPINFO failure)
        : type_(std::move(type)), handle_(handle), failure_(failure) {}

    HRESULT GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
    HRESULT Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                   UINT*) override {
        EXPECT_EQ(flags, DISPATCH_PROPERTYGET);
        EXPECT_EQ(parameters->cArgs, 0u);
        if (failure_.scode != 0 || failure_.wCode != 0) {
            *exception = failure_;
            exception->bstrDescription = String(u"out of paper").detach();
            return DISP_E_EXCEPTION;
        }
        Variant handle(handle_);
        return id == 0 ? VariantCopy(result, &handle) : id == 3 ? VariantCopy(result, &type_) : DISP_E_MEMBERNOTFOUND;
    }

private:
    Variant type_;
    const platform::Handle handle_;
    const EXCEPINFO failure_;
};

StdPicture foreignPicture(const Variant& type, platform::Handle handle, EXCEPINFO failure = {}) {
    const auto object = makeShared<IDispatch, ForeignPicture>(type, handle, failure);
    return StdPicture(Ref<MoxRuntime::IPictureDisp>(static_cast<MoxRuntime::IPictureDisp*>(object.get())));
}

TEST_F(FiltersTest, PicturesOfOthers) {
    const StdPicture own = pictureOf(sampleSection());
    // The kind may come as any number.
    EXPECT_EQ(pixelsOf(filter.Invert(foreignPicture(Variant(Long{1}), own.Handle()))), pixelsOf(filter.Invert(own)));
    EXPECT_EQ(pixelsOf(filter.Invert(foreignPicture(Variant(u"1"), own.Handle()))), pixelsOf(filter.Invert(own)));
    EXPECT_FALSE(static_cast<bool>(filter.Invert(foreignPicture(Variant(Integer{3}), own.Handle()))));
    EXPECT_FALSE(static_cast<bool>(filter.Invert(foreignPicture(Variant(u"bitmap"), own.Handle()))));
    EXPECT_FALSE(static_cast<bool>(filter.Invert(foreignPicture(Variant(Integer{1}), 0))));
    EXPECT_FALSE(static_cast<bool>(filter.Invert(foreignPicture(Variant(Integer{1}), 12345678))));
    const platform::Handle pen = machine->gdi32.CreatePen(platform::PS_SOLID, 1, 0);
    EXPECT_FALSE(static_cast<bool>(filter.Invert(foreignPicture(Variant(Integer{1}), pen))));
    machine->gdi32.DeleteObject(pen);
}

TEST(PictureProperties, RaiseWhatTheObjectSays) {
    const auto errorOfType = [](MoxRuntime::IPictureDisp* picture) -> std::pair<Long, String> {
        try {
            server::pictureType(picture);
        } catch (const RuntimeError& error) {
            return {error.number(), String(error.description())};
        } catch (const StatusError& error) {
            return {error.status(), {}};
        }
        return {0, {}};
    };
    EXPECT_EQ(errorOfType(nullptr).first, 91);
    EXCEPINFO failure{};
    failure.wCode = 1234;
    EXPECT_EQ(errorOfType(foreignPicture({}, 0, failure).get()), std::pair(Long{1234}, String(u"out of paper")));
    failure = {};
    failure.scode = statusOfRuntimeError(482);
    EXPECT_EQ(errorOfType(foreignPicture({}, 0, failure).get()), std::pair(Long{482}, String(u"out of paper")));
    failure.scode = E_OUTOFMEMORY;
    EXPECT_EQ(errorOfType(foreignPicture({}, 0, failure).get()).first, E_OUTOFMEMORY);
    EXPECT_EQ(errorOfType(foreignPicture(Variant(u"x"), 0).get()).first, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(errorOfType(foreignPicture(Variant(Integer{4}), 0).get()).first, 0);
    EXPECT_THROW(server::pictureWidth(foreignPicture({}, 0).get()), StatusError);
}

} // namespace

} // namespace mox::test
