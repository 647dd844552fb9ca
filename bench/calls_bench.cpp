// What a call costs, early bound and by name, against a plain virtual call; what the tree costs, against malloc and free.
#include "support/plain.h"
#include "support/ratios.h"

#include <mox/mox.h>

#include <cstdlib>

namespace {

using namespace mox;

void virtualCall(benchmark::State& state) {
    const std::unique_ptr<bench::Plain> object = bench::makePlain();
    bench::Plain* plain = object.get();
    for (auto _ : state) {
        Long result = 0;
        plain->get(&result);
        benchmark::DoNotOptimize(result);
        benchmark::DoNotOptimize(plain);
    }
}
BENCHMARK(virtualCall);

void valueProperty(benchmark::State& state) {
    const moxTimer timer = moxTimer::create();
    for (auto _ : state) {
        benchmark::DoNotOptimize(timer.MinInterval());
    }
}
BENCHMARK(valueProperty);

void objectProperty(benchmark::State& state) {
    const moxHub hub = moxHub::create();
    for (auto _ : state) {
        const moxVars vars = hub.Vars();
        benchmark::DoNotOptimize(vars.get());
    }
}
BENCHMARK(objectProperty);

/// `MakeDWord` with two arguments.
struct DispatchCall {
    moxVarLong object = moxHub::create().Vars().vLong();
    VARIANT arguments[2]{};
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    VARIANT result{};

    DispatchCall() {
        arguments[0].vt = VT_I2;
        arguments[0].iVal = 3;
        arguments[1].vt = VT_I2;
        arguments[1].iVal = 5;
    }
    DISPID find() const {
        char16_t name[] = u"MakeDWord";
        LPOLESTR names = name;
        DISPID id = DISPID_UNKNOWN;
        object.get()->GetIDsOfNames(GUID_NULL, &names, 1, 0, &id);
        return id;
    }
    void invoke(DISPID id) {
        object.get()->Invoke(id, GUID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr);
        benchmark::DoNotOptimize(result);
    }
};

void invokeById(benchmark::State& state) {
    DispatchCall call;
    const DISPID id = call.find();
    for (auto _ : state) {
        call.invoke(id);
    }
    if (call.result.lVal != 0x30005) {
        state.SkipWithError("wrong result");
    }
}
BENCHMARK(invokeById);

void invokeByName(benchmark::State& state) {
    DispatchCall call;
    for (auto _ : state) {
        call.invoke(call.find());
    }
}
BENCHMARK(invokeByName);

void mallocAndFree(benchmark::State& state) {
    for (auto _ : state) {
        void* block = std::malloc(96);
        benchmark::DoNotOptimize(block);
        std::free(block);
    }
}
BENCHMARK(mallocAndFree);

/// The classes that have code.
constexpr double classesInTree = 11;

void wholeTree(benchmark::State& state) {
    for (auto _ : state) {
        const moxHub hub = moxHub::create();
        const moxVars vars = hub.Vars();
        benchmark::DoNotOptimize(hub.Controls().get());
        benchmark::DoNotOptimize(vars.vByte().get());
        benchmark::DoNotOptimize(vars.vInteger().get());
        benchmark::DoNotOptimize(vars.vLong().get());
        benchmark::DoNotOptimize(vars.vSingle().get());
        benchmark::DoNotOptimize(vars.vString().get());
        benchmark::DoNotOptimize(vars.vRect().get());
        benchmark::DoNotOptimize(vars.vObject().get());
        benchmark::DoNotOptimize(vars.vMath().get());
    }
}
BENCHMARK(wholeTree);

} // namespace

int main(int argc, char** argv) {
    const moxHub keep = moxHub::create(); // the server stays loaded
    return mox::bench::runWithRatios(
        argc, argv,
        {
            {"property get, a number, against a virtual call", "valueProperty", "virtualCall", 5},
            {"property get, an object, against a virtual call", "objectProperty", "virtualCall", 5},
            {"Invoke by identifier, two arguments", "invokeById", "virtualCall", 40},
            {"name look-up and Invoke", "invokeByName", "virtualCall", 60},
            {"whole tree, a class, against malloc and free", "wholeTree", "mallocAndFree", 60, classesInTree},
        });
}
