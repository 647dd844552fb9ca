// The platform's own classes: created by identifier and by name, without any server file.
#include "pictures_support.h"

namespace mox::test {

namespace {

struct ClassesTest : PicturesTest {
    Ref<IDispatch> make(const GUID& id) {
        Ref<IDispatch> object;
        const std::int32_t error = machine->runtime.New(id, object);
        EXPECT_EQ(error, object ? 0 : 429);
        return object;
    }
};

TEST_F(ClassesTest, areCreatedByTheirNames) {
    for (const char16_t* name : {u"StdFont", u"StdPicture", u"PropertyBag", u"Screen", u"Global"}) {
        const std::u16string progId = std::u16string(u"MoxRuntime.") + name;
        CLSID id{};
        ASSERT_EQ(CLSIDFromProgID(progId.c_str(), &id), S_OK);
        LPOLESTR back = nullptr;
        ASSERT_EQ(ProgIDFromCLSID(id, &back), S_OK);
        EXPECT_EQ(std::u16string(back), progId);
        CoTaskMemFree(back);
        void* object = nullptr;
        ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &object), S_OK) << utf8FromUtf16(progId);
        static_cast<IDispatch*>(object)->Release();
        EXPECT_TRUE(make(id));
    }
}

TEST_F(ClassesTest, withoutCodeAreNotAvailable) {
    for (const GUID& id : {MoxRuntime::CLSID_Form, MoxRuntime::CLSID_Controls, MoxRuntime::CLSID_Label}) {
        void* object = nullptr;
        EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, &object), CLASS_E_CLASSNOTAVAILABLE);
        EXPECT_FALSE(make(id));
    }
    EXPECT_FALSE(make(GUID_NULL));
}

TEST_F(ClassesTest, areCreatedByNewWithoutAnyOtherCall) {
    const Ref<IDispatch> font = make(MoxRuntime::CLSID_StdFont);
    ASSERT_TRUE(font);
    EXPECT_EQ(invoke(font.get(), u"name").as<String>(), u"MS Sans Serif");
    machine->runtime.New.fail();
    Ref<IDispatch> none;
    EXPECT_EQ(machine->runtime.New(MoxRuntime::CLSID_StdFont, none), 429);
    EXPECT_FALSE(none);
}

TEST_F(ClassesTest, tellTheSizeOfTheScreen) {
    const Global global = Global::create();
    for (const Screen& screen : {global.Screen(), Screen::create()}) {
        EXPECT_EQ(screen.TwipsPerPixelX(), 15);
        EXPECT_EQ(screen.TwipsPerPixelY(), 15);
        EXPECT_EQ(screen.Width(), 15 * machine->user32.GetSystemMetrics(0));
        EXPECT_EQ(screen.Height(), 15 * machine->user32.GetSystemMetrics(1));
        EXPECT_GT(screen.Height(), 0);
    }
    EXPECT_EQ(global.LoadPicture().Type(), 0);
    EXPECT_EQ(errorOf([&] { global.Load(nullptr); }), 445);
    EXPECT_EQ(errorOf([&] { global.Unload(nullptr); }), 445);
}

} // namespace

} // namespace mox::test
