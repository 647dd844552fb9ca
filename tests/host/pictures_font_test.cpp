// StdFont: its properties, their limits, and the event of their changes.
#include "pictures_support.h"

#include <functional>

namespace mox::test {

namespace {

struct FontTest : PicturesTest {
    StdFont font = StdFont::create();
    std::vector<std::u16string> changes;
    Connection connection =
        font.connect({.FontChanged = [this](const String& property) { changes.emplace_back(property.view()); }});
};

TEST_F(FontTest, isTheDefaultFontAtFirst) {
    EXPECT_EQ(font.Name(), u"MS Sans Serif");
    EXPECT_EQ(font.Size(), Currency{82500});
    EXPECT_EQ(font.Weight(), 400);
    EXPECT_EQ(font.Charset(), 0);
    EXPECT_FALSE(font.Bold() || font.Italic() || font.Underline() || font.Strikethrough());
}

TEST_F(FontTest, announcesEachChangeOnce) {
    const struct {
        const char16_t* property;
        std::function<void()> set;
    } cases[] = {
        {u"Name", [&] { font.put_Name(u"Arial"); }},       {u"Size", [&] { font.put_Size(Currency{100001}); }},
        {u"Bold", [&] { font.put_Bold(True); }},           {u"Italic", [&] { font.put_Italic(True); }},
        {u"Underline", [&] { font.put_Underline(True); }}, {u"Strikethrough", [&] { font.put_Strikethrough(True); }},
        {u"Weight", [&] { font.put_Weight(551); }},        {u"Charset", [&] { font.put_Charset(2); }},
    };
    for (const auto& [property, set] : cases) {
        changes.clear();
        set();
        EXPECT_EQ(changes, std::vector<std::u16string>{property});
        set();
        EXPECT_EQ(changes.size(), 1u) << "nothing has changed";
    }
    EXPECT_EQ(font.Name(), u"Arial");
    EXPECT_EQ(font.Size(), Currency{100001});
    EXPECT_EQ(font.Charset(), 2);
    EXPECT_TRUE(font.Italic() && font.Underline() && font.Strikethrough());
}

TEST_F(FontTest, couplesBoldAndWeight) {
    const struct {
        Integer weight;
        bool isBold;
    } cases[] = {{0, false}, {400, false}, {550, false}, {551, true}, {1000, true}};
    for (const auto& [weight, isBold] : cases) {
        font.put_Weight(weight);
        EXPECT_EQ(static_cast<bool>(font.Bold()), isBold) << weight;
        font.put_Bold(isBold);
        EXPECT_EQ(font.Weight(), isBold ? 700 : 400);
    }
}

TEST_F(FontTest, refusesWhatNoFontHas) {
    EXPECT_EQ(errorOf([&] { font.put_Name(u""); }), 380);
    for (const std::int64_t size : {0LL, -1LL, -82500LL}) {
        EXPECT_EQ(errorOf([&] { font.put_Size(Currency{size}); }), 380) << size;
    }
    for (const Integer weight : {-1, 1001}) {
        EXPECT_EQ(errorOf([&] { font.put_Weight(weight); }), 380) << weight;
    }
    for (const Integer charset : {-1, 256}) {
        EXPECT_EQ(errorOf([&] { font.put_Charset(charset); }), 380) << charset;
    }
    EXPECT_TRUE(changes.empty());
    EXPECT_EQ(font.Name(), u"MS Sans Serif");
}

TEST_F(FontTest, seesTheChangeInsideTheEvent) {
    Currency seen;
    const Connection second = font.connect({.FontChanged = [&](const String&) { seen = font.Size(); }});
    font.put_Size(Currency{120000});
    EXPECT_EQ(seen, Currency{120000});
}

} // namespace

} // namespace mox::test
