#include "platform/operation.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <stdexcept>

namespace mox::platform {

namespace {

/// Guards the state that only calls under faults touch: the plan while it counts, and the countdown of `fail`.
std::mutex faultGuard;

bool isListed(std::string_view list, std::string_view name) {
    while (!list.empty()) {
        const std::size_t comma = std::min(list.find(','), list.size());
        if (list.substr(0, comma) == name) {
            return true;
        }
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return false;
}

bool isTraced(std::string_view library) {
    static const std::string list = [] {
        const char* value = std::getenv("MOX_TRACE");
        return std::string(value ? value : "");
    }();
    return isListed(list, library);
}

void appendEscaped(std::string& result, char32_t unit, const char* form) {
    switch (unit) {
    case U'"':
    case U'\\':
        result += {'\\', static_cast<char>(unit)};
        break;
    case U'\n':
        result += "\\n";
        break;
    case U'\r':
        result += "\\r";
        break;
    case U'\t':
        result += "\\t";
        break;
    default:
        if (unit >= 0x20 && unit < 0x7F) {
            result += static_cast<char>(unit);
        } else {
            std::array<char, 8> code{};
            std::snprintf(code.data(), code.size(), form, static_cast<unsigned>(unit));
            result += code.data();
        }
    }
}

} // namespace

SystemLibrary::SystemLibrary(std::string_view name) : name_(name), traced_(isTraced(name)) {}

std::atomic<FaultPlan*> OperationBase::faultPlan = nullptr;

OperationBase::OperationBase(SystemLibrary& library, std::string_view name) : library_(library), name_(name) {
    library.operations_.push_back(this);
}

std::string OperationBase::fullName() const {
    return std::string(library_.name()) + "." + std::string(name_);
}

bool OperationBase::enterUnderFaults() noexcept {
    const std::lock_guard lock(faultGuard);
    FaultPlan* plan = faultPlan.load(std::memory_order_relaxed);
    const bool planned = plan && plan->countCall(*this);
    const std::uint64_t failures = failures_.load(std::memory_order_relaxed);
    if (failures != 0 && failures != forever) {
        failures_.store(failures - 1, std::memory_order_relaxed);
    }
    return !planned && failures == 0;
}

void OperationBase::trace(const std::string& arguments, const std::string& answer) const {
    const std::string line = fullName() + "(" + arguments + ") -> " + answer + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr); // in one piece, so that the lines of threads stay whole
}

FaultPlan::FaultPlan(std::uint64_t first, bool onwards) : left_(first), onwards_(onwards) {
    FaultPlan* none = nullptr;
    if (!OperationBase::faultPlan.compare_exchange_strong(none, this)) {
        throw std::logic_error("a fault plan is already at work");
    }
}

FaultPlan::~FaultPlan() {
    const std::lock_guard lock(faultGuard);
    OperationBase::faultPlan.store(nullptr);
}

bool FaultPlan::countCall(const OperationBase& operation) noexcept {
    if (left_ > 0) {
        --left_;
        return false;
    }
    if (hit() && !onwards_) {
        return false;
    }
    const OperationBase* none = nullptr;
    operation_.compare_exchange_strong(none, &operation, std::memory_order_relaxed);
    return true;
}

std::string traceText(std::string_view text) {
    std::string result = "\"";
    for (const char byte : text) {
        appendEscaped(result, static_cast<unsigned char>(byte), "\\x%02X");
    }
    return result + "\"";
}

std::string traceText(std::u16string_view text) {
    std::string result = "\"";
    for (const char16_t unit : text) {
        appendEscaped(result, unit, "\\u%04X");
    }
    return result + "\"";
}

} // namespace mox::platform
