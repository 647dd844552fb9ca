// A call by name against the same by another object system: QMetaObject::invokeMethod.
#include "support/ratios.h"

#include <mox/mox.h>

#include <QMetaObject>
#include <QObject>

class Peer : public QObject {
    Q_OBJECT
public:
    Q_INVOKABLE int makeDWord(short low, short high) {
        return static_cast<int>(static_cast<unsigned>(high) << 16 | static_cast<unsigned short>(low));
    }
};

namespace {

void qtInvokeByName(benchmark::State& state) {
    Peer peer;
    for (auto _ : state) {
        int result = 0;
        QMetaObject::invokeMethod(&peer, "makeDWord", Qt::DirectConnection, Q_RETURN_ARG(int, result), Q_ARG(short, 5),
                                  Q_ARG(short, 3));
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(qtInvokeByName);

void invokeByName(benchmark::State& state) {
    const mox::moxVarLong object = mox::moxHub::create().Vars().vLong();
    VARIANT arguments[2]{};
    arguments[0].vt = arguments[1].vt = VT_I2;
    DISPPARAMS parameters{arguments, nullptr, 2, 0};
    for (auto _ : state) {
        char16_t name[] = u"MakeDWord";
        LPOLESTR names = name;
        DISPID id = DISPID_UNKNOWN;
        object.get()->GetIDsOfNames(GUID_NULL, &names, 1, 0, &id);
        VARIANT result{};
        object.get()->Invoke(id, GUID_NULL, 0, DISPATCH_METHOD, &parameters, &result, nullptr, nullptr);
        benchmark::DoNotOptimize(result);
    }
}
BENCHMARK(invokeByName);

} // namespace

int main(int argc, char** argv) {
    return mox::bench::runWithRatios(
        argc, argv,
        {{"name look-up and Invoke, against QMetaObject::invokeMethod by name", "invokeByName", "qtInvokeByName", 1.0 / 3}});
}

#include "qt_bench.moc"
