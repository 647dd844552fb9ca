#include "host/processes/commandline.h"

#include <algorithm>

namespace mox::host {

namespace {

constexpr std::string_view blanks = " \t";

std::string_view withoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

/// Reads one argument from the front of a text.
class ArgumentReader {
public:
    explicit ArgumentReader(std::string_view text) : rest_(text) {}

    std::string read() {
        std::string result;
        while (!rest_.empty() && (inQuotes_ || blanks.find(rest_.front()) == blanks.npos)) {
            readUnit(result);
        }
        return result;
    }
    std::string_view rest() const noexcept { return rest_; }

private:
    char take() {
        const char character = rest_.front();
        rest_.remove_prefix(1);
        return character;
    }

    void readUnit(std::string& result) {
        const std::size_t backslashes = std::min(rest_.find_first_not_of('\\'), rest_.size());
        rest_.remove_prefix(backslashes);
        if (!rest_.starts_with('"')) {
            result.append(backslashes, '\\');
            if (backslashes == 0) {
                result += take();
            }
            return;
        }
        result.append(backslashes / 2, '\\');
        take();
        if (backslashes % 2 == 1) {
            result += '"';
        } else if (inQuotes_ && rest_.starts_with('"')) {
            result += take();
        } else {
            inQuotes_ = !inQuotes_;
        }
    }

    std::string_view rest_;
    bool inQuotes_ = false;
};

} // namespace

std::vector<std::string> splitArguments(std::string_view text) {
    std::vector<std::string> result;
    for (text = withoutLeadingBlanks(text); !text.empty(); text = withoutLeadingBlanks(text)) {
        ArgumentReader reader(text);
        result.push_back(reader.read());
        text = reader.rest();
    }
    return result;
}

std::vector<CommandLine> readingsOf(std::string_view commandLine) {
    const std::string_view text = withoutLeadingBlanks(commandLine.substr(0, commandLine.find('\0')));
    std::vector<CommandLine> result;
    if (text.starts_with('"')) {
        const std::size_t end = std::min(text.find('"', 1), text.size());
        result.push_back({std::string(text.substr(1, end - 1)), text.substr(std::min(end + 1, text.size()))});
    } else if (!text.empty()) {
        std::size_t end = 0;
        do {
            end = std::min(text.find_first_of(blanks, text.find_first_not_of(blanks, end)), text.size());
            result.push_back({std::string(text.substr(0, end)), text.substr(end)});
        } while (text.find_first_not_of(blanks, end) != text.npos);
    }
    return result;
}

} // namespace mox::host
