// Drives Invoke over all members that exist with random arguments: a clear status each time, nothing leaked, nothing read beyond.
#include "core/classes.h"
#include "host/machine/machine.h"

#include <mox/mox.h>

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <vector>

namespace {

using namespace mox;

/// Members that change files, folders and settings run on a machine of their own: every drive is a folder that goes with it.
void isolate() {
    static const host::TemporaryFolder disk("mox-fuzz-");
    host::MachineConfig config;
    config.drives = {{'Z', disk.path()}};
    host::Machine::configure(config);
}

std::vector<Ref<IDispatch>> makeAll() {
    isolate();
    std::vector<Ref<IDispatch>> objects;
    for (const ClassEntry& entry : server::serverModule().classes()) {
        if (entry.create) {
            objects.push_back(entry.create());
        }
    }
    return objects;
}

String randomText(FuzzedDataProvider& data) {
    const std::string bytes = data.ConsumeRandomLengthString(40);
    std::u16string text;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        text += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1])
                                                                                 << (bytes[i] & 1 ? 8 : 0));
    }
    return text;
}

/// What by-reference arguments point to.
struct Places {
    Long longs[4] = {};
    Integer integers[4] = {};
    Byte bytes[4] = {};
    Single singles[4] = {};
    Double doubles[4] = {};
    String texts[4];
    Variant variants[4];
    Array<Byte> byteArrays[4];
    Array<TRL_OBKR_MOX::POINTAPI> pointArrays[4];
    Ref<IDispatch> objects[4];
    TRL_OBKR_MOX::RECT rects[4] = {};
    TRL_OBKR_MOX::POINTAPI points[4] = {};
};

template <class Value> Variant byReference(Value& place) {
    Variant argument;
    argument.vt = VT_BYREF | variantType<Value>;
    argument.byref = &place;
    return argument;
}

template <class Record> Variant recordByReference(Record& place, const Ref<IRecordInfo>& info) {
    Variant argument;
    argument.vt = VT_BYREF | VT_RECORD;
    argument.pvRecord = &place;
    argument.pRecInfo = info.get();
    return argument;
}

Variant randomValue(FuzzedDataProvider& data, Places& places, unsigned depth = 0) {
    static const Ref<IRecordInfo> rectInfo = recordInfo<TRL_OBKR_MOX::RECT>();
    static const Ref<IRecordInfo> pointInfo = recordInfo<TRL_OBKR_MOX::POINTAPI>();
    const unsigned place = data.ConsumeIntegralInRange(0u, 3u);
    switch (data.ConsumeIntegralInRange(0, 22)) {
    case 0:
        return data.ConsumeIntegral<Long>();
    case 1:
        return data.ConsumeIntegral<Integer>();
    case 2:
        return data.ConsumeIntegral<Byte>();
    case 3:
        return data.ConsumeFloatingPoint<Single>();
    case 4:
        return data.ConsumeFloatingPoint<Double>();
    case 5:
        return Boolean::ofBits(data.ConsumeIntegral<Integer>());
    case 6:
        return randomText(data);
    case 7:
        return Variant::missing();
    case 8:
        return Variant();
    case 9: {
        const std::vector<Byte> bytes = data.ConsumeBytes<Byte>(data.ConsumeIntegralInRange(0u, 20u));
        return Array<Byte>(std::span<const Byte>(bytes));
    }
    case 10:
        return Array<TRL_OBKR_MOX::POINTAPI>(-2, 3);
    case 11:
        return Array<String>{u"a", u"b"};
    case 12:
        return TRL_OBKR_MOX::RECT{data.ConsumeIntegral<Long>(), 0, data.ConsumeIntegral<Long>(), 9};
    case 13:
        return places.objects[place];
    case 14:
        return Date{data.ConsumeFloatingPoint<Double>()};
    case 15:
        return byReference(places.longs[place]);
    case 16:
        return byReference(places.integers[place]);
    case 17:
        return byReference(places.texts[place]);
    case 18:
        return byReference(places.byteArrays[place]);
    case 19:
        return byReference(places.pointArrays[place]);
    case 20:
        return place & 1 ? recordByReference(places.rects[place], rectInfo) : recordByReference(places.points[place], pointInfo);
    case 21:
        return byReference(places.objects[place]);
    default:
        if (depth < 2) {
            places.variants[place] = randomValue(data, places, depth + 1);
        }
        return byReference(places.variants[place]);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const std::vector<Ref<IDispatch>> objects = makeAll();
    FuzzedDataProvider data(bytes, size);
    Places places;
    places.objects[0] = objects[0];
    places.objects[1] = objects[3];
    while (data.remaining_bytes() > 4) {
        IDispatch* object = objects[data.ConsumeIntegralInRange<std::size_t>(0, objects.size() - 1)].get();
        std::vector<Variant> arguments(data.ConsumeIntegralInRange(0u, 8u));
        for (Variant& argument : arguments) {
            argument = randomValue(data, places);
        }
        std::vector<DISPID> names(data.ConsumeIntegralInRange<std::size_t>(0, arguments.size()));
        for (DISPID& name : names) {
            name = data.ConsumeIntegralInRange<DISPID>(-4, 8);
        }
        DISPPARAMS parameters{arguments.data(), names.data(), static_cast<UINT>(arguments.size()),
                              static_cast<UINT>(names.size())};
        Variant result;
        EXCEPINFO exception{};
        UINT badArgument = 0;
        const auto id = data.ConsumeIntegralInRange<DISPID>(-1, 14);
        const auto flags = data.ConsumeIntegralInRange<WORD>(0, 15);
        const HRESULT status = object->Invoke(id, GUID_NULL, 0, flags, &parameters, data.ConsumeBool() ? result.out() : nullptr,
                                              &exception, &badArgument);
        if (SUCCEEDED(status) == (exception.scode != 0)) {
            if (status == DISP_E_EXCEPTION || SUCCEEDED(status)) {
                std::abort(); // an exception without a code, or a code without an exception
            }
        }
        if (status == DISP_E_TYPEMISMATCH && badArgument >= arguments.size()) {
            std::abort(); // the bad argument is none of those given
        }
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
    }
    return 0;
}
