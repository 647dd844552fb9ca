// Bad callers: every slot and every dispatch member of every class that has code, with what no caller should give.
#include "support/invoke.h"
#include "support/testmachine.h"

#include "TRL_OBKR_MOX/slots.h"
#include "core/classes.h"
#include "platform/gdi32.h"

#include <mox/mox.h>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <map>
#include <thread>
#include <tuple>

namespace mox::test {

namespace {

/// One object of each class that has code, by class name.
std::map<std::u16string_view, Ref<IDispatch>> allObjects() {
    std::map<std::u16string_view, Ref<IDispatch>> objects;
    for (const ClassEntry& entry : server::serverModule().classes()) {
        if (entry.create) {
            objects.emplace(entry.description.name, entry.create());
        }
    }
    return objects;
}

/// A valid argument of a slot: something for every pointer to point to.
template <class T> struct Valid {
    T value{};
    T argument() { return value; }
};
template <class T> struct Valid<T*> {
    T value{};
    T* argument() { return &value; }
    ~Valid() {
        if constexpr (std::is_same_v<T, BSTR>) {
            SysFreeString(value);
        } else if constexpr (std::is_same_v<T, SAFEARRAY*>) {
            SafeArrayDestroy(value);
        } else if constexpr (std::is_same_v<T, VARIANT>) {
            VariantClear(&value);
        } else if constexpr (std::is_pointer_v<T>) {
            if (value) {
                value->Release();
            }
        }
    }
};
template <std::derived_from<IUnknown> I> struct Valid<I*> {
    I* argument() { return nullptr; }
};
template <> struct Valid<BSTR> {
    String value = u"12";
    BSTR argument() { return value.get(); }
};

/// True for the slot whose result is a brush that the caller has to delete.
template <auto slot> constexpr bool givesBrush = false;
template <> constexpr bool givesBrush<&TRL_OBKR_MOX::_moxDrawing::raw_CreatePatternBrush> = true;

template <auto slot> struct Caller;
template <class Interface, class... Arguments, HRESULT (Interface::*slot)(Arguments...)> struct Caller<slot> {
    static constexpr bool takesPlaces = (std::is_pointer_v<Arguments> || ...);

    /// Every argument zero: null wherever a pointer is wanted.
    static HRESULT withZeros(IDispatch* object) { return (static_cast<Interface*>(object)->*slot)(Arguments{}...); }

    /// Valid arguments and, if there is a result, its place full of garbage before the call.
    template <bool hasResult> static HRESULT withDirtyResult(IDispatch* object, bool& cleared) {
        std::tuple<Valid<Arguments>...> arguments;
        if constexpr (hasResult) {
            auto& last = std::get<sizeof...(Arguments) - 1>(arguments).value;
            std::memset(static_cast<void*>(&last), 0xA5, sizeof last);
        }
        const HRESULT status =
            std::apply([&](auto&... valid) { return (static_cast<Interface*>(object)->*slot)(valid.argument()...); }, arguments);
        cleared = true;
        if constexpr (givesBrush<slot>) {
            platform::gdi32().DeleteObject(std::get<sizeof...(Arguments) - 1>(arguments).value);
        }
        if constexpr (hasResult) {
            auto& last = std::get<sizeof...(Arguments) - 1>(arguments).value;
            const auto* bytes = reinterpret_cast<const unsigned char*>(&last);
            cleared = std::any_of(bytes, bytes + sizeof last, [](unsigned char byte) { return byte != 0xA5; });
        }
        return status;
    }
};

/// Errors that members state: no code yet, and Nothing where an object is needed.
bool isStated(HRESULT status) {
    return status == statusOfRuntimeError(445) || status == statusOfRuntimeError(91);
}

class BadCaller : public testing::Test {
protected:
    TestMachine machine;
    std::map<std::u16string_view, Ref<IDispatch>> objects = allObjects();

