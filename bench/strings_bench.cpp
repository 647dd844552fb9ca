// The text conversions against memcpy of their input, and against themselves on eight times the input.
#include "support/ratios.h"

#include <mox/mox.h>

#include <cstring>
#include <malloc.h>
#include <vector>

namespace {

using namespace mox;

/// Characters of several kinds, as they come in forms and pages.
String sample(std::size_t length) {
    static constexpr char16_t pattern[] = u"Hello, World & <b>caf\u00E9</b>?q=1&n=2; ";
    String text = String::ofLength(length);
    for (std::size_t i = 0; i < length; ++i) {
        text.data()[i] = pattern[i % (std::size(pattern) - 1)];
    }
    return text;
}

const moxVarString& object() {
    static const moxVarString object = moxHub::create().Vars().vString();
    return object;
}

/// The digits of such a text.
String hexadecimalSample(std::size_t length) {
    return object().Conv2HexString(sample(length / 2));
}

constexpr std::size_t shortLength = 4000;
constexpr std::size_t longLength = 8 * shortLength; // below the 32768 characters where the URL members stop
constexpr std::size_t factor = longLength / shortLength;

void copy(benchmark::State& state) {
    const String text = sample(longLength);
    std::vector<char16_t> target(longLength);
    for (auto _ : state) {
        std::memcpy(target.data(), text.get(), longLength * sizeof(char16_t));
        benchmark::DoNotOptimize(target.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(copy);

template <class Call> void measure(const std::string& name, Call call, String (*input)(std::size_t) = &sample) {
    for (const std::size_t length : {shortLength, longLength}) {
        benchmark::RegisterBenchmark((name + (length == shortLength ? "Short" : "")).c_str(),
                                     [call, length, input](benchmark::State& state) {
                                         const String text = input(length);
                                         for (auto _ : state) {
                                             benchmark::DoNotOptimize(call(text));
                                         }
                                     });
    }
}

} // namespace

int main(int argc, char** argv) {
    // The allocator keeps its memory, as in a program that has run for a while; else the system's zeroing of new pages is what is
    // measured.
    mallopt(M_MMAP_THRESHOLD, 64 << 20);
    mallopt(M_TRIM_THRESHOLD, 256 << 20);
    measure("URLEncode", [](const String& text) { return object().URLEncode(text); });
    measure("URLDecode", [](const String& text) { return object().URLDecode(text); });
    measure("Conv2HexString", [](const String& text) { return object().Conv2HexString(text); });
    measure(
        "Conv2HexStringBack", [](const String& text) { return object().Conv2HexString(text, True); }, &hexadecimalSample);
    measure("StringChecksum", [](const String& text) { return object().StringChecksum(text); });
    measure("StringEntities", [](const String& text) { return object().StringEntities(text, True); });
    std::vector<bench::Ratio> ratios;
    for (const char* name : {"URLEncode", "URLDecode", "Conv2HexString", "Conv2HexStringBack", "StringChecksum"}) {
        ratios.push_back({std::string(name) + " against memcpy of its input", name, "copy", 30});
    }
    for (const char* name :
         {"URLEncode", "URLDecode", "Conv2HexString", "Conv2HexStringBack", "StringChecksum", "StringEntities"}) {
        ratios.push_back({std::string(name) + " on eight times the text, against eight times the time", name,
                          std::string(name) + "Short", 1.5, factor});
    }
    return bench::runWithRatios(argc, argv, ratios);
}
