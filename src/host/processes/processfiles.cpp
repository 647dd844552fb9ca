#include "host/processes/processfiles.h"

#include <fstream>
#include <sstream>

namespace mox::host {

namespace {

std::filesystem::path processFile(std::uint32_t id, std::string_view name) {
    return std::filesystem::path("/proc") / std::to_string(id) / name;
}

} // namespace

std::string readProcessFile(std::uint32_t id, std::string_view name) {
    std::ifstream file(processFile(id, name), std::ios::binary);
    // Iterators on the file would throw for a process that ends between opening and reading.
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

std::optional<std::filesystem::path> executableOfProcess(std::uint32_t id) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::read_symlink(processFile(id, "exe"), error);
    return error ? std::nullopt : std::optional<std::filesystem::path>(withoutDeletedMark(path.string()));
}

std::string withoutDeletedMark(std::string path) {
    constexpr std::string_view mark = " (deleted)";
    if (path.ends_with(mark)) {
        path.resize(path.size() - mark.size());
    }
    return path;
}

} // namespace mox::host
