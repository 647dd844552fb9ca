#include "host/processes/processsnapshot.h"

#include "host/processes/processfiles.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <sstream>

namespace mox::host {

namespace {

std::optional<std::uint32_t> processNumber(const std::string& folder) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(folder.data(), folder.data() + folder.size(), number);
    return error == std::errc() && end == folder.data() + folder.size() ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<ProcessFacts> factsOfProcess(std::uint32_t id) {
    // "17 (a name) S 1 ...": the name may hold any byte, so its end is the last parenthesis. What follows are the fields from 3
    // on.
    const std::string line = readProcessFile(id, "stat");
    const std::size_t nameBegin = line.find('(') + 1;
    const std::size_t nameEnd = line.rfind(')');
    if (nameBegin == 0 || nameEnd == std::string::npos) {
        return std::nullopt;
    }
    ProcessFacts facts;
    facts.id = id;
    std::istringstream fields(line.substr(nameEnd + 1));
    std::string skipped;
    fields >> skipped >> facts.parent;
    for (int field = 5; field < 22; ++field) {
        fields >> skipped;
    }
    fields >> facts.start;
    const auto executable = executableOfProcess(id);
    facts.name = executable ? executable->filename().string() : line.substr(nameBegin, nameEnd - nameBegin);
    return facts;
}

ProcessSnapshot::ProcessSnapshot() {
    std::error_code error;
    for (std::filesystem::directory_iterator entry("/proc", error), end; !error && entry != end; entry.increment(error)) {
        if (const auto id = processNumber(entry->path().filename().string())) {
            if (auto facts = factsOfProcess(*id)) { // it may have ended meanwhile
                processes_.push_back(std::move(*facts));
            }
        }
    }
    std::ranges::sort(processes_, {}, &ProcessFacts::id);
}

const ProcessFacts* ProcessSnapshot::first() {
    place_ = 0;
    return next();
}

const ProcessFacts* ProcessSnapshot::next() {
    return place_ < processes_.size() ? &processes_[place_++] : nullptr;
}

} // namespace mox::host
