// Events: sources that keep their promises whatever their sinks do.
#include "support/invoke.h"
#include "support/testmachine.h"

#include "automation/objects/apartment.h"
#include "core/classes.h"
#include "windows/moxTimer.h"

#include <mox/mox.h>

#include <gtest/gtest.h>

#include <stdexcept>

namespace mox::test {

namespace {

class Timers : public testing::Test {
protected:
    /// Timers that a test leaves running go with the apartment, before its machine does.
    ~Timers() override { Apartment::endCurrent(); }

    TestMachine machine;
    moxControls controls{server::create<TRL_OBKR_MOX::_moxControls>()};
    moxTimer timer = controls.CreateTimerObject();
    std::vector<std::pair<Long, Long>> fired;

    Connection listen(const moxTimer& source) {
        return source.connect({.Timer = [this](Long events, Long milliseconds) { fired.emplace_back(events, milliseconds); }});
    }
    void wait(int milliseconds) {
        machine.advance(std::chrono::milliseconds(milliseconds));
        machine->messageLoops.pump(std::chrono::milliseconds(0));
    }
};

TEST_F(Timers, FireFromTheMessageLoop) {
    const Connection connection = listen(timer);
    EXPECT_FALSE(timer.Running());
    EXPECT_TRUE(timer.StartTimer(100));
    EXPECT_TRUE(timer.Running());
    wait(99);
    EXPECT_TRUE(fired.empty());
    wait(1);
    wait(100);
    EXPECT_EQ(fired, (std::vector<std::pair<Long, Long>>{{1, 100}, {2, 200}}));
    wait(350); // a late loop finds one message, not three
    EXPECT_EQ(fired.size(), 3u);
    EXPECT_EQ(fired.back().first, 3);
    EXPECT_TRUE(timer.StopTimer());
    EXPECT_FALSE(timer.StopTimer());
    EXPECT_FALSE(timer.Running());
    wait(1000);
    EXPECT_EQ(fired.size(), 3u);
}

TEST_F(Timers, RestartCountsAnew) {
    const Connection connection = listen(timer);
    timer.StartTimer(50);
    wait(50);
    timer.StartTimer(20);
    EXPECT_TRUE(timer.Running());
    wait(20);
    EXPECT_EQ(fired, (std::vector<std::pair<Long, Long>>{{1, 50}, {1, 20}}));
}

TEST_F(Timers, HaveLimitsAndATag) {
    EXPECT_EQ(timer.MinInterval(), 10);
    EXPECT_EQ(timer.MaxInterval(), 2147483647);
    const Connection connection = listen(timer);
    for (const Long interval : {0, -5, 3}) {
        EXPECT_TRUE(timer.StartTimer(interval));
        wait(9);
        EXPECT_TRUE(fired.empty()) << interval;
        wait(1);
        EXPECT_EQ(fired.size(), 1u) << interval;
        fired.clear();
    }
    timer.put_Tag(u"mine");
    EXPECT_EQ(timer.Tag(), u"mine");
    Failure failure;
    tryInvoke(timer.get(), u"Tag", DISPATCH_PROPERTYPUT, {u"yours"}, failure);
    EXPECT_EQ(failure.status, S_OK);
    EXPECT_EQ(timer.Tag(), u"yours");
}

TEST_F(Timers, AreIndependent) {
    const moxTimer other = controls.CreateTimerObject();
    const Connection first = listen(timer);
    const Connection second = listen(other);
    timer.StartTimer(10);
    other.StartTimer(10);
    wait(10);
    EXPECT_EQ(fired.size(), 2u);
    timer.StopTimer();
    wait(10);
    EXPECT_EQ(fired.size(), 3u);
    other.StopTimer();
}

TEST_F(Timers, GoOnWithoutTheirClient) {
    const Connection connection = listen(timer);
    timer.StartTimer(10);
    timer = nullptr;
    wait(10);
    EXPECT_EQ(fired.size(), 1u) << "the list of running timers holds it";
    CoInitialize(nullptr);
    CoUninitialize();
    wait(10);
    EXPECT_EQ(fired.size(), 1u) << "the end of the apartment ends it";
}

TEST_F(Timers, SayWhenThePlatformGivesNone) {
    platform::user32().SetTimer.fail();
    EXPECT_FALSE(timer.StartTimer(10));
    EXPECT_FALSE(timer.Running());
    platform::user32().SetTimer.restore();
    timer.StartTimer(10);
    platform::user32().SetTimer.fail();
    EXPECT_FALSE(timer.StartTimer(10)) << "the old timer is gone all the same";
    EXPECT_FALSE(timer.Running());
}

TEST_F(Timers, HandlersMayStopAndStartThem) {
    int count = 0;
    const Connection connection = timer.connect({.Timer = [&](Long, Long) {
        ++count;
        timer.StopTimer();
        if (count < 3) {
            timer.StartTimer(10);
        }
    }});
    timer.StartTimer(10);
    for (int i = 0; i < 10; ++i) {
        wait(10);
    }
    EXPECT_EQ(count, 3);
}

// ---- bad listeners

/// A sink that does what it is told to do.
class Sink final : public SharedObject<IDispatch> {
public:
    explicit Sink(std::function<HRESULT(DISPPARAMS&, VARIANT*, EXCEPINFO*)> act) : act_(std::move(act)) {}
    HRESULT GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception, UINT*) override {
        return act_(*parameters, result, exception);
    }

private:
    std::function<HRESULT(DISPPARAMS&, VARIANT*, EXCEPINFO*)> act_;
};

class BadSinks : public Timers {
protected:
    DWORD advise(std::function<HRESULT(DISPPARAMS&, VARIANT*, EXCEPINFO*)> act) {
        const auto container = Ref<IDispatch>(timer.get()).as<IConnectionPointContainer>();
        EXPECT_EQ(container->FindConnectionPoint(interfaceId<TRL_OBKR_MOX::__moxTimer>, point.out()), S_OK);
        DWORD cookie = 0;
        EXPECT_EQ(point->Advise(makeShared<IDispatch, Sink>(std::move(act)).get(), &cookie), S_OK);
        return cookie;
    }
    Ref<IConnectionPoint> point;
};

TEST_F(BadSinks, FailuresOfOneDoNotReachTheOthersOrTheSource) {
    advise([](DISPPARAMS&, VARIANT*, EXCEPINFO*) { return E_FAIL; });
    advise([](DISPPARAMS&, VARIANT*, EXCEPINFO*) -> HRESULT { throw std::runtime_error("a sink must not throw"); });
    advise([](DISPPARAMS&, VARIANT*, EXCEPINFO* exception) {
        exception->bstrDescription = SysAllocString(u"to be freed by the source");
        return DISP_E_EXCEPTION;
    });
    advise([](DISPPARAMS& parameters, VARIANT* result, EXCEPINFO*) {
        parameters.rgvarg[0].vt = VT_BSTR; // no such text
        parameters.rgvarg[0].bstrVal = nullptr;
        parameters.cArgs = 77;
        if (result) {
            *result = Variant(u"nobody asked").detach();
        }
        return S_OK;
    });
    const Connection connection = listen(timer);
    timer.StartTimer(10);
    wait(10);
    EXPECT_EQ(fired, (std::vector<std::pair<Long, Long>>{{1, 10}}));
}

TEST_F(BadSinks, MayLeaveOrLetTheSourceGoDuringAnEvent) {
    DWORD second = 0;
    int calls = 0;
    advise([&](DISPPARAMS&, VARIANT*, EXCEPINFO*) {
        EXPECT_EQ(point->Unadvise(second), S_OK);
        timer.StopTimer();
        timer = nullptr;
        return S_OK;
    });
    second = advise([&](DISPPARAMS&, VARIANT*, EXCEPINFO*) {
        ++calls;
        return S_OK;
    });
    advise([&](DISPPARAMS&, VARIANT*, EXCEPINFO*) {
        ++calls;
        point = nullptr; // the last reference on the source
        return S_OK;
    });
    timer.StartTimer(10);
    wait(10);
    EXPECT_EQ(calls, 1) << "who left before its turn is not called";
    EXPECT_EQ(machine->handles.count(), (std::map<std::string, std::size_t>{}));
}

TEST_F(BadSinks, ConnectionPointsAnswerAsDocumented) {
    const DWORD cookie = advise([](DISPPARAMS&, VARIANT*, EXCEPINFO*) { return S_OK; });
    const DWORD other = advise([](DISPPARAMS&, VARIANT*, EXCEPINFO*) { return S_OK; });
    EXPECT_NE(cookie, other);
    IID id;
    EXPECT_EQ(point->GetConnectionInterface(&id), S_OK);
    EXPECT_EQ(id, interfaceId<TRL_OBKR_MOX::__moxTimer>);
    DWORD none = 7;
    EXPECT_EQ(point->Advise(nullptr, &none), E_POINTER);
    EXPECT_EQ(point->Unadvise(4711), CONNECT_E_NOCONNECTION);
    EXPECT_FALSE(point.as<IDispatch>()) << "an object of its own";
    EXPECT_EQ(point.as<IUnknown>(), point.as<IUnknown>());

    Ref<IConnectionPointContainer> container;
    ASSERT_EQ(point->GetConnectionPointContainer(container.out()), S_OK);
    Ref<IConnectionPoint> wrong;
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, wrong.out()), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(container.as<IUnknown>().get(), Ref<IDispatch>(timer.get()).as<IUnknown>().get());

    Ref<IEnumConnections> connections;
    ASSERT_EQ(point->EnumConnections(connections.out()), S_OK);
    CONNECTDATA data[3]{};
    ULONG fetched = 0;
    EXPECT_EQ(connections->Next(3, data, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    EXPECT_EQ(data[0].dwCookie, cookie);
    data[0].pUnk->Release();
    data[1].pUnk->Release();
    EXPECT_EQ(connections->Reset(), S_OK);
    EXPECT_EQ(connections->Skip(1), S_OK);
    Ref<IEnumConnections> copy;
    ASSERT_EQ(connections->Clone(copy.out()), S_OK);
    EXPECT_EQ(copy->Next(1, data, nullptr), S_OK);
    EXPECT_EQ(data[0].dwCookie, other);
    data[0].pUnk->Release();
    EXPECT_EQ(copy->Skip(1), S_FALSE);

    const auto info = Ref<IDispatch>(timer.get()).as<IProvideClassInfo2>();
    GUID events{};
    EXPECT_EQ(info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_EQ(events, interfaceId<TRL_OBKR_MOX::__moxTimer>);
    EXPECT_EQ(info->GetGUID(2, &events), E_INVALIDARG);
}

} // namespace
} // namespace mox::test
