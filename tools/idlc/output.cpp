#include "output.h"

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace idlc {

void Output::save(const std::filesystem::path& path) const {
    {
        std::ifstream present(path, std::ios::binary);
        std::ostringstream content;
        if (present && content << present.rdbuf() && content.str() == text_) {
            return;
        }
    }
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << text_;
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

} // namespace idlc
