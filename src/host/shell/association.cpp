#include "host/shell/association.h"

#include <gio/gio.h>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <memory>
#include <string_view>
#include <vector>

namespace mox::host {

namespace {

struct FreeText {
    void operator()(char* text) const noexcept { g_free(text); }
};
using Text = std::unique_ptr<char, FreeText>;

struct FreeTexts {
    void operator()(char** texts) const noexcept { g_strfreev(texts); }
};

struct ReleaseObject {
    void operator()(GAppInfo* object) const noexcept { g_object_unref(object); }
};

/// As much of a file as the recognition of contents looks at.
std::vector<unsigned char> startOf(const std::filesystem::path& file) {
    constexpr std::streamsize length = 4096;
    std::vector<unsigned char> data(length);
    std::ifstream stream;
    if (std::error_code error; std::filesystem::is_regular_file(file, error)) {
        stream.open(file, std::ios::binary);
    }
    stream.read(reinterpret_cast<char*>(data.data()), length);
    data.resize(static_cast<std::size_t>(stream.gcount()));
    return data;
}

Text contentTypeOf(const std::filesystem::path& file) {
    if (std::error_code error; std::filesystem::is_directory(file, error)) {
        return Text(g_strdup("inode/directory"));
    }
    gboolean uncertain = FALSE;
    Text type(g_content_type_guess(file.filename().c_str(), nullptr, 0, &uncertain));
    if (uncertain) {
        if (const std::vector<unsigned char> data = startOf(file); !data.empty()) {
            type.reset(g_content_type_guess(file.filename().c_str(), data.data(), data.size(), &uncertain));
        }
    }
    return type;
}

bool isProgram(const std::filesystem::path& file, std::string_view contentType) {
    constexpr std::array<std::string_view, 3> types{"application/x-executable", "application/x-pie-executable",
                                                    "application/x-sharedlib"};
    return std::ranges::find(types, contentType) != types.end() && access(file.c_str(), X_OK) == 0;
}

/// The program of an application in the search path; null if it is not there.
Text programOf(GAppInfo& application) {
    // Not what GIO calls the executable: that ends at the first blank, quoted or not.
    const char* const command = g_app_info_get_commandline(&application);
    char** words = nullptr;
    if (!command || !g_shell_parse_argv(command, nullptr, &words, nullptr)) {
        return nullptr;
    }
    const std::unique_ptr<char*, FreeTexts> owner(words);
    return Text(g_find_program_in_path(words[0]));
}

} // namespace

std::optional<std::filesystem::path> programThatOpens(const std::filesystem::path& file) {
    const Text type = contentTypeOf(file);
    if (!type || g_content_type_is_unknown(type.get())) {
        return std::nullopt;
    }
    if (isProgram(file, type.get())) {
        return file;
    }
    const std::unique_ptr<GAppInfo, ReleaseObject> application(g_app_info_get_default_for_type(type.get(), FALSE));
    const Text program = application ? programOf(*application) : nullptr;
    return program ? std::optional<std::filesystem::path>(program.get()) : std::nullopt;
}

} // namespace mox::host
