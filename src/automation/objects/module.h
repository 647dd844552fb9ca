// A server file: its library, its classes, its exports.
#pragma once

#include "automation/objects/export.h"
#include "automation/typelib/description.h"

#include <mox/values.h>

#include <memory>
#include <span>
#include <string_view>

namespace mox {

/// One row of a class table. A class that has no code yet has no `create`.
struct ClassEntry {
    const typelib::ClassDescription& description;
    Ref<IDispatch> (*create)();
};

/// Asked of a server for this identifier, `DllGetClassObject` gives the `ITypeLib` of the file, so that a type library can be
/// read from a file of which nothing else is known.
inline constexpr CLSID CLSID_ServerTypeLibrary{0xB9D3B6A2, 0x6A0F, 0x4C53, {0x8B, 0x0E, 0x0C, 0x7F, 0x52, 0x1B, 0x93, 0xD4}};

/// The static description of a server file and the logic behind its four exports. One object of static storage in each file; it
/// makes the file's library known while the file is loaded.
class MOX_API ServerModule {
public:
    ServerModule(const typelib::LibraryDescription& library, std::span<const ClassEntry> classes);
    ~ServerModule();
    ServerModule(const ServerModule&) = delete;
    ServerModule& operator=(const ServerModule&) = delete;

    /// The class factory of a creatable class, or the type library. `CLASS_E_CLASSNOTAVAILABLE` for classes that are unknown, not
    /// creatable or without code.
    HRESULT getClassObject(REFCLSID id, REFIID iid, void** result) const noexcept;
    /// `S_OK` if no object, no class factory, no type information and no lock of the file is left.
    HRESULT canUnloadNow() const noexcept;
    /// Enters all creatable classes and the type library into the registry. `SELFREG_E_CLASS` or `SELFREG_E_TYPELIB` if that
    /// fails; then nothing of it is left.
    HRESULT registerServer() const noexcept;
    /// Removes what `registerServer` enters; `S_OK` also if there is nothing of it.
    HRESULT unregisterServer() const noexcept;
    /// A new object of any class of the table. Error 445 for a class that has no code yet.
    Ref<IDispatch> create(const typelib::ClassDescription& type) const;

    /// True if the table has a class with this identifier, with or without code.
    bool has(REFCLSID id) const noexcept;
    const typelib::LibraryDescription& library() const noexcept { return library_; }
    std::span<const ClassEntry> classes() const noexcept { return classes_; }

    /// The class with the ProgID "Library.Class", if a loaded file has it; compared without regard to case.
    static const typelib::ClassDescription* findProgId(std::u16string_view progId);
    /// The class with this identifier, if a loaded file has it.
    static const typelib::ClassDescription* findClass(REFCLSID id);

private:
    const ClassEntry* find(const typelib::ClassDescription& type) const noexcept;

    const typelib::LibraryDescription& library_;
    std::span<const ClassEntry> classes_;
};

/// The run-time classes of the platform itself, which every process has without loading a file.
MOX_API const ServerModule& platformModule();

} // namespace mox
