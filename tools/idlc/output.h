// Generated files.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace idlc {

/// Collects the text of one generated file.
class Output {
public:
    Output& operator<<(std::string_view text) {
        text_ += text;
        return *this;
    }
    Output& operator<<(long long number) { return *this << std::to_string(number); }
    Output& operator<<(int number) { return *this << std::to_string(number); }
    Output& operator<<(std::size_t number) { return *this << std::to_string(number); }
    const std::string& text() const { return text_; }

    /// Writes the file unless it already has this text, so that what depends on it is not built again for nothing.
    void save(const std::filesystem::path& path) const;

private:
    std::string text_;
};

} // namespace idlc
