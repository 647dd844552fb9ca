#include "host/machine/control.h"

#include "host/machine/machine.h"

#include <mox/values.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <new>

namespace mox::host {

namespace {

using nlohmann::json;

struct Handler {
    std::string_view name;
    json (*run)(const json& request);
};

constexpr Handler handlers[] = {
    {"machine", &controlMachine},
    {"operation", &controlOperation},
    {"operations", &controlOperations},
    {"handles", &controlHandles},
    {"doctor", &controlDoctor},
    {"answer", &controlAnswer},
    {"dialogs", &controlDialogs},
    {"registry.get", &controlRegistryGet},
    {"registry.set", &controlRegistrySet},
};

std::string run(std::string_view text) {
    const json request = json::parse(text, nullptr, false);
    if (!request.is_object()) {
        throw ControlError("the request is no JSON object");
    }
    const auto name = request.find("do");
    if (name == request.end() || !name->is_string()) {
        throw ControlError("the request has no member \"do\" that names it");
    }
    const auto handler = std::ranges::find(handlers, name->get_ref<const std::string&>(), &Handler::name);
    if (handler == std::ranges::end(handlers)) {
        throw ControlError("unknown request: " + name->get<std::string>());
    }
    return handler->run(request).dump(-1, ' ', false, json::error_handler_t::replace); // paths may be no UTF-8
}

/// Leaves an error object for the caller.
HRESULT report(HRESULT status, const char* text) {
    Ref<ICreateErrorInfo> error;
    if (SUCCEEDED(CreateErrorInfo(error.out()))) {
        String source(u"MoxControl");
        String description = String::fromUtf8(text);
        error->SetSource(source.get());
        error->SetDescription(description.get());
        SetErrorInfo(0, error.as<IErrorInfo>().get());
    }
    return status;
}

/// Runs `task` and makes what it throws into a status and an error object.
template <class Task> HRESULT guarded(Task task) noexcept {
    try {
        SetErrorInfo(0, nullptr); // none that is pending may seem to belong to this call
        try {
            task();
            return S_OK;
        } catch (const ControlError& error) {
            return report(error.status(), error.what());
        } catch (const std::bad_alloc&) {
            return E_OUTOFMEMORY;
        } catch (const std::exception& error) {
            return report(E_FAIL, error.what());
        }
    } catch (...) {
        return E_FAIL;
    }
}

} // namespace

void refuseUnknown(const json& object, std::string_view kind, std::initializer_list<std::string_view> known) {
    for (const auto& [name, value] : object.items()) {
        if (std::ranges::find(known, name) == known.end()) {
            throw ControlError("unknown " + std::string(kind) + ": " + name);
        }
    }
}

} // namespace mox::host

HRESULT MoxControl(BSTR request, BSTR* reply) {
    if (!reply) {
        return E_POINTER;
    }
    *reply = nullptr;
    return mox::host::guarded([&] {
        const std::string text =
            mox::utf8FromUtf16(request ? std::u16string_view(request, SysStringLen(request)) : std::u16string_view());
        *reply = mox::String::fromUtf8(mox::host::run(text)).detach();
    });
}

HRESULT MoxPump(UINT milliseconds) {
    return mox::host::guarded([&] { mox::host::Machine::current().messageLoops.pump(std::chrono::milliseconds(milliseconds)); });
}
