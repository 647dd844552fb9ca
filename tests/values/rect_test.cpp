#include "values/values_support.h"

namespace mox::test {

namespace {

class Rects : public Values {
protected:
    moxVarRect object = vars.vRect();

    /// Both ways: the rectangle after the call, which has to leave an empty result.
    template <class Direct, class... Arguments>
    void expectChanged(const RECT& before, const RECT& after, Direct&& direct, const char16_t* name,
                       const Arguments&... arguments) {
        RECT rc = before;
        EXPECT_TRUE(direct(rc).empty());
        EXPECT_EQ(rc, after) << String(name).utf8();
        Variant record(before);
        EXPECT_TRUE(invoke(object.get(), name, record, arguments...).empty());
        EXPECT_EQ(record.as<RECT>(), before) << "a copy of the record was given, so the original stays";

        rc = before;
        Ref<IRecordInfo> info = recordInfo<RECT>();
        Variant place;
        place.vt = VT_RECORD | VT_BYREF;
        place.pvRecord = &rc;
        place.pRecInfo = info.get();
        std::vector<Variant> list{Variant(arguments)...};
        Failure failure;
        callInPlace(name, place, std::move(list), failure);
        EXPECT_EQ(failure.status, S_OK);
        EXPECT_EQ(rc, after) << String(name).utf8() << " by reference";
        place.vt = VT_EMPTY;
    }

private:
    /// Variants copy records by value, so a record in place needs the plain list of arguments.
    void callInPlace(const char16_t* name, const VARIANT& record, std::vector<Variant> rest, Failure& failure) {
        std::vector<VARIANT> arguments;
        for (auto argument = rest.rbegin(); argument != rest.rend(); ++argument) {
            arguments.push_back(*argument);
        }
        arguments.push_back(record);
        std::u16string copy = name;
        LPOLESTR names = copy.data();
        DISPID id = DISPID_UNKNOWN;
        ASSERT_EQ(object.get()->GetIDsOfNames(GUID_NULL, &names, 1, 0, &id), S_OK);
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        failure.status = object.get()->Invoke(id, GUID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    }
};

TEST_F(Rects, AreMoved) {
    expectChanged(
        {1, 2, 3, 4}, {11, -18, 13, -16}, [&](RECT& rc) { return object.MoveRect(rc, 10, -20); }, u"MoveRect", Long{10},
        Long{-20});
    expectChanged(
        {1, 2, 3, 4}, {1, 2, 3, 4}, [&](RECT& rc) { return object.MoveRect(rc); }, u"MoveRect");
    expectChanged(
        {2147483647, 0, 0, 0}, {-2147483647 - 1, 0, 1, 0}, [&](RECT& rc) { return object.MoveRect(rc, 1); }, u"MoveRect",
        Long{1});
}

TEST_F(Rects, AreOffsetAndPutInOrder) {
    expectChanged(
        {0, 0, 10, 10}, {1, 2, 13, 14}, [&](RECT& rc) { return object.OffsetRect(rc, 1, 2, 3, 4); }, u"OffsetRect", Long{1},
        Long{2}, Long{3}, Long{4});
    expectChanged(
        {0, 0, 10, 10}, {10, -5, 20, 10}, [&](RECT& rc) { return object.OffsetRect(rc, 20, 10, 0, -15); }, u"OffsetRect",
        Long{20}, Long{10}, Long{0}, Long{-15});
    expectChanged(
        {0, 0, 10, 10}, {20, 0, 10, 10}, [&](RECT& rc) { return object.OffsetRect(rc, 20, 0, 0, 0, False); }, u"OffsetRect",
        Long{20}, Long{0}, Long{0}, Long{0}, False);
    expectChanged(
        {5, 5, 5, 5}, {5, 5, 5, 5}, [&](RECT& rc) { return object.OffsetRect(rc); }, u"OffsetRect");
}

TEST_F(Rects, AreSized) {
    expectChanged(
        {10, 20, 99, 99}, {10, 20, 10, 21}, [&](RECT& rc) { return object.SizeRect(rc, 1, 2); }, u"SizeRect", Long{1}, Long{2});
    expectChanged(
        {10, 20, 99, 99}, {10, 20, 9, 99}, [&](RECT& rc) { return object.SizeRect(rc, 0); }, u"SizeRect", Long{0});
    expectChanged(
        {10, 20, 99, 99}, {10, 20, 99, 99}, [&](RECT& rc) { return object.SizeRect(rc, -5, -1); }, u"SizeRect", Long{-5},
        Long{-1});
}

TEST_F(Rects, AreMade) {
    expectBoth<&moxVarRect::RectFromPoints>(object, u"RectFromPoints", RECT{9, 8, 1, 2}, Long{9}, Long{8}, Long{1}, Long{2});
    expectBoth<&moxVarRect::RectFromPosAndSize>(object, u"RectFromPosAndSize", RECT{10, 10, 9, 9}, Long{10}, Long{10}, Long{0},
                                                Long{0});
    expectBoth<&moxVarRect::RectFromPosAndSize>(object, u"RectFromPosAndSize", RECT{1, 2, 1, 5}, Long{1}, Long{2}, Long{1},
                                                Long{4});
}

TEST_F(Rects, RefuseOtherRecordsAndNothing) {
    EXPECT_EQ(errorOf([&] { invoke(object.get(), u"MoveRect", Variant(POINTAPI{})); }), 13);
    EXPECT_EQ(errorOf([&] { invoke(object.get(), u"MoveRect", Long{1}); }), 13);
    Variant result;
    EXPECT_EQ(object.get()->raw_MoveRect(nullptr, 0, 0, &result), E_POINTER);
    RECT rc;
    EXPECT_EQ(object.get()->raw_MoveRect(&rc, 0, 0, nullptr), E_POINTER);
}

} // namespace
} // namespace mox::test
