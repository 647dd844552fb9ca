// Control of the machine from outside: for clients in other languages and for tools.
#pragma once

#include "automation/objects/export.h"

#include <mox/abi/functions.h>

#include <nlohmann/json_fwd.hpp>

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>

namespace mox::host {

/// A request that cannot be served: the status and the text of the error object that the caller gets.
class ControlError : public std::runtime_error {
public:
    explicit ControlError(const std::string& text, HRESULT status = E_INVALIDARG) : std::runtime_error(text), status_(status) {}
    HRESULT status() const noexcept { return status_; }

private:
    HRESULT status_;
};

/// Throws if a JSON object has a member that is not in the list. `kind` says what its members are.
MOX_API void refuseUnknown(const nlohmann::json& object, std::string_view kind, std::initializer_list<std::string_view> known);

// The requests, one handler each. They take the whole request and give the reply.
MOX_API nlohmann::json controlMachine(const nlohmann::json& request);
MOX_API nlohmann::json controlOperation(const nlohmann::json& request);
MOX_API nlohmann::json controlOperations(const nlohmann::json& request);
MOX_API nlohmann::json controlHandles(const nlohmann::json& request);
MOX_API nlohmann::json controlDoctor(const nlohmann::json& request);
MOX_API nlohmann::json controlAnswer(const nlohmann::json& request);
MOX_API nlohmann::json controlDialogs(const nlohmann::json& request);
MOX_API nlohmann::json controlRegistryGet(const nlohmann::json& request);
MOX_API nlohmann::json controlRegistrySet(const nlohmann::json& request);

} // namespace mox::host

/// Serves a request, a JSON object whose member "do" names it, and gives the reply, a JSON object that the caller frees.
///
/// - `{"do": "machine", "facts": {...}}`: what the machine is made of, before its first use; see `applyFacts`. `E_FAIL` after
/// that. Reply: `{}`.
/// - `{"do": "operation", "name": "kernel32.FindFirstFileA", "action": ..., "times": n}`: "calls" gives `{"calls": n}`, "reset"
/// sets that to 0,
///   "fail" makes the next `times` calls fail, or all if it is left out or null, "restore" ends that.
/// - `{"do": "operations"}`: `{"operations": {"kernel32.FindFirstFileA": calls, ...}}`.
/// - `{"do": "handles"}`: the open handles by kind, `{"handles": {"find": n, ...}}`.
/// - `{"do": "doctor"}`: what stands behind each service, `{"services": [{"service": "files", "text": ...}, ...]}`.
/// - `{"do": "answer", "kind": "confirm", "reply": {"yes": true}}`: answers the next dialog of a kind ahead; see `checkReply`.
/// Reply: `{}`.
/// - `{"do": "dialogs"}`: what was asked, oldest first, `{"dialogs": [{"kind": ..., "caption": ..., "text": ..., "answer":
/// {...}},
/// ...]}`.
/// - `{"do": "registry.get", "root": "HKEY_CURRENT_USER", "key": path, "name": name}`: a value of the registry, `{"value":
/// {"type": number, "data": two hexadecimal digits a byte}}`, or `{"value": null}` if there is none; the empty name is the key's
/// default value. `E_FAIL` if the registry cannot be read.
/// - `{"do": "registry.set", ..., "type": number, "data": ...}`: sets one, making its key. Reply: `{}`; `E_FAIL` if that fails.
///
/// `E_INVALIDARG` with an error object that says what is wrong for anything else, `E_POINTER` without a place for the reply.
MOX_EXPORT HRESULT MoxControl(BSTR request, BSTR* reply);

/// Runs the calling thread's message loop for `milliseconds`: its timers, and the release of references that other threads handed
/// over. Never returns early. `E_FAIL` if a procedure throws.
MOX_EXPORT HRESULT MoxPump(UINT milliseconds);
