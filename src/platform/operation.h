// Operations of the system: what the library asks of an operating system, one value each.
#pragma once

#include "automation/objects/export.h"

#include <atomic>
#include <concepts>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mox::platform {

class OperationBase;

/// One system library: the operations that the library uses of it, by their standard names.
class MOX_API SystemLibrary {
public:
    explicit SystemLibrary(std::string_view name);
    SystemLibrary(const SystemLibrary&) = delete;
    SystemLibrary& operator=(const SystemLibrary&) = delete;

    std::string_view name() const noexcept { return name_; }
    const std::vector<OperationBase*>& operations() const noexcept { return operations_; }
    /// True if calls into this library are printed: its name stands in the environment variable MOX_TRACE, a list separated by
    /// commas that is read once in a process.
    bool traced() const noexcept { return traced_; }

private:
    friend class OperationBase;

    const std::string_view name_;
    const bool traced_;
    std::vector<OperationBase*> operations_;
};

class FaultPlan;

/// The part of an operation that does not depend on its signature: name, count of calls, failing on demand.
class MOX_API OperationBase {
public:
    OperationBase(SystemLibrary& library, std::string_view name);
    OperationBase(const OperationBase&) = delete;
    OperationBase& operator=(const OperationBase&) = delete;

    /// `kernel32.FindFirstFileA`
    std::string fullName() const;
    std::string_view name() const noexcept { return name_; }

    /// True once the host has set what the operation does.
    bool isServed() const noexcept { return isServed_; }

    /// Calls since the start or the last `reset`, those that were made to fail included.
    std::uint64_t calls() const noexcept { return calls_.load(std::memory_order_relaxed); }
    void reset() noexcept { calls_.store(0, std::memory_order_relaxed); }
    /// Makes the next `times` calls fail, or all from now on.
    void fail(std::uint64_t times = forever) noexcept { failures_.store(times, std::memory_order_relaxed); }
    /// Ends what `fail` began.
    void restore() noexcept { fail(0); }

    static constexpr std::uint64_t forever = ~std::uint64_t{0};

protected:
    /// Counts a call. False if it has to fail.
    bool enter() noexcept {
        calls_.fetch_add(1, std::memory_order_relaxed);
        return (failures_.load(std::memory_order_relaxed) == 0 && !faultPlan.load(std::memory_order_acquire)) ||
               enterUnderFaults();
    }
    void markServed() noexcept { isServed_ = true; }
    bool traced() const noexcept { return library_.traced(); }
    void trace(const std::string& arguments, const std::string& answer) const;

private:
    friend class FaultPlan;

    bool enterUnderFaults() noexcept;

    static std::atomic<FaultPlan*> faultPlan;

    SystemLibrary& library_;
    const std::string_view name_;
    bool isServed_ = false;
    std::atomic<std::uint64_t> calls_ = 0;
    std::atomic<std::uint64_t> failures_ = 0;
};

/// While it lives, lets exactly one call of any operation fail, or that one and all after it. The fault sweep moves it on from
/// call to call. Calls count from all operations and threads of the process, from the start of the plan. One plan lives at a
/// time, a second one throws `std::logic_error`.
class MOX_API FaultPlan {
public:
    /// `first`: the number of the call that fails, counted from 0. `onwards`: all later ones fail too.
    FaultPlan(std::uint64_t first, bool onwards);
    ~FaultPlan();
    FaultPlan(const FaultPlan&) = delete;
    FaultPlan& operator=(const FaultPlan&) = delete;

    /// True once a call was made to fail.
    bool hit() const noexcept { return operation() != nullptr; }
    /// The operation that failed first, null if none did.
    const OperationBase* operation() const noexcept { return operation_.load(std::memory_order_relaxed); }

private:
    friend class OperationBase;

    /// Counts one call. True if it has to fail.
    bool countCall(const OperationBase& operation) noexcept;

    std::uint64_t left_;
    const bool onwards_;
    std::atomic<const OperationBase*> operation_ = nullptr;
};

// Values in the trace.
/// In quotes; quotes, backslashes and bytes that are no printable ASCII are escaped.
MOX_API std::string traceText(std::string_view text);
MOX_API std::string traceText(std::u16string_view text);
inline std::string traceText(const std::string& text) {
    return traceText(std::string_view(text));
}
template <class Value> std::string traceText(const Value& value) {
    if constexpr (std::is_enum_v<Value>) {
        return std::to_string(static_cast<long long>(value));
    } else if constexpr (std::integral<Value> || std::floating_point<Value>) {
        return std::to_string(value);
    } else if constexpr (requires { value.size(); }) {
        return "[" + std::to_string(value.size()) + "]";
    } else {
        return "{}";
    }
}

template <class Signature> class Operation;

/// Marks an operation that gives something back to the system: made to fail, it still does its work, as such operations do in
/// reality. So what leaks under a fault is leaked by the caller.
inline constexpr bool givesBack = true;

/// An operation of the system: a body that the host sets, and the answer of a failure. Text passes as bytes in the system's code
/// page, as the A forms of the operations have it.
template <class Result, class... Arguments> class Operation<Result(Arguments...)> : public OperationBase {
public:
    using Body = std::function<Result(Arguments...)>;

    Operation(SystemLibrary& library, std::string_view name, Result failure, bool doesGiveBack = false)
        : OperationBase(library, name), failure_(std::move(failure)), givesBack_(doesGiveBack) {}

    /// Sets the body for good. The host does it once for each operation.
    Operation& operator=(Body body) {
        body_ = std::move(body);
        markServed();
        return *this;
    }

    Result operator()(Arguments... arguments) {
        const bool permitted = enter();
        if (permitted && body_ && !traced()) [[likely]] {
            return body_(std::forward<Arguments>(arguments)...);
        }
        Result answer = failure_;
        if (body_ && (permitted || givesBack_)) {
            Result done = body_(std::forward<Arguments>(arguments)...);
            answer = permitted ? std::move(done) : failure_;
        }
        if (traced()) {
            std::string list;
            static_cast<void>(((list += (list.empty() ? "" : ", ") + traceText(arguments)), ...));
            trace(list, traceText(answer));
        }
        return answer;
    }

    /// Another body for as long as the returned value lives.
    [[nodiscard]] auto replace(Body body) {
        struct Replacement {
            Operation& operation;
            Body original;
            Replacement(Operation& changed, Body replacement) : operation(changed), original(std::move(changed.body_)) {
                operation.body_ = std::move(replacement);
            }
            Replacement(const Replacement&) = delete;
            Replacement& operator=(const Replacement&) = delete;
            ~Replacement() { operation.body_ = std::move(original); }
        };
        return Replacement(*this, std::move(body));
    }

private:
    Body body_;
    const Result failure_;
    const bool givesBack_;
};

} // namespace mox::platform
