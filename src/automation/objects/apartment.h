// Apartments: every thread that creates or calls objects is one.
#pragma once

#include "automation/objects/export.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace mox {

class ObjectCore;

/// The loaded file that a piece of module state belongs to. State goes when either its apartment or its file goes.
using ModuleKey = const void*;

/// One thread with its objects and its copy of all module state. Made by the thread's first use, ended by `CoUninitialize` or
/// with the thread. Objects may outlive their apartment; then nobody can call them any more, but their last reference still
/// ends them.
class MOX_API Apartment {
public:
    /// The calling thread's apartment.
    static const std::shared_ptr<Apartment>& current();
    /// True on the thread that `apartment` belongs to.
    static bool isCurrent(const Apartment* apartment) noexcept { return currentApartment == apartment; }
    /// Ends the calling thread's apartment, if it has one: module state goes.
    static void endCurrent();
    /// Drops the state that belongs to `module` in all apartments. The module's code must not run meanwhile.
    static void dropStates(ModuleKey module);

    /// The calling thread's one copy of module state `State`, default constructed on first use.
    template <class State> static State& state(ModuleKey module) {
        static const char identity = 0;
        return *static_cast<State*>(
            current()->findState(module, &identity, []() -> std::shared_ptr<void> { return std::make_shared<State>(); }));
    }

    /// Takes over a reference on `object` from another thread: it is released on this apartment's thread the next time that the
    /// thread works on its queue, at once if the thread is no more.
    void releaseLater(ObjectCore& object);
    /// Releases what other threads handed over. The message loop and the creation of objects call it.
    void releaseHandedOver();

private:
    struct Private {};

public:
    explicit Apartment(Private) {}
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;

private:
    struct StateEntry {
        ModuleKey module;
        const void* identity;
        std::shared_ptr<void> state;
    };

    void* findState(ModuleKey module, const void* identity, std::shared_ptr<void> (*make)());
    void end();

    static thread_local constinit Apartment* currentApartment __attribute__((tls_model("initial-exec")));

    std::vector<StateEntry> states_;
    // Recursive: the last reference on one orphaned object may hold the last one on another.
    std::recursive_mutex queueGuard_;
    std::vector<ObjectCore*> queue_;
    std::atomic<bool> queued_{false};
    bool ended_ = false;
};

/// True if the calling thread has called `CoInitialize` and not yet as often `CoUninitialize`.
bool isInitialized() noexcept;

} // namespace mox
