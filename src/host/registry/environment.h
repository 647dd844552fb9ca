// The variables of the environment as programs see them.
#pragma once

#include "host/files/files.h"
#include "host/machine/machineconfig.h"
#include "host/text/codepage.h"

#include <optional>
#include <string>
#include <string_view>

namespace mox::host {

/// A variable of the process, else one of those that every system has: its folders as drive paths, the names of user and
/// computer. A folder that the process has as a path of this system does not count, as programs could not use it. Names are found
/// without regard to case. Bytes of the code page; nothing if there is no such variable.
std::optional<std::string> environmentVariable(const Files& files, const CodePage& codePage, const WindowsVersion& version,
                                               std::string_view name);

/// Each `%NAME%` replaced by the value that `find` gives; one that it does not know stays as it is written.
template <class Find> std::string expandVariables(std::string_view text, Find find) {
    std::string result;
    while (true) {
        const std::size_t start = text.find('%');
        const std::size_t end = start == std::string_view::npos ? start : text.find('%', start + 1);
        if (end == std::string_view::npos) {
            return result.append(text);
        }
        const std::optional<std::string> value = find(text.substr(start + 1, end - start - 1));
        // The closing sign of an unknown name may open the next one.
        result.append(text.substr(0, value ? start : end)).append(value.value_or(""));
        text.remove_prefix(value ? end + 1 : end);
    }
}

} // namespace mox::host
