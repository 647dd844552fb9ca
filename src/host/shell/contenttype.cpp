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

} // namespace

GText contentTypeOf(const std::filesystem::path& file) {
    if (std::error_code error; std::filesystem::is_directory(file, error)) {
        return GText(g_strdup("inode/directory"));
    }
    gboolean uncertain = FALSE;
    GText type(g_content_type_guess(file.filename().c_str(), nullptr, 0, &uncertain));
    if (uncertain) {
        if (const std::vector<unsigned char> data = startOf(file); !data.empty()) {
            type.reset(g_content_type_guess(file.filename().c_str(), data.data(), data.size(), &uncertain));
        }
    }
    return type;
}

} // namespace mox::host
