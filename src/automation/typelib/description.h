// What the compiler of the type library writes down about a library, as constant tables. Type information, name look-up
// and dispatch read these tables and nothing else.
#pragma once

#include <mox/automation.h>

#include <atomic>
#include <cstdint>
#include <span>

namespace mox::typelib {

class Call;
class Library;
struct LibraryDescription;
struct TypeDescription;

/// Calls one member through its interface: converts the arguments of a dispatch call, calls, converts back.
using Thunk = HRESULT (*)(void* object, Call& call);

/// The most arguments that one member may have.
inline constexpr unsigned maxParameters = 32;

/// The type of an argument, a result, a field or an alias.
struct TypeReference {
    /// Of the value, or of the elements of an array: VT_VOID for no value, VT_DISPATCH for every object, VT_USERDEFINED for
    /// an enum, a record or an alias.
    VARTYPE variant = VT_VOID;
    bool array = false;
    bool byReference = false;
    /// The named type: enum, record, alias or interface; null for plain types and plain `IDispatch`.
    const TypeDescription* type = nullptr;
};

/// The default of an optional argument.
struct Constant {
    enum class Kind : std::uint8_t { None, Integer, Real, Text, Nothing };
    Kind kind = Kind::None;
    std::int64_t integer = 0;
    double real = 0;
    const char16_t* text = nullptr;
};

struct Parameter {
    const char16_t* name;
    TypeReference type;
    USHORT flags;
    Constant defaultValue;
};

/// One member in its slot. Get, Let and Set of a property are members of their own with one name and one identifier.
struct Member {
    const char16_t* name;
    const char16_t* help;
    DISPID id;
    INVOKEKIND kind;
    WORD flags;
    /// Number of the slot in the table of functions; the seven slots of IDispatch come before the first.
    std::uint16_t slot;
    /// The next member with the same identifier, or -1.
    std::int16_t nextSameId;
    std::span<const Parameter> parameters;
    TypeReference result;
    Thunk thunk;
};

enum class TypeKind : std::uint8_t { Enum, Record, Alias, Interface, Events, Class };

struct TypeDescription {
    TypeKind kind;
    const char16_t* name;
    const char16_t* help;
    GUID id;
    const LibraryDescription& library;
    /// Position in the library.
    std::uint16_t index;
};

struct EnumValue {
    const char16_t* name;
    const char16_t* help;
    LONG value;
};

struct EnumDescription : TypeDescription {
    std::span<const EnumValue> values;
};

struct AliasDescription : TypeDescription {
    TypeReference target;
};

struct Field {
    const char16_t* name;
    const char16_t* help;
    TypeReference type;
    std::uint32_t offset;
};

/// A record and how values of it are made, copied and ended. Values have the layout of the C++ structure.
struct RecordDescription : TypeDescription {
    std::span<const Field> fields;
    std::uint32_t size;
    std::uint32_t alignment;
    void (*construct)(void* place);
    void (*destroy)(void* value);
    /// Copy assignment; may throw.
    void (*assign)(void* target, const void* source);
};

/// A default interface (dual, callable) or an event interface (dispatch only).
struct InterfaceDescription : TypeDescription {
    std::span<const Member> members;
    /// Identifier 0, 1, ... to the first member that has it, or -1; identifiers outside are searched.
    std::span<const std::int16_t> membersById;
    /// Open hash table over `hashOfName`, its size a power of two: first member of each name, or -1.
    std::span<const std::int16_t> membersByName;
};

struct ClassDescription : TypeDescription {
    const InterfaceDescription* defaultInterface;
    const InterfaceDescription* events;
    bool creatable;
    bool appObject;
};

/// What a library keeps at run time. It lives in the file that holds the tables.
struct LibraryState {
    /// Objects, class factories, type information and locks that keep the file loaded.
    std::atomic<LONG> locks{0};
    std::atomic<Library*> library{nullptr};
};

/// The class whose default interface is `Interface`; specialised in the generated headers.
template <class Interface> extern const ClassDescription& classOf;

struct LibraryDescription {
    const char16_t* name;
    const char16_t* help;
    GUID id;
    std::uint16_t major;
    std::uint16_t minor;
    LCID lcid;
    std::span<const TypeDescription* const> types;
    LibraryState& state;
};

/// Letters of the Latin alphabet in lower case, all else unchanged: names are compared in this form.
constexpr char16_t foldCase(char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + (u'a' - u'A')) : c;
}

/// The hash of a name without regard to case (FNV-1a over the folded characters).
constexpr std::uint32_t hashOfName(const char16_t* name) {
    std::uint32_t hash = 2166136261u;
    for (; *name; ++name) {
        hash = (hash ^ foldCase(*name)) * 16777619u;
    }
    return hash;
}

constexpr bool sameName(const char16_t* a, const char16_t* b) {
    for (; *a && foldCase(*a) == foldCase(*b); ++a, ++b) {
    }
    return *a == *b;
}

/// How values of record type `T` are made, copied and ended.
template <class T> void constructRecord(void* place) {
    new (place) T();
}
template <class T> void destroyRecord(void* value) {
    static_cast<T*>(value)->~T();
}
template <class T> void assignRecord(void* target, const void* source) {
    *static_cast<T*>(target) = *static_cast<const T*>(source);
}

} // namespace mox::typelib
