#include "automation/typelib/library.h"
#include "automation/typelib/varianttext.h"
#include "dispatch_support.h"
#include "sample_library.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <unistd.h>

namespace mox {
namespace {

using namespace sample;
using test::invoke;
using typelib::literalOf;

TEST(VariantText, writesValuesAsLiterals) {
    typelib::addLibrary(sampleLibrary);
    Long place = 5;
    Array<Long> wide(1, 100);
    SAFEARRAYBOUND bounds[]{{2, 0}, {3, 0}};
    Variant matrix;
    matrix.vt = VT_ARRAY | VT_UI1;
    matrix.parray = SafeArrayCreate(VT_UI1, 2, bounds);
    SampleRecord record;
    record.Name = u"r";
    record.Position = {1, 2};
    record.Corners = {SamplePoint{3, 4}};
    Variant decimal;
    ASSERT_EQ(VariantChangeType(&decimal, &static_cast<const VARIANT&>(Variant(Double{1.5})), 0, VT_DECIMAL), S_OK);
    VARIANT null{};
    null.vt = VT_NULL;
    VARIANT nowhere{};
    nowhere.vt = VT_BYREF | VT_I4;
    Variant deep = Array<Variant>{Long{1}};
    for (int i = 0; i < 6; ++i) {
        deep = Array<Variant>{deep};
    }
    const std::u16string sixty(60, u'a');
    const std::pair<Variant, std::string> cases[]{
        {Variant(), "Empty"},
        {Variant::attach(null), "Null"},
        {Byte{255}, "255"},
        {Integer{-5}, "-5"},
        {Long{-2147483647 - 1}, "-2147483648"},
        {Single{0.1f}, "0.1"},
        {Double{0.1}, "0.1"},
        {Double{1e300}, "1e+300"},
        {Boolean(true), "True"},
        {Boolean(false), "False"},
        {Currency{-12500}, "-1.25"},
        {Currency{30000}, "3"},
        {Currency{std::numeric_limits<std::int64_t>::min()}, "-922337203685477.5808"},
        {Date{2}, "#1900-01-01#"},
        {Date{36526.5}, "#2000-01-01 12:00:00#"},
        {Date{1e300}, "#1e+300#"},
        {decimal, "1.5"},
        {Variant::missing(), "Error 0x80020004"},
        {String(), "\"\""},
        {String(u"a\"b\\c\r\n\t\x01"), R"("a\"b\\c\r\n\t\x01")"},
        {String(u"Grüße €"), "\"Grüße €\""},
        {String(sixty), "\"" + std::string(60, 'a') + "\""},
        {String(sixty + u"b"), "\"" + std::string(60, 'a') + "\"..."},
        {String(sixty.substr(1) + u"\U0001F600"), "\"" + std::string(59, 'a') + "\"..."}, // no half of a pair
        {Ref<IDispatch>(), "Nothing"},
        {Ref<IDispatch>(makeSample()), "Sample"},
        {Variant(Ref<IUnknown>(makeSample().get())), "Sample"},
        {test::byRef(place), "5"},
        {Variant::attach(nowhere), "?"},
        {Array<Long>{}, "[0]"},
        {Array<Long>{1, 2}, "[2: 1, 2]"},
        {wide, "[100: 0, 0, 0, 0, ...]"},
        {Array<String>{u"a", u"b"}, "[2: \"a\", \"b\"]"},
        {Array<SamplePoint>{{1, 2}}, "[1: SamplePoint{X: 1, Y: 2}]"},
        {matrix, "[2x3: 0, 0, 0, 0, ...]"},
        {deep, "[1: [1: [1: [1: [1: ...]]]]]"},
        {SamplePoint{7, 8}, "SamplePoint{X: 7, Y: 8}"},
        {record,
         "SampleRecord{Name: \"r\", Values: [0], Position: SamplePoint{X: 1, Y: 2}, Visible: False, Kind: 0, Anything: Empty, "
         "Object: Nothing, Corners: [1: SamplePoint{X: 3, Y: 4}], Colour: 0}"},
    };
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(literalOf(value), text);
    }
}

/// Where the traced part of the test runs in a process of its own, which reads the switch anew.
constexpr const char* tracedRun = "MOX_TRACE_TEST";

void makeTracedCalls() {
    typelib::addLibrary(sampleLibrary);
    const Ref<ISample> object = makeSample();
    invoke(*object, minMaxId, DISPATCH_METHOD, {Long{5}}, {{2, Long{3}}});
    invoke(*object, minMaxId, DISPATCH_METHOD, {Long{5}, Variant::missing(), Long{9}});
    invoke(*object, nameId, DISPATCH_PROPERTYPUT, {}, {{DISPID_PROPERTYPUT, String(u"n")}});
    invoke(*object, nameId, DISPATCH_PROPERTYGET, {});
    invoke(*object, cellId, DISPATCH_PROPERTYPUT, {Long{1}, Long{2}}, {{DISPID_PROPERTYPUT, Long{3}}});
    invoke(*object, anythingId, DISPATCH_PROPERTYPUTREF, {}, {{DISPID_PROPERTYPUT, Ref<IDispatch>(makeSample())}});
    invoke(*object, shiftId, DISPATCH_METHOD, {SamplePoint{1, 2}, Long{3}});
    invoke(*object, failId, DISPATCH_METHOD, {Long{6}});
    invoke(*object, refuseId, DISPATCH_METHOD, {Long{0}, Long{E_ABORT}});
    invoke(*object, addId, DISPATCH_METHOD, {Long{1}, String(u"x")});
    invoke(*object, itemsId, DISPATCH_PROPERTYGET, {Long{1}});
    invoke(*object, failId, DISPATCH_METHOD, {}, {{0, Ref<IDispatch>(object)}}); // reads the default member of the argument
}

/// A line of the trace with "[time]" for its time, if that is written as it should be.
std::string withoutTime(const std::string& line) {
    const std::size_t start = line.rfind("  [");
    Double time = 0;
    std::array<char, 4> end{};
    if (start == std::string::npos || std::sscanf(line.c_str() + start, "  [%lf us%3[]\n]", &time, end.data()) != 2 ||
        time <= 0) {
        return line;
    }
    return line.substr(0, start) + (std::string_view(end.data()) == "]\n" ? "  [time]" : "  [?]");
}

std::vector<std::string> linesOfTracedRun(const std::string& setting) {
    std::array<char, 4096> self{};
    if (readlink("/proc/self/exe", self.data(), self.size() - 1) < 0) {
        return {};
    }
    const std::string command = std::string(tracedRun) + "=1 MOX_TRACE='" + setting + "' '" + self.data() +
                                "' --gtest_filter=Trace.writesOneLineACall 2>&1 >/dev/null";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"), &pclose);
    std::vector<std::string> lines;
    std::array<char, 4096> line{};
    while (output && std::fgets(line.data(), static_cast<int>(line.size()), output.get())) {
        lines.push_back(withoutTime(line.data()));
    }
    return lines;
}

TEST(Trace, writesOneLineACall) {
    if (std::getenv(tracedRun)) {
        makeTracedCalls();
        return;
    }
    const std::vector<std::string> expected{
        "Sample.MinMax(5, MaxValue: 3) -> 3  [time]",
        "Sample.MinMax(5, -, 9) -> 5  [time]",
        "Sample.put_Name(\"n\")  [time]",
        "Sample.get_Name() -> \"n\"  [time]",
        "Sample.put_Cell(1, 2, 3)  [time]",
        "Sample.putref_Anything(Sample)  [time]",
        "Sample.Shift(SamplePoint{X: 1, Y: 2}, 3) -> SamplePoint{X: 1, Y: 2}  [time]",
        "Sample.Fail(6) ! 0x800A0006 Overflow  [time]",
        "Sample.Refuse(0, -2147467260) ! 0x80004004  [time]",
        "Sample.Add(1, \"x\") ! 0x80020005 Type mismatch  [time]",
        "Sample.get_Items() -> SampleItems  [time]",
        "SampleItems.get_Item(1) -> \"beta\"  [time]",
        "  Sample.get_Name() -> \"n\"  [time]",
        "Sample.Fail(Number: Sample) ! 0x80020005 Type mismatch  [time]",
    };
    EXPECT_EQ(linesOfTracedRun("dispatch"), expected);
    EXPECT_EQ(linesOfTracedRun("winspool,dispatch,other").size(), expected.size());
    EXPECT_TRUE(linesOfTracedRun("dispatcher,,winspool").empty());
}

} // namespace
} // namespace mox
