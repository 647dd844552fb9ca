// PropertyBag: values and objects through bytes.
#include "pictures_files.h"
#include "pictures_support.h"

namespace mox::test {

namespace {

using namespace platform;

struct BagTest : PicturesTest {
    PropertyBag bag = PropertyBag::create();

    static PropertyBag copyOf(const PropertyBag& original) {
        const PropertyBag copy = PropertyBag::create();
        copy.put_Contents(original.Contents());
        return copy;
    }
    static Variant object(const Ref<IDispatch>& value) { return value; }
    template <class Pointer> static Variant object(const Pointer& pointer) { return Ref<IDispatch>(pointer.get()); }
    static StdPicture pictureOf(const Variant& value) {
        EXPECT_EQ(value.vt, VT_DISPATCH);
        return StdPicture(Ref<IUnknown>(value.punkVal).as<MoxRuntime::IPictureDisp>());
    }
};

template <class Value> Variant typed(VARTYPE type, Value value) {
    Variant result;
    std::memcpy(&result.llVal, &value, sizeof value);
    result.vt = type;
    return result;
}

TEST_F(BagTest, keepsEverySimpleValue) {
    Variant decimal;
    ASSERT_EQ(VariantChangeType(&decimal, &static_cast<const VARIANT&>(Variant(u"-123456789012345678.25")), 0, VT_DECIMAL), S_OK);
    const Variant values[] = {
        Variant(),
        typed(VT_NULL, 0),
        Variant(Byte{200}),
        Variant(Integer{-3}),
        Variant(Long{-70000}),
        Variant(1.5F),
        Variant(-2.25),
        Variant(Currency{-123456789}),
        Variant(Date{36526.75}),
        Variant(True),
        Variant(u""),
        Variant(u"text with \u20AC and \xD800 alone"),
        typed<std::int8_t>(VT_I1, -7),
        typed<std::uint16_t>(VT_UI2, 65000),
        typed<std::uint32_t>(VT_UI4, 4000000000U),
        typed<std::int64_t>(VT_I8, -5000000000),
        typed<std::int32_t>(VT_ERROR, 12),
        decimal,
    };
    for (std::size_t i = 0; i < std::size(values); ++i) {
        bag.WriteProperty(std::u16string(u"Value") + static_cast<char16_t>(u'A' + i), values[i]);
    }
    const PropertyBag copy = copyOf(bag);
    for (std::size_t i = 0; i < std::size(values); ++i) {
        const Variant value = copy.ReadProperty(std::u16string(u"vALUE") + static_cast<char16_t>(u'A' + i));
        EXPECT_EQ(value.vt, values[i].vt) << i;
        if (value.vt == VT_BSTR) {
            EXPECT_EQ(value.as<String>(), values[i].as<String>());
        } else if (value.vt == VT_DECIMAL) {
            EXPECT_EQ(value.as<String>(), u"-123456789012345678.25");
        } else if (value.vt != VT_EMPTY && value.vt != VT_NULL) {
            EXPECT_EQ(value.llVal, values[i].llVal) << i;
        }
    }
}

TEST_F(BagTest, keepsArraysOfBytesWithTheirBounds) {
    Array<Byte> bytes(-2, 3);
    bytes[3] = 9;
    bag.WriteProperty(u"Bytes", bytes);
    bag.WriteProperty(u"None", Array<Byte>(0, -1));
    const PropertyBag copy = copyOf(bag);
    const auto back = copy.ReadProperty(u"bytes").as<Array<Byte>>();
    EXPECT_EQ(back.lower(), -2);
    EXPECT_EQ(back.upper(), 3);
    EXPECT_EQ(back[3], 9);
    EXPECT_TRUE(copy.ReadProperty(u"none").as<Array<Byte>>().empty());
    EXPECT_EQ(errorOf([&] { bag.WriteProperty(u"Longs", Array<Long>(0, 1)); }), 328);
}

TEST_F(BagTest, makesNewObjects) {
    const StdFont font = StdFont::create();
    font.put_Name(u"Courier New");
    font.put_Size(Currency{97500});
    font.put_Weight(650);
    font.put_Italic(True);
    font.put_Strikethrough(True);
    font.put_Charset(204);
    bag.WriteProperty(u"Font", object(font));
    bag.WriteProperty(u"Nothing", object(Ref<IDispatch>()));
    font.put_Name(u"Changed later");
    const PropertyBag copy = copyOf(bag);
    const Variant value = copy.ReadProperty(u"FONT");
    const StdFont back(Ref<IUnknown>(value.punkVal).as<MoxRuntime::IFontDisp>());
    EXPECT_EQ(back.Name(), u"Courier New");
    EXPECT_EQ(back.Size(), Currency{97500});
    EXPECT_EQ(back.Weight(), 650);
    EXPECT_EQ(back.Charset(), 204);
    EXPECT_TRUE(back.Italic() && back.Strikethrough());
    EXPECT_FALSE(back.Underline());
    const Variant nothing = copy.ReadProperty(u"Nothing");
    EXPECT_EQ(nothing.vt, VT_DISPATCH);
    EXPECT_EQ(nothing.pdispVal, nullptr);
    EXPECT_EQ(errorOf([&] { bag.WriteProperty(u"Bag", object(bag)); }), 330);
}

TEST_F(BagTest, keepsPicturesOfAllKinds) {
    const auto pixels = host::Bitmap::create(3, 2);
    pixels->pixels(1)[2] = 0x80123456;
    const auto mono = host::Bitmap::create({.width = 9, .height = 1, .bitsPerPixel = 1});
    *mono->row(0) = std::byte{0xA5};
    const auto section =
        host::Bitmap::create({.width = 2, .height = 2, .bitsPerPixel = 8, .isSection = true, .colors = {1, 2, 3}});
    *section->row(1) = std::byte{2};
    host::Icon icon{
        .image = pixels, .mask = host::Bitmap::create({.width = 3, .height = 2, .bitsPerPixel = 1}), .hasAlpha = true};
    *icon.mask->row(0) = std::byte{0x40};
    const auto graphics = [this]() -> host::Graphics& { return machine->graphics; };
    const PICTDESC descriptions[] = {
        describe(PICTYPE_BITMAP, graphics().add(pixels)),
        describe(PICTYPE_BITMAP, graphics().add(mono)),
        describe(PICTYPE_BITMAP, graphics().add(section)),
        describe(PICTYPE_ICON, graphics().add("icon", icon)),
        describe(PICTYPE_METAFILE, graphics().add("metafile", host::OldMetafile{wmfOf()}), 0x12345678),
        describe(PICTYPE_ENHMETAFILE, graphics().add("metafile", host::EnhancedMetafile{emptyMetafile({0, 0, 77, 88})})),
        describe(PICTYPE_NONE, 0),
    };
    for (const PICTDESC& description : descriptions) {
        SCOPED_TRACE(description.picType);
        const StdPicture picture = makePicture(description);
        bag.WriteProperty(u"PictureBytes", object(picture));
        EXPECT_GE(bag.Contents().as<Array<Byte>>().size(), 14);
        const StdPicture back = pictureOf(copyOf(bag).ReadProperty(u"picturebytes"));
        EXPECT_EQ(back.Type(), picture.Type());
        EXPECT_EQ(back.Width(), picture.Width());
        EXPECT_EQ(back.Height(), picture.Height());
        if (description.picType == PICTYPE_BITMAP) {
            EXPECT_NE(back.Handle(), picture.Handle());
            const auto one = graphics().bitmap(picture.Handle());
            const auto other = graphics().bitmap(back.Handle());
            EXPECT_EQ(other->bitsPerPixel(), one->bitsPerPixel());
            EXPECT_EQ(other->isSection(), one->isSection());
            for (int y = 0; y < one->height(); ++y) {
                EXPECT_EQ(std::memcmp(one->row(y), other->row(y),
                                      (static_cast<std::size_t>(one->width() * one->bitsPerPixel()) + 7) / 8),
                          0);
            }
        } else if (description.picType == PICTYPE_ICON) {
            const auto other = graphics().object<host::Icon>(back.Handle());
            EXPECT_TRUE(other->hasAlpha);
            EXPECT_EQ(other->image->pixels(1)[2], 0x80123456u);
            EXPECT_EQ(*other->mask->row(0), std::byte{0x40});
        }
    }
}

TEST_F(BagTest, knowsWhatIsNotThere) {
    EXPECT_LT(bag.Contents().as<Array<Byte>>().size(), 14);
    EXPECT_EQ(bag.Contents().as<Array<Byte>>().lower(), 0);
    EXPECT_EQ(errorOf([&] { bag.ReadProperty(u"missing"); }), 327);
    EXPECT_EQ(bag.ReadProperty(u"missing", Long{5}).as<Long>(), 5);
    try {
        bag.ReadProperty(u"Some name");
    } catch (const Error& error) {
        EXPECT_EQ(error.description(), u"Data value named 'Some name' not found");
    }
}

TEST_F(BagTest, leavesOutWhatEqualsItsDefault) {
    const StdFont font = StdFont::create();
    const struct {
        Variant value;
        Variant other;
        bool equal;
    } cases[] = {
        {Long{5}, Long{5}, true},
        {Long{5}, Integer{5}, true},
        {Long{5}, Long{6}, false},
        {u"a", u"a", true},
        {u"a", u"A", false},
        {u"5", Long{5}, false},
        {2.5, Currency{25000}, true},
        {True, Integer{-1}, true},
        {Variant(), Variant(), true},
        {Variant(), Long{0}, false},
        {object(font), object(font), true},
        {object(font), object(bag), false},
        {object(Ref<IDispatch>()), object(Ref<IDispatch>()), true},
        {object(Ref<IDispatch>()), Long{0}, false},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        bag.WriteProperty(u"Value", u"what was there");
        bag.WriteProperty(u"Value", cases[i].value, cases[i].other);
        EXPECT_EQ(errorOf([&] { bag.ReadProperty(u"Value"); }) == 327, cases[i].equal) << i;
    }
}

TEST_F(BagTest, refusesDamagedContentsAndStaysAsItWas) {
    bag.WriteProperty(u"Number", Long{42});
    bag.WriteProperty(u"Text", u"some text");
    bag.WriteProperty(u"Picture", object(makePicture(describe(PICTYPE_BITMAP, addBitmap(2, 2)))));
    const auto whole = bag.Contents().as<Array<Byte>>();
    const PropertyBag other = PropertyBag::create();
    other.WriteProperty(u"Kept", True);
    const auto put = [&](std::span<const Byte> bytes) { return errorOf([&] { other.put_Contents(Array<Byte>(bytes)); }); };
    for (Long size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(put({whole.data(), static_cast<std::size_t>(size)}), 321) << size;
    }
    for (Long place = 0; place < whole.size(); ++place) {
        std::vector<Byte> damaged(whole.begin(), whole.end());
        damaged[static_cast<std::size_t>(place)] ^= 0x41;
        EXPECT_EQ(put(damaged), 321) << place;
    }
    for (const Variant& value : {Variant(), Variant(Long{1}), Variant(u"text"), Variant(Array<Long>(0, 3))}) {
        EXPECT_EQ(errorOf([&] { other.put_Contents(value); }), 13);
    }
    EXPECT_EQ(other.ReadProperty(u"Kept").as<Boolean>(), True);
    other.put_Contents(whole);
    EXPECT_EQ(other.ReadProperty(u"number").as<Long>(), 42);
    EXPECT_EQ(errorOf([&] { other.ReadProperty(u"Kept"); }), 327);
}

/// Contents whose checksum is right, whatever they say.
std::vector<Byte> sealed(unsigned count, const Bytes& body) {
    std::uint32_t crc = 0;
    EXPECT_TRUE(platform::ntdll().RtlComputeCrc32(crc, {reinterpret_cast<const char*>(body.data()), body.size()}));
    const Bytes bytes = FileMaker().text("MBAG").u32({count, crc}).add(body).bytes();
    return {reinterpret_cast<const Byte*>(bytes.data()), reinterpret_cast<const Byte*>(bytes.data()) + bytes.size()};
}

TEST_F(BagTest, refusesAbsurdContents) {
    const Bytes name = FileMaker().u32({2}).u16({'a'}).bytes();
    const auto property = [&](const Bytes& value) {
        return FileMaker().add(name).u32({static_cast<unsigned>(value.size())}).add(value).bytes();
    };
    const struct {
        unsigned count;
        Bytes body;
    } cases[] = {
        {0xFFFFFFFF, {}},
        {1, FileMaker().u32({0xFFFFFFFF, 0}).bytes()},
        {1, FileMaker().add(name).u32({0xFFFFFFF0}).bytes()},
        {1, FileMaker().u32({1}).u8({65}).u32({2}).u16({VT_EMPTY}).bytes()},                    // half a character
        {2, FileMaker().add(property(bytesOf({0, 0}))).add(property(bytesOf({0, 0}))).bytes()}, // the same name twice
        {0, property(bytesOf({0, 0}))},
        {1, property({})},
        {1, property(FileMaker().u16({VT_I4}).u8({1}).bytes())},
        {1, property(FileMaker().u16({VT_BSTR}).u32({0xFFFFFFFF}).bytes())},
        {1, property(FileMaker().u16({VT_BYREF | VT_I4}).u32({0}).bytes())},
        {1, property(FileMaker().u16({VT_ARRAY | VT_BSTR}).u32({0, 0}).bytes())},
        {1, property(FileMaker().u16({VT_DISPATCH}).u8({3}).bytes())},
        {1, property(FileMaker().u16({VT_DISPATCH}).u8({1}).text("MPIX").add(Bytes(12)).bytes())},
    };
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(errorOf([&] { bag.put_Contents(Array<Byte>(std::span<const Byte>(sealed(cases[i].count, cases[i].body)))); }),
                  321)
            << i;
    }
    // What only the object itself can tell is refused when it is made.
    const Bytes font = FileMaker().u16({VT_DISPATCH}).u8({2}).u32({0, 0}).u16({400, 0}).u8({0}).u32({2}).u16({'x'}).bytes();
    const Bytes picture = FileMaker().u16({VT_DISPATCH}).u8({1}).text("MPIC").u8({1, 1, 0, 0}).u32({0, 0}).text("BM").bytes();
    for (const Bytes& value : {font, picture}) {
        bag.put_Contents(Array<Byte>(std::span<const Byte>(sealed(1, property(value)))));
        EXPECT_EQ(errorOf([&] { bag.ReadProperty(u"A"); }), 321);
    }
    EXPECT_EQ(openHandles(), 0u);
}

} // namespace

} // namespace mox::test
