#include "host/shell/contenttype.h"

#include <fstream>
#include <vector>

namespace mox::host {

namespace {

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

GText guess(const std::string& name, const std::vector<unsigned char>& data, bool& isUncertain) {
    // GIO settles its folders when something first needs them, and then loses what it has read for guesses before that.
    static const char* const* const folders = g_content_type_get_mime_dirs();
    static_cast<void>(folders);
    gboolean uncertain = FALSE;
    GText type(g_content_type_guess(name.c_str(), data.empty() ? nullptr : data.data(), data.size(), &uncertain));
    isUncertain = uncertain != FALSE;
    return type;
}

} // namespace

GText contentTypeOfName(const std::string& name) {
    bool isUncertain = false;
    return guess(name, {}, isUncertain);
}

GText contentTypeOf(const std::filesystem::path& file) {
    if (std::error_code error; std::filesystem::is_directory(file, error)) {
        return GText(g_strdup("inode/directory"));
    }
    bool isUncertain = false;
    GText type = guess(file.filename(), {}, isUncertain);
    if (isUncertain) {
        if (const std::vector<unsigned char> data = startOf(file); !data.empty()) {
            type = guess(file.filename(), data, isUncertain);
        }
    }
    return type;
}

} // namespace mox::host
