#include "host/machine/control.h"
#include "host/machine/doctor.h"
#include "host/machine/machine.h"
#include "host/machine/machinefacts.h"

#include <nlohmann/json.hpp>

namespace mox::host {

using nlohmann::json;
using platform::OperationBase;

namespace {

const std::string& textMember(const json& request, const char* name) {
    const auto member = request.find(name);
    if (member == request.end() || !member->is_string()) {
        throw ControlError(std::string("the request has no string \"") + name + "\"");
    }
    return member->get_ref<const std::string&>();
}

std::uint64_t timesOf(const json& request) {
    const auto times = request.find("times");
    if (times == request.end() || times->is_null()) {
        return OperationBase::forever;
    }
    if (!times->is_number_unsigned()) {
        throw ControlError("times: not a whole number");
    }
    return times->get<std::uint64_t>();
}

} // namespace

json controlMachine(const json& request) {
    refuseUnknown(request, "member", {"do", "facts"});
    MachineConfig config = MachineConfig::fromEnvironment();
    if (const auto facts = request.find("facts"); facts != request.end()) {
        applyFacts(config, *facts);
    }
    try {
        Machine::configure(std::move(config));
    } catch (const std::logic_error& error) {
        throw ControlError(error.what(), E_FAIL);
    }
    return json::object();
}

json controlOperation(const json& request) {
    refuseUnknown(request, "member", {"do", "name", "action", "times"});
    const std::string& name = textMember(request, "name");
    const std::string& action = textMember(request, "action");
    const std::uint64_t times = timesOf(request);
    OperationBase* operation = Machine::current().findOperation(name);
    if (!operation) {
        throw ControlError("unknown operation: " + name);
    }
    if (action == "calls") {
        return {{"calls", operation->calls()}};
    }
    if (action == "reset") {
        operation->reset();
    } else if (action == "fail") {
        operation->fail(times);
    } else if (action == "restore") {
        operation->restore();
    } else {
        throw ControlError("unknown action: " + action);
    }
    return json::object();
}

json controlOperations(const json& request) {
    refuseUnknown(request, "member", {"do"});
    json operations = json::object();
    for (const platform::SystemLibrary* library : Machine::current().libraries()) {
        for (const OperationBase* operation : library->operations()) {
            operations[operation->fullName()] = operation->calls();
        }
    }
    return {{"operations", std::move(operations)}};
}

json controlHandles(const json& request) {
    refuseUnknown(request, "member", {"do"});
    return {{"handles", Machine::current().handles.count()}};
}

json controlDoctor(const json& request) {
    refuseUnknown(request, "member", {"do"});
    json services = json::array();
    for (const ServiceReport& report : examine(Machine::current())) {
        services.push_back({{"service", report.service}, {"text", report.text}});
    }
    return {{"services", std::move(services)}};
}

json controlAnswer(const json& request) {
    refuseUnknown(request, "member", {"do", "kind", "reply"});
    const auto reply = request.find("reply");
    Machine::current().dialogs.answer(textMember(request, "kind"), reply == request.end() ? json::object() : *reply);
    return json::object();
}

json controlDialogs(const json& request) {
    refuseUnknown(request, "member", {"do"});
    json dialogs = json::array();
    for (const AskedDialog& dialog : Machine::current().dialogs.asked()) {
        dialogs.push_back(
            {{"kind", dialog.kind}, {"caption", dialog.caption}, {"text", dialog.text}, {"answer", json::parse(dialog.answer)}});
    }
    return {{"dialogs", std::move(dialogs)}};
}

} // namespace mox::host
