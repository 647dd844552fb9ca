// Short names: eight characters, a dot, three characters.
#pragma once

#include "automation/objects/export.h"
#include "host/text/codepage.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace mox::host {

/// True if a name of the disk can be written in a path: it is UTF-8, the code page holds it, and it has no reserved character.
bool canBeWritten(std::string_view name, const CodePage& codePage);

/// True if a name is its own short name: up to eight bytes and an extension of up to three in the code page, all of them allowed
/// in short names.
bool isShort(std::string_view name, const CodePage& codePage);

/// True if a text has the form of the short names that are made here.
bool looksMade(std::string_view text) noexcept;

/// The short names of the files in one folder.
///
/// A file whose name is not short itself gets a name that is made of its own alone: the first letter or digit, six characters of
/// a hash with a tilde in them, and the extension (`Readme first.html` is `RXXXXX~X.HTM`). So it stays the same, whatever else
/// comes into the folder, on every machine and for good. Only when two hashes of a folder meet, or one meets a real name, the
/// name that is later in the order of bytes takes the next free one.
class MOX_API ShortNames {
public:
    /// `names`: all names in the folder.
    ShortNames(std::vector<std::string> names, const CodePage& codePage);

    /// The short name of a file in the folder; empty if it is its own.
    const std::string& of(const std::string& name) const;
    /// The file with a short name that was made for it, compared without regard to case; empty if there is none.
    std::string find(std::string_view shortName) const;

private:
    std::unordered_map<std::string, std::string> made_;
};

} // namespace mox::host
