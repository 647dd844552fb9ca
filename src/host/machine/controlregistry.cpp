// The requests on the registry.
#include "host/machine/control.h"
#include "host/machine/machine.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <limits>

namespace mox::host {

using nlohmann::json;
using platform::HKEY;

namespace {

struct Root {
    std::string_view name;
    HKEY key;
};

constexpr Root roots[] = {
    {"HKEY_CLASSES_ROOT", platform::HKEY_CLASSES_ROOT},
    {"HKEY_CURRENT_USER", platform::HKEY_CURRENT_USER},
    {"HKEY_LOCAL_MACHINE", platform::HKEY_LOCAL_MACHINE},
    {"HKEY_USERS", platform::HKEY_USERS},
    {"HKEY_PERFORMANCE_DATA", platform::HKEY_PERFORMANCE_DATA},
    {"HKEY_CURRENT_CONFIG", platform::HKEY_CURRENT_CONFIG},
    {"HKEY_DYN_DATA", platform::HKEY_DYN_DATA},
};

const std::string& textMember(const json& request, const char* name) {
    const auto member = request.find(name);
    if (member == request.end() || !member->is_string()) {
        throw ControlError(std::string("the request has no string \"") + name + "\"");
    }
    return member->get_ref<const std::string&>();
}

HKEY rootOf(const json& request) {
    const std::string& name = textMember(request, "root");
    const auto root = std::ranges::find(roots, name, &Root::name);
    if (root == std::ranges::end(roots)) {
        throw ControlError("root: no predefined key: " + name);
    }
    return root->key;
}

std::uint32_t typeOf(const json& request) {
    const auto type = request.find("type");
    if (type == request.end() || !type->is_number_unsigned() ||
        type->get<std::uint64_t>() > std::numeric_limits<std::uint32_t>::max()) {
        throw ControlError("type: not a number of 32 bits");
    }
    return type->get<std::uint32_t>();
}

std::string toHex(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += digits[byte >> 4];
        text += digits[byte & 0xF];
    }
    return text;
}

std::string fromHex(const std::string& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); i += 2) {
        unsigned byte = 0;
        const char* const end = text.data() + std::min(i + 2, text.size());
        if (i + 2 > text.size() || std::from_chars(text.data() + i, end, byte, 16).ptr != end) {
            throw ControlError("data: not two hexadecimal digits a byte");
        }
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

void refuse(std::int32_t status) {
    throw ControlError("the registry answers with error " + std::to_string(status), E_FAIL);
}

} // namespace

json controlRegistrySet(const json& request) {
    refuseUnknown(request, "member", {"do", "root", "key", "name", "type", "data"});
    Machine& machine = Machine::current();
    const HKEY root = rootOf(request);
    const std::string path = machine.codePage.fromUtf8(textMember(request, "key"));
    const std::string name = machine.codePage.fromUtf8(textMember(request, "name"));
    const std::uint32_t type = typeOf(request);
    const std::string data = fromHex(textMember(request, "data"));
    HKEY key = 0;
    std::int32_t status = machine.registry.createKey(root, path, key);
    if (status == platform::ERROR_SUCCESS) {
        status = machine.registry.setValue(key, name, type, data);
        machine.registry.closeKey(key);
    }
    if (status != platform::ERROR_SUCCESS) {
        refuse(status);
    }
    return json::object();
}

json controlRegistryGet(const json& request) {
    refuseUnknown(request, "member", {"do", "root", "key", "name"});
    Machine& machine = Machine::current();
    std::optional<RegistryValue> value;
    const std::int32_t status = machine.registry.value(rootOf(request), machine.codePage.fromUtf8(textMember(request, "key")),
                                                       machine.codePage.fromUtf8(textMember(request, "name")), value);
    if (status == platform::ERROR_FILE_NOT_FOUND) {
        return {{"value", nullptr}};
    }
    if (status != platform::ERROR_SUCCESS) {
        refuse(status);
    }
    return {{"value", {{"type", value->type}, {"data", toHex(value->data)}}}};
}

} // namespace mox::host
