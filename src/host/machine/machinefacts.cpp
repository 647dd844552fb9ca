#include "host/machine/machinefacts.h"

#include "host/machine/control.h"
#include "host/text/codepage.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <limits>
#include <string>

namespace mox::host {

namespace {

using nlohmann::json;

std::string textFact(const json& value, const std::string& fact) {
    if (!value.is_string()) {
        throw ControlError("fact " + fact + ": not a string");
    }
    return value.get<std::string>();
}

std::uint32_t numberFact(const json& value, const std::string& fact) {
    const bool fits = value.is_number_unsigned() && value.get<std::uint64_t>() <= std::numeric_limits<std::uint32_t>::max();
    if (!fits) {
        throw ControlError("fact " + fact + ": not a whole number of 32 bits");
    }
    return value.get<std::uint32_t>();
}

std::filesystem::path folderFact(const json& value, const std::string& fact) {
    const std::string folder = textFact(value, fact);
    if (folder.empty() || folder.find('\0') != std::string::npos) {
        throw ControlError("fact " + fact + ": not a folder");
    }
    return std::filesystem::absolute(folder);
}

bool booleanFact(const json& value, const std::string& fact) {
    if (!value.is_boolean()) {
        throw ControlError("fact " + fact + ": not true or false");
    }
    return value.get<bool>();
}

std::uint32_t codePageFact(const json& value) {
    const std::uint32_t number = numberFact(value, "codepage");
    if (!CodePage::isKnown(number)) {
        throw ControlError("fact codepage: not known: " + std::to_string(number));
    }
    return number;
}

WindowsVersion windowsFact(const json& value) {
    if (!value.is_array()) {
        throw ControlError("fact windows: not an array");
    }
    WindowsVersion version;
    const std::pair<const char*, std::uint32_t*> numbers[] = {{"major", &version.major}, {"minor", &version.minor},
                                                              {"build", &version.build}, {"platform", &version.platform},
                                                              {"service_text", nullptr}, {"product_type", &version.productType},
                                                              {"suite", &version.suite}};
    if (value.size() > std::size(numbers)) {
        throw ControlError("fact windows: more than " + std::to_string(std::size(numbers)) + " elements");
    }
    for (std::size_t i = 0; i < value.size(); ++i) {
        const auto& [name, number] = numbers[i];
        const std::string fact = std::string("windows, ") + name;
        if (number) {
            *number = numberFact(value[i], fact);
        } else {
            version.serviceText = textFact(value[i], fact);
        }
    }
    return version;
}

std::map<char, std::filesystem::path> drivesFact(const json& value) {
    if (!value.is_object()) {
        throw ControlError("fact drives: not an object");
    }
    std::map<char, std::filesystem::path> drives;
    for (const auto& [name, folder] : value.items()) {
        const char letter = name.size() == 1 ? static_cast<char>(name[0] & ~0x20) : '\0'; // upper case, if it is a letter
        if (letter < 'A' || letter > 'Z') {
            throw ControlError("fact drives: no drive letter: " + name);
        }
        drives[letter] = folderFact(folder, "drives, " + name);
    }
    return drives;
}

std::map<std::int32_t, std::int32_t> metricsFact(const json& value) {
    if (!value.is_object()) {
        throw ControlError("fact metrics: not an object");
    }
    std::map<std::int32_t, std::int32_t> metrics;
    for (const auto& [name, metric] : value.items()) {
        std::int32_t index = 0;
        const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), index);
        if (error != std::errc() || end != name.data() + name.size() || index < 0) {
            throw ControlError("fact metrics: no number of a metric: " + name);
        }
        using Limits = std::numeric_limits<std::int32_t>;
        const auto number = metric.is_number_integer() ? metric.get<std::int64_t>() : std::int64_t{Limits::max()} + 1;
        if (number < Limits::min() || number > Limits::max()) {
            throw ControlError("fact metrics, " + name + ": not a whole number of 32 bits");
        }
        metrics[index] = static_cast<std::int32_t>(number);
    }
    return metrics;
}

} // namespace

void applyFacts(MachineConfig& config, const json& facts) {
    if (!facts.is_object()) {
        throw ControlError("facts: not an object");
    }
    refuseUnknown(facts, "fact",
                  {"home", "memory", "codepage", "drives", "trash", "windows", "product_info", "metrics", "visual_style"});
    MachineConfig changed = config;
    if (const auto fact = facts.find("home"); fact != facts.end()) {
        changed.home = folderFact(*fact, "home");
    }
    if (const auto fact = facts.find("memory"); fact != facts.end() && booleanFact(*fact, "memory")) {
        if (facts.contains("home")) {
            throw ControlError("fact memory: a machine in memory has no home");
        }
        changed.home.clear();
    }
    if (const auto fact = facts.find("codepage"); fact != facts.end()) {
        changed.codePage = codePageFact(*fact);
    }
    if (const auto fact = facts.find("drives"); fact != facts.end()) {
        changed.drives = drivesFact(*fact);
    }
    if (const auto fact = facts.find("trash"); fact != facts.end()) {
        changed.trash = folderFact(*fact, "trash");
    }
    if (const auto fact = facts.find("windows"); fact != facts.end()) {
        changed.windows = windowsFact(*fact);
    }
    if (const auto fact = facts.find("product_info"); fact != facts.end()) {
        changed.productInfo = numberFact(*fact, "product_info");
    }
    if (const auto fact = facts.find("metrics"); fact != facts.end()) {
        changed.metrics = metricsFact(*fact);
    }
    if (const auto fact = facts.find("visual_style"); fact != facts.end()) {
        changed.visualStyle = booleanFact(*fact, "visual_style");
    }
    config = std::move(changed);
}

} // namespace mox::host
