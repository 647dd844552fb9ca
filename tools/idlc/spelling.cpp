#include "spelling.h"

#include <cctype>
#include <charconv>
#include <limits>

namespace idlc {

bool isObject(const Type& type) {
    return !type.array && (type.basic == Basic::Dispatch || type.basic == Basic::Unknown ||
                           (type.basic == Basic::Named && type.definition->isInterface()));
}

bool isRecord(const Type& type) {
    return !type.array && type.basic == Basic::Named && type.definition->kind == DefinitionKind::Record;
}

std::string qualified(const Definition& definition) {
    return definition.library->name + "::" + definition.name;
}

std::string slotType(const Type& type) {
    if (type.array) {
        return "SAFEARRAY*";
    }
    switch (type.basic) {
    case Basic::String:
        return "BSTR";
    case Basic::Variant:
        return "VARIANT";
    case Basic::Dispatch:
        return "IDispatch*";
    case Basic::Unknown:
        return "IUnknown*";
    case Basic::Named:
        return qualified(*type.definition) + (type.definition->isInterface() ? "*" : "");
    default:
        return valueType(type);
    }
}

std::string valueType(const Type& type) {
    if (type.array) {
        Type element = type;
        element.array = false;
        return "mox::Array<" + valueType(element) + ">";
    }
    switch (type.basic) {
    case Basic::Void:
        return "void";
    case Basic::Long:
        return "mox::Long";
    case Basic::Integer:
        return "mox::Integer";
    case Basic::Byte:
        return "mox::Byte";
    case Basic::Single:
        return "mox::Single";
    case Basic::Double:
        return "mox::Double";
    case Basic::Boolean:
        return "mox::Boolean";
    case Basic::String:
        return "mox::String";
    case Basic::Date:
        return "mox::Date";
    case Basic::Currency:
        return "mox::Currency";
    case Basic::Variant:
        return "mox::Variant";
    case Basic::Dispatch:
        return "mox::Ref<IDispatch>";
    case Basic::Unknown:
        return "mox::Ref<IUnknown>";
    case Basic::Named:
        break;
    }
    return type.definition->isInterface() ? "mox::Ref<" + qualified(*type.definition) + ">" : qualified(*type.definition);
}

std::string naturalName(const Member& member) {
    switch (member.kind) {
    case MemberKind::Get:
        return "get_" + member.name;
    case MemberKind::Put:
        return "put_" + member.name;
    case MemberKind::PutRef:
        return "putref_" + member.name;
    case MemberKind::Method:
        break;
    }
    return member.name;
}

std::string slotName(const Member& member) {
    return "raw_" + naturalName(member);
}

std::string literal(std::int64_t number) {
    if (number == std::numeric_limits<std::int32_t>::min()) {
        return "(-2147483647 - 1)";
    }
    return std::to_string(number);
}

std::string literal(double number) {
    char buffer[40];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, number);
    std::string text(buffer, end);
    return text.find_first_of(".e") == std::string::npos ? text + ".0" : text;
}

std::string literal(const Constant& constant, const Type& type) {
    if (const auto* text = std::get_if<std::string>(&constant.value)) {
        return "u" + inQuotes(*text);
    }
    if (const auto* real = std::get_if<double>(&constant.value)) {
        return literal(*real) + (type.basic == Basic::Single ? "f" : "");
    }
    const std::int64_t number = std::get<std::int64_t>(constant.value);
    if (type.basic == Basic::Boolean) {
        return number ? "mox::True" : "mox::False";
    }
    if (isObject(type)) {
        return "nullptr";
    }
    if (type.definition && type.definition->kind == DefinitionKind::Enum) {
        return constant.name.empty() ? qualified(*type.definition) + "{" + literal(number) + "}"
                                     : type.definition->library->name + "::" + identifier(constant.name);
    }
    return literal(number);
}

std::string inQuotes(std::string_view text) {
    std::string result = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            result += '\\';
        }
        result += c;
    }
    return result + '"';
}

std::string identifier(const std::string& name) {
    std::string result;
    for (const char c : name) {
        result += std::isalnum(static_cast<unsigned char>(c)) ? c : '_';
    }
    return result;
}

std::string guidInitialiser(const std::string& uuid) {
    std::string result = "{0x" + uuid.substr(0, 8) + ", 0x" + uuid.substr(9, 4) + ", 0x" + uuid.substr(14, 4) + ", {";
    const std::string tail = uuid.substr(19, 4) + uuid.substr(24);
    for (std::size_t i = 0; i < tail.size(); i += 2) {
        result += (i ? ", 0x" : "0x") + tail.substr(i, 2);
    }
    return result + "}}";
}

std::string slotParameters(const Member& member) {
    std::string result;
    for (const Parameter& parameter : member.parameters) {
        result +=
            (result.empty() ? "" : ", ") + slotType(parameter.type) + (parameter.byReference() ? "* " : " ") + parameter.name;
    }
    if (member.result.basic != Basic::Void) {
        result += (result.empty() ? "" : ", ") + slotType(member.result) + "* result";
    }
    return result;
}

} // namespace idlc
