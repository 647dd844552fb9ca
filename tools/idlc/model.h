// What an IDL file says, after parsing and after its names are resolved.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace idlc {

/// Where something stands, for messages.
struct Place {
    std::string file;
    int line = 0;
};

/// What is wrong with the input, with its place.
class Failure : public std::runtime_error {
public:
    Failure(const Place& place, const std::string& message)
        : std::runtime_error(place.file + ":" + std::to_string(place.line) + ": " + message) {}
};

struct Library;
struct Definition;

enum class Basic {
    Void,
    Long,
    Integer,
    Byte,
    Single,
    Double,
    Boolean,
    String,
    Date,
    Currency,
    Variant,
    Dispatch,
    Unknown,
    Named
};

/// A type as it stands in a declaration. `pointers` counts the stars that are written.
struct Type {
    Basic basic = Basic::Void;
    /// The written name of a `Named` type, and what it names.
    std::string name;
    const Definition* definition = nullptr;
    bool array = false;
    int pointers = 0;
};

/// The value of a default: nothing written, a number, a text, or the name of an enum value (resolved to its number).
struct Constant {
    std::variant<std::monostate, std::int64_t, double, std::string> value;
    /// The enum value's name, if it was written so.
    std::string name;
};

struct Parameter {
    Place place;
    std::string name;
    Type type;
    bool in = false;
    bool out = false;
    bool retval = false;
    bool optional = false;
    std::optional<Constant> defaultValue;
    /// In and out, so that the callee sees and changes the caller's variable.
    bool byReference() const { return out && !retval; }
};

enum class MemberKind { Method, Get, Put, PutRef };

struct Member {
    Place place;
    std::string name;
    std::string help;
    std::int32_t id = 0;
    MemberKind kind = MemberKind::Method;
    bool hidden = false;
    bool nonBrowsable = false;
    /// Without the result.
    std::vector<Parameter> parameters;
    /// The type of the result itself, no pointer to it; Void for none.
    Type result;
};

struct EnumValue {
    Place place;
    std::string name;
    std::string help;
    std::int32_t number = 0;
};

struct Field {
    Place place;
    std::string name;
    std::string help;
    Type type;
};

enum class DefinitionKind { Enum, Record, Alias, Interface, DispatchInterface, Class };

/// One named type of a library.
struct Definition {
    Place place;
    DefinitionKind kind = DefinitionKind::Enum;
    const Library* library = nullptr;
    std::string name;
    std::string help;
    std::string uuid;

    std::vector<EnumValue> values; // Enum
    std::vector<Field> fields;     // Record
    Type target;                   // Alias
    std::vector<Member> members;   // Interface, DispatchInterface
    std::string defaultName;       // Class
    std::string eventsName;        // Class
    const Definition* defaultInterface = nullptr;
    const Definition* events = nullptr;
    bool creatable = true;  // Class
    bool appObject = false; // Class

    /// Interface or event interface: the class that has it as its default, if any.
    const Definition* ownerClass = nullptr;
    /// DispatchInterface: the events of some class, so that clients implement it.
    bool isEvents = false;

    bool isInterface() const { return kind == DefinitionKind::Interface || kind == DefinitionKind::DispatchInterface; }
};

struct Library {
    Place place;
    std::string name;
    std::string help;
    std::string uuid;
    int major = 1;
    int minor = 0;
    std::uint32_t lcid = 0;
    std::vector<std::string> imports;
    std::vector<const Library*> imported;
    std::vector<std::unique_ptr<Definition>> definitions;

    const Definition* find(std::string_view wanted) const {
        for (const auto& definition : definitions) {
            if (definition->name == wanted) {
                return definition.get();
            }
        }
        return nullptr;
    }
};

} // namespace idlc
