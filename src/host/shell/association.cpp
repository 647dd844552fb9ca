#include "host/shell/association.h"

#include "host/shell/contenttype.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace mox::host {

namespace {

struct FreeTexts {
    void operator()(char** texts) const noexcept { g_strfreev(texts); }
};

bool isProgram(const std::filesystem::path& file, std::string_view contentType) {
    constexpr std::array<std::string_view, 3> types{"application/x-executable", "application/x-pie-executable",
                                                    "application/x-sharedlib"};
    return std::ranges::find(types, contentType) != types.end() && access(file.c_str(), X_OK) == 0;
}

/// The program of an application in the search path; null if it is not there.
GText programOf(GAppInfo& application) {
    // Not what GIO calls the executable: that ends at the first blank, quoted or not.
    const char* const command = g_app_info_get_commandline(&application);
    char** words = nullptr;
    if (!command || !g_shell_parse_argv(command, nullptr, &words, nullptr)) {
        return nullptr;
    }
    const std::unique_ptr<char*, FreeTexts> owner(words);
    return GText(g_find_program_in_path(words[0]));
}

} // namespace

std::optional<std::filesystem::path> programThatOpens(const std::filesystem::path& file) {
    const GText type = contentTypeOf(file);
    if (!type || g_content_type_is_unknown(type.get())) {
        return std::nullopt;
    }
    if (isProgram(file, type.get())) {
        return file;
    }
    const GObjectHolder<GAppInfo> application(g_app_info_get_default_for_type(type.get(), FALSE));
    const GText program = application ? programOf(*application) : nullptr;
    return program ? std::optional<std::filesystem::path>(program.get()) : std::nullopt;
}

} // namespace mox::host
