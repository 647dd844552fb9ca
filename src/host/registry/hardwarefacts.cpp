#include "host/registry/hardwarefacts.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <string>

namespace mox::host {

namespace {

constexpr const char* systemPath = "HARDWARE\\DESCRIPTION\\System";

using Properties = std::map<std::string, std::string>;

std::string trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? "" : std::string(text.substr(first, text.find_last_not_of(blanks) - first + 1));
}

/// The first line of a file, empty if it cannot be read.
std::string lineOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return trimmed(line);
}

std::string identifierOf(const Properties& processor) {
    std::string text = sizeof(void*) == 4 ? "x86" : processor.at("vendor_id") == "AuthenticAMD" ? "AMD64" : "Intel64";
    for (const auto& [word, name] : {std::pair{" Family ", "cpu family"}, {" Model ", "model"}, {" Stepping ", "stepping"}}) {
        const auto found = processor.find(name);
        if (found == processor.end()) {
            return "";
        }
        text += word + found->second;
    }
    return text;
}

/// The nominal frequency where the system tells it: the present one goes up and down.
std::uint32_t megahertzOf(const Properties& processor, const std::filesystem::path& frequencies) {
    for (const char* name : {"base_frequency", "cpuinfo_max_freq"}) {
        const std::string kilohertz = lineOf(frequencies / ("cpu" + processor.at("processor")) / "cpufreq" / name);
        std::uint32_t number = 0;
        if (std::from_chars(kilohertz.data(), kilohertz.data() + kilohertz.size(), number).ec == std::errc() && number >= 1000) {
            return number / 1000;
        }
    }
    const auto present = processor.find("cpu MHz");
    double number = 0;
    if (present != processor.end()) {
        std::from_chars(present->second.data(), present->second.data() + present->second.size(), number);
    }
    return number > 0 && number < 1e6 ? static_cast<std::uint32_t>(std::lround(number)) : 0;
}

void addProcessor(FactList& facts, const Properties& processor, const HardwareSources& sources) {
    const auto number = processor.find("processor");
    if (number == processor.end()) {
        return;
    }
    const auto property = [&](const char* name) {
        const auto found = processor.find(name);
        return found != processor.end() ? found->second : "";
    };
    facts.in(RegistryFact::Root::localMachine, std::string(systemPath) + "\\CentralProcessor\\" + number->second);
    facts.text("ProcessorNameString", property("model name"));
    facts.text("VendorIdentifier", property("vendor_id"));
    facts.text("Identifier", processor.contains("vendor_id") ? identifierOf(processor) : "");
    if (const std::uint32_t megahertz = megahertzOf(processor, sources.frequencies); megahertz != 0) {
        facts.number("~MHz", megahertz);
    }
}

void addProcessors(FactList& facts, const HardwareSources& sources) {
    std::ifstream stream(sources.processors);
    Properties processor;
    for (std::string line; std::getline(stream, line);) {
        const std::size_t colon = line.find(':');
        if (colon != std::string::npos) {
            processor.emplace(trimmed(line.substr(0, colon)), trimmed(line.substr(colon + 1)));
        } else {
            addProcessor(facts, processor, sources);
            processor.clear();
        }
    }
    addProcessor(facts, processor, sources);
}

/// "04/01/2014" as "04/01/14", the form that this value has.
std::string shortDate(std::string date) {
    if (date.size() != 10 || date[2] != '/' || date[5] != '/') {
        return "";
    }
    return date.erase(6, 2);
}

void addFirmware(FactList& facts, const std::filesystem::path& folder) {
    facts.in(RegistryFact::Root::localMachine, systemPath);
    facts.texts("SystemBiosVersion", lineOf(folder / "bios_version"));
    facts.text("SystemBiosDate", shortDate(lineOf(folder / "bios_date")));
    facts.in(RegistryFact::Root::localMachine, std::string(systemPath) + "\\BIOS");
    constexpr struct {
        const char* name;
        const char* file;
    } properties[] = {
        {"BIOSVendor", "bios_vendor"},        {"BIOSVersion", "bios_version"},       {"BIOSReleaseDate", "bios_date"},
        {"SystemManufacturer", "sys_vendor"}, {"SystemProductName", "product_name"}, {"SystemVersion", "product_version"},
        {"SystemFamily", "product_family"},   {"SystemSKU", "product_sku"},          {"BaseBoardManufacturer", "board_vendor"},
        {"BaseBoardProduct", "board_name"},   {"BaseBoardVersion", "board_version"},
    };
    for (const auto& [name, file] : properties) {
        facts.text(name, lineOf(folder / file));
    }
}

} // namespace

void addHardwareFacts(FactList& facts, const HardwareSources& sources) {
    addProcessors(facts, sources);
    addFirmware(facts, sources.firmware);
}

} // namespace mox::host
