#include "types_support.h"

#include <gtest/gtest.h>

#include <thread>

using namespace mox;
using namespace mox::test;

namespace {

std::u16string text(std::u16string_view value) {
    return std::u16string(value);
}

Ref<IErrorInfo> errorSaying(std::u16string description) {
    Ref<ICreateErrorInfo> error;
    EXPECT_EQ(CreateErrorInfo(error.out()), S_OK);
    EXPECT_EQ(error->SetDescription(description.data()), S_OK);
    return error.as<IErrorInfo>();
}

String descriptionOf(const Ref<IErrorInfo>& error) {
    String description;
    EXPECT_EQ(error->GetDescription(description.out()), S_OK);
    return description;
}

TEST(ErrorObject, HandsOutWhatWasWritten) {
    Ref<ICreateErrorInfo> error;
    ASSERT_EQ(CreateErrorInfo(error.out()), S_OK);
    constexpr GUID interface {
        1, 2, 3, { 4, 5, 6, 7, 8, 9, 10, 11 }
    };
    EXPECT_EQ(error->SetGUID(interface), S_OK);
    EXPECT_EQ(error->SetSource(text(u"source").data()), S_OK);
    EXPECT_EQ(error->SetDescription(text(u"first").data()), S_OK);
    EXPECT_EQ(error->SetDescription(text(u"description").data()), S_OK);
    EXPECT_EQ(error->SetHelpFile(text(u"help.chm").data()), S_OK);
    EXPECT_EQ(error->SetHelpContext(42), S_OK);

    const Ref<IErrorInfo> reader = error.as<IErrorInfo>();
    ASSERT_TRUE(reader);
    GUID id{};
    EXPECT_EQ(reader->GetGUID(&id), S_OK);
    EXPECT_EQ(id, interface);
    String source;
    EXPECT_EQ(reader->GetSource(source.out()), S_OK);
    EXPECT_EQ(source, u"source");
    EXPECT_EQ(descriptionOf(reader), u"description");
    String helpFile;
    EXPECT_EQ(reader->GetHelpFile(helpFile.out()), S_OK);
    EXPECT_EQ(helpFile, u"help.chm");
    DWORD context = 0;
    EXPECT_EQ(reader->GetHelpContext(&context), S_OK);
    EXPECT_EQ(context, 42u);
    EXPECT_EQ(reader.as<IUnknown>(), error.as<IUnknown>()) << "one identity";
    EXPECT_FALSE(reader.as<IDispatch>());

    EXPECT_EQ(error->SetDescription(nullptr), S_OK);
    EXPECT_TRUE(descriptionOf(reader).empty());
    EXPECT_EQ(reader->GetDescription(nullptr), E_POINTER);
    EXPECT_EQ(reader->GetGUID(nullptr), E_POINTER);
    EXPECT_EQ(reader->GetHelpContext(nullptr), E_POINTER);
}

TEST(ErrorObject, PendingErrorIsTakenOnce) {
    SetErrorInfo(0, nullptr);
    Ref<IErrorInfo> taken;
    EXPECT_EQ(GetErrorInfo(0, taken.out()), S_FALSE);
    EXPECT_FALSE(taken);
    const Ref<IErrorInfo> error = errorSaying(u"one");
    EXPECT_EQ(SetErrorInfo(0, error.get()), S_OK);
    EXPECT_EQ(references(error.get()), 2u);
    EXPECT_EQ(GetErrorInfo(0, taken.out()), S_OK);
    EXPECT_EQ(taken, error);
    EXPECT_EQ(GetErrorInfo(0, taken.out()), S_FALSE);
    EXPECT_EQ(references(error.get()), 1u);
}

TEST(ErrorObject, ANewErrorReplacesTheOldOne) {
    const Ref<IErrorInfo> old = errorSaying(u"old");
    SetErrorInfo(0, old.get());
    SetErrorInfo(0, errorSaying(u"new").get());
    EXPECT_EQ(references(old.get()), 1u);
    Ref<IErrorInfo> taken;
    ASSERT_EQ(GetErrorInfo(0, taken.out()), S_OK);
    EXPECT_EQ(descriptionOf(taken), u"new");
    SetErrorInfo(0, old.get());
    SetErrorInfo(0, nullptr);
    EXPECT_EQ(references(old.get()), 1u);
}

TEST(ErrorObject, RefusesBadArguments) {
    IErrorInfo* none = nullptr;
    EXPECT_EQ(SetErrorInfo(1, nullptr), E_INVALIDARG);
    EXPECT_EQ(GetErrorInfo(1, &none), E_INVALIDARG);
    EXPECT_EQ(GetErrorInfo(0, nullptr), E_INVALIDARG);
    EXPECT_EQ(CreateErrorInfo(nullptr), E_INVALIDARG);
}

/// Reports an error when it ends.
struct ErrorAtEnd {
    Ref<IErrorInfo> error;
    ~ErrorAtEnd() { SetErrorInfo(0, error.get()); }
};
thread_local ErrorAtEnd endsAfterTheError;

TEST(ErrorObject, BelongsToOneThreadAndEndsWithIt) {
    const Ref<IErrorInfo> here = errorSaying(u"here");
    const Ref<IErrorInfo> there = errorSaying(u"there");
    const Ref<IErrorInfo> last = errorSaying(u"last");
    SetErrorInfo(0, here.get());
    std::thread([&] {
        endsAfterTheError.error = last; // made before the thread's pending error, so it ends after that
        Ref<IErrorInfo> taken;
        EXPECT_EQ(GetErrorInfo(0, taken.out()), S_FALSE);
        SetErrorInfo(0, there.get());
    }).join();
    EXPECT_EQ(references(there.get()), 1u);
    EXPECT_EQ(references(last.get()), 1u);
    Ref<IErrorInfo> taken;
    EXPECT_EQ(GetErrorInfo(0, taken.out()), S_OK);
    EXPECT_EQ(taken, here);
}

} // namespace