    /// Runs `check(object, name)` with the slot as template argument for each slot of the classes that have code.
    template <class Check> void eachSlot(Check&& check) {
        int count = 0;
        TRL_OBKR_MOX::visitSlots([&]<auto slot, bool hasResult>(std::u16string_view type, const char* name) {
            if (const auto found = objects.find(type); found != objects.end()) {
                SCOPED_TRACE(utf8FromUtf16(type) + "." + name);
                check.template operator()<slot, hasResult>(found->second.get());
                ++count;
            }
        });
        EXPECT_GE(count, 80);
    }
};

TEST_F(BadCaller, NullPlacesAreRefused) {
    eachSlot([]<auto slot, bool hasResult>(IDispatch * object) {
        using Call = Caller<slot>;
        const HRESULT status = Call::withZeros(object);
        // Texts and objects by value may be null, places may not.
        if (hasResult) {
            EXPECT_EQ(status, E_POINTER);
        } else {
            EXPECT_TRUE(status == S_OK || status == E_POINTER || isStated(status)) << status;
        }
        Ref<IErrorInfo> pending;
        GetErrorInfo(0, pending.out());
    });
}

TEST_F(BadCaller, DirtyResultPlacesDoNotMatter) {
    eachSlot([]<auto slot, bool hasResult>(IDispatch * object) {
        bool cleared = false;
        const HRESULT status = Caller<slot>::template withDirtyResult<hasResult>(object, cleared);
        EXPECT_TRUE(SUCCEEDED(status) || isStated(status)) << std::hex << status;
        EXPECT_TRUE(cleared);
    });
}

TEST_F(BadCaller, OtherThreadsAreRefused) {
    std::thread([&] {
        eachSlot([]<auto slot, bool hasResult>(IDispatch * object) {
            bool cleared = false;
            EXPECT_EQ(Caller<slot>::template withDirtyResult<hasResult>(object, cleared), RPC_E_WRONG_THREAD);
            EXPECT_TRUE(cleared);
        });
    }).join();
}

/// Every member of an object as its type information tells it.
void eachMember(IDispatch* object, const std::function<void(ITypeInfo&, const FUNCDESC&)>& visit) {
    Ref<ITypeInfo> type;
    ASSERT_EQ(object->GetTypeInfo(0, 0, type.out()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    for (UINT i = 0; i < attributes->cFuncs; ++i) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(type->GetFuncDesc(i, &function), S_OK);
        visit(*type, *function);
        type->ReleaseFuncDesc(function);
    }
    type->ReleaseTypeAttr(attributes);
}

HRESULT call(IDispatch* object, const FUNCDESC& function, std::vector<Variant> arguments, UINT& badArgument) {
    DISPID value = DISPID_PROPERTYPUT;
    const bool put = function.invkind == INVOKE_PROPERTYPUT || function.invkind == INVOKE_PROPERTYPUTREF;
    const UINT named = put && !arguments.empty() ? 1 : 0;
    DISPPARAMS parameters{arguments.data(), named ? &value : nullptr, static_cast<UINT>(arguments.size()), named};
    Variant result;
    EXCEPINFO exception{};
    const HRESULT status = object->Invoke(function.memid, GUID_NULL, 0, static_cast<WORD>(function.invkind), &parameters,
                                          result.out(), &exception, &badArgument);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return status;
}

TEST_F(BadCaller, WrongCountsAndTypesAreToldByStatus) {
    for (const auto& [name, object] : objects) {
        eachMember(object.get(), [&, target = object.get()](ITypeInfo& type, const FUNCDESC& function) {
            String memberName;
            type.GetDocumentation(function.memid, memberName.out(), nullptr, nullptr, nullptr);
            SCOPED_TRACE(utf8FromUtf16(name) + "." + memberName.utf8());
            const auto declared = static_cast<std::size_t>(function.cParams);
            UINT bad = 99;
            // A property without arguments hands surplus ones on to its object's default member, which most objects lack.
            const HRESULT tooMany = call(target, function, std::vector<Variant>(declared + 1, Variant(Long{1})), bad);
            EXPECT_TRUE(tooMany == DISP_E_BADPARAMCOUNT || tooMany == DISP_E_MEMBERNOTFOUND || tooMany == DISP_E_EXCEPTION)
                << tooMany;
            const auto isOptional = [&](std::size_t i) {
                return (function.lprgelemdescParam[i].paramdesc.wParamFlags & PARAMFLAG_FOPT) != 0;
            };
            bool allRequired = true;
            for (std::size_t i = 0; i < declared; ++i) {
                allRequired &= !isOptional(i);
            }
            if (allRequired && declared > 0) {
                EXPECT_NE(call(target, function, {}, bad), S_OK);
                EXPECT_EQ(call(target, function, std::vector<Variant>(declared, Variant::missing()), bad),
                          DISP_E_PARAMNOTOPTIONAL);
            }
            // An array of variants converts to nothing that a member of these classes takes.
            for (std::size_t i = 0; i < declared; ++i) {
                std::vector<Variant> arguments(declared);
                for (std::size_t j = 0; j < declared; ++j) {
                    arguments[j] = isOptional(declared - 1 - j) ? Variant::missing() : Variant(Long{1});
                }
                arguments[declared - 1 - i] = Variant(Array<Variant>(0, 2));
                const HRESULT status = call(target, function, std::move(arguments), bad);
                EXPECT_EQ(status, DISP_E_TYPEMISMATCH) << "argument " << i;
            }
        });
    }
}

TEST_F(BadCaller, ParametersThatCannotBeAreRefused) {
    IDispatch* object = objects.at(u"moxVarLong").get();
    DISPPARAMS noList{nullptr, nullptr, 3, 0};
    DISPPARAMS noIds{nullptr, nullptr, 0, 2};
    Variant argument(Long{5});
    DISPPARAMS moreNames{&argument, nullptr, 1, 2};
    DISPPARAMS nothing{};
    for (DISPPARAMS* parameters : {static_cast<DISPPARAMS*>(nullptr), &noList, &noIds, &moreNames}) {
        EXPECT_EQ(object->Invoke(1, GUID_NULL, 0, DISPATCH_METHOD, parameters, nullptr, nullptr, nullptr), E_INVALIDARG);
    }
    EXPECT_EQ(object->Invoke(1, IID_IUnknown, 0, DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(object->Invoke(4711, GUID_NULL, 0, DISPATCH_METHOD, &nothing, nullptr, nullptr, nullptr), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(object->Invoke(1, GUID_NULL, 0, DISPATCH_PROPERTYGET, &nothing, nullptr, nullptr, nullptr), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(object->GetIDsOfNames(GUID_NULL, nullptr, 1, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(object->GetTypeInfo(1, 0, nullptr), DISP_E_BADINDEX);
    EXPECT_EQ(object->QueryInterface(IID_IDispatch, nullptr), E_POINTER);
    // Variants of no type at all.
    for (int vt = 0; vt < 0x80; ++vt) {
        Variant value;
        value.vt = static_cast<VARTYPE>(vt | VT_BYREF); // a reference to nowhere
        DISPPARAMS parameters{&value, nullptr, 1, 0};
        Variant result;
        EXPECT_NE(object->Invoke(1, GUID_NULL, 0, DISPATCH_METHOD, &parameters, result.out(), nullptr, nullptr), S_OK) << vt;
        value.vt = VT_EMPTY;
    }
}

} // namespace
} // namespace mox::test
