#include "host/dialogs/dialogkinds.h"

#include "host/machine/control.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace mox::host {

namespace {

using nlohmann::json;

bool isTruth(const json& value) {
    return value.is_boolean();
}

bool isButton(const json& value) {
    constexpr std::int64_t last = 11; // IDCONTINUE
    return value.is_number_integer() && value.get<std::int64_t>() >= 1 && value.get<std::int64_t>() <= last;
}

/// A member that every reply to this kind has.
struct ReplyMember {
    std::string_view kind;
    std::string_view name;
    bool (*fits)(const json& value);
    std::string_view description;
};

constexpr ReplyMember members[] = {
    {confirmDialog, "yes", isTruth, "true or false"},
    {messageBoxDialog, "button", isButton, "the identifier of a button, 1 to 11"},
};

void checkMember(const ReplyMember& member, const json& reply) {
    const auto value = reply.find(member.name);
    if (value == reply.end()) {
        throw ControlError("a reply to " + std::string(member.kind) + " needs " + std::string(member.name));
    }
    if (!member.fits(*value)) {
        throw ControlError(std::string(member.name) + ": not " + std::string(member.description));
    }
}

} // namespace

void checkReply(std::string_view kind, const json& reply) {
    if (std::ranges::find(members, kind, &ReplyMember::kind) == std::ranges::end(members)) {
        throw ControlError("unknown kind of dialog: " + std::string(kind));
    }
    if (!reply.is_object()) {
        throw ControlError("reply: not an object");
    }
    for (const auto& given : reply.items()) {
        const auto isNamed = [&](const ReplyMember& member) { return member.kind == kind && member.name == given.key(); };
        if (std::ranges::none_of(members, isNamed)) {
            throw ControlError("unknown member of a reply to " + std::string(kind) + ": " + given.key());
        }
    }
    for (const ReplyMember& member : members) {
        if (member.kind == kind) {
            checkMember(member, reply);
        }
    }
}

} // namespace mox::host
