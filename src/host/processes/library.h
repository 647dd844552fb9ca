// Library files that are loaded into this process.
#pragma once

#include "automation/objects/export.h"
#include "host/files/files.h"
#include "platform/kernel32.h"

#include <memory>
#include <string_view>

namespace mox::host {

/// Keeps a library file loaded while it lives.
class MOX_API Library {
public:
    /// Loads a library; null if there is none of that name, or if it cannot be loaded. A path is that of a file. A bare name is
    /// looked for beside this library, in the system's folder `C:\Windows\System32`, and where this system keeps its libraries.
    /// "NAME" and "NAME.dll" also find "NAME.so", and among this system's libraries "libNAME.so".
    static std::shared_ptr<Library> load(const Files& files, const CodePage& codePage, std::string_view file);
    /// Keeps the library loaded that a routine lies in; null for a routine of the program itself.
    static std::shared_ptr<Library> holding(platform::Procedure routine);

    /// Takes over what `dlopen` gave.
    explicit Library(void* opened) : opened_(opened) {}
    ~Library();
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    /// A routine that the library itself exports; null if it has none of that name.
    platform::Procedure find(std::string_view name) const;

private:
    void* const opened_;
};

} // namespace mox::host
