#include "automation/typelib/trace.h"

#include "automation/objects/runtimeerror.h"
#include "automation/typelib/varianttext.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace mox::typelib {

namespace {

/// The calls of this thread that are under way, outermost first: what is known of their lines when they begin.
thread_local std::vector<std::string> openCalls;

bool listHas(std::string_view list, std::string_view wantedName) {
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(','), list.size());
        if (list.substr(0, comma) == wantedName) {
            return true;
        }
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return false;
}

std::string_view prefixOf(INVOKEKIND kind) {
    switch (kind) {
    case INVOKE_PROPERTYGET:
        return "get_";
    case INVOKE_PROPERTYPUT:
        return "put_";
    case INVOKE_PROPERTYPUTREF:
        return "putref_";
    default:
        return "";
    }
}

std::string argument(const VARIANT& value) {
    const bool isMissing = value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
    return isMissing ? "-" : literalOf(value);
}

/// The arguments as the caller wrote them: by position from the first on, then by name.
std::string argumentsOf(const Member& member, const DISPPARAMS& parameters) {
    std::string text;
    const UINT positional = parameters.cArgs - parameters.cNamedArgs;
    for (UINT i = 0; i < positional; ++i) {
        text += (text.empty() ? "" : ", ") + argument(parameters.rgvarg[parameters.cArgs - 1 - i]);
    }
    for (UINT i = parameters.cNamedArgs; i > 0; --i) {
        const DISPID id = parameters.rgdispidNamedArgs[i - 1];
        text += text.empty() ? "" : ", ";
        if (id >= 0 && static_cast<std::size_t>(id) < member.parameters.size()) {
            text += utf8FromUtf16(member.parameters[static_cast<std::size_t>(id)].name) + ": ";
        } else if (id != DISPID_PROPERTYPUT) {
            text += std::to_string(id) + ": ";
        }
        text += argument(parameters.rgvarg[i - 1]);
    }
    return text;
}

/// The run-time error that a status stands for; 0 for none.
Long numberOf(HRESULT status) {
    switch (status) {
    case DISP_E_TYPEMISMATCH:
        return errTypeMismatch;
    case DISP_E_OVERFLOW:
        return errOverflow;
    case DISP_E_MEMBERNOTFOUND:
        return 438;
    case DISP_E_PARAMNOTFOUND:
        return 448;
    case DISP_E_PARAMNOTOPTIONAL:
        return 449;
    case DISP_E_BADPARAMCOUNT:
        return 450;
    default:
        return statusOfRuntimeError(status) == status ? static_cast<std::uint16_t>(status) : 0;
    }
}

std::string failure(HRESULT status, const EXCEPINFO* exception) {
    std::array<char, 16> code{};
    std::snprintf(code.data(), code.size(), "0x%08X", static_cast<unsigned>(status));
    std::string text = std::string(" ! ") + code.data();
    if (exception && exception->bstrDescription) {
        text += " " + utf8FromUtf16({exception->bstrDescription, SysStringLen(exception->bstrDescription)});
    } else if (const Long number = numberOf(status); number != 0) {
        text += " " + utf8FromUtf16(textOfRuntimeError(number));
    }
    return text;
}

} // namespace

bool Trace::wanted() {
    static const bool isWanted = [] {
        const char* list = std::getenv("MOX_TRACE");
        return list && listHas(list, "dispatch");
    }();
    return isWanted;
}

void Trace::begin() noexcept {
    try {
        std::u16string_view interface = type_.name;
        if (interface.starts_with(u'_')) {
            interface.remove_prefix(1);
        }
        std::string line(2 * openCalls.size(), ' ');
        line += utf8FromUtf16(interface) + "." + std::string(prefixOf(member_.kind)) + utf8FromUtf16(member_.name);
        openCalls.push_back(line + "(" + argumentsOf(member_, parameters_) + ")");
    } catch (const std::bad_alloc&) {
        return; // the call matters, its line does not
    }
    active_ = true;
    start_ = std::chrono::steady_clock::now();
}

void Trace::end(HRESULT status, const EXCEPINFO* exception, const VARIANT* result) noexcept {
    const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start_;
    try {
        std::string line = std::move(openCalls.back());
        openCalls.pop_back();
        if (FAILED(status)) {
            line += failure(status, exception);
        } else if (result && member_.result.variant != VT_VOID) {
            line += " -> " + literalOf(*result);
        }
        std::array<char, 32> duration{};
        std::snprintf(duration.data(), duration.size(), "  [%.1f us]\n", time.count());
        line += duration.data();
        std::fwrite(line.data(), 1, line.size(), stderr); // in one piece, so that the lines of threads stay whole
    } catch (const std::bad_alloc&) {
        return;
    }
}

} // namespace mox::typelib
