#include "automation/objects/apartment.h"

#include "automation/objects/objectcore.h"

#include <mox/automation.h>

#include <algorithm>
#include <utility>

namespace mox {

namespace {

std::mutex listGuard;
/// Never destroyed: files that end with the program still drop their states.
std::vector<Apartment*>& livingApartments() {
    static std::vector<Apartment*>* const list = std::make_unique<std::vector<Apartment*>>().release();
    return *list;
}

/// Owns the thread's apartment and ends it with the thread.
struct ThreadApartment {
    std::shared_ptr<Apartment> apartment;
    ~ThreadApartment() { Apartment::endCurrent(); }
};
thread_local ThreadApartment ownApartment;

thread_local unsigned initializations = 0;

} // namespace

bool isInitialized() noexcept {
    return initializations > 0;
}

thread_local constinit Apartment* Apartment::currentApartment = nullptr;

const std::shared_ptr<Apartment>& Apartment::current() {
    if (!currentApartment) {
        ownApartment.apartment = std::make_shared<Apartment>(Private{});
        currentApartment = ownApartment.apartment.get();
        std::lock_guard lock(listGuard);
        livingApartments().push_back(currentApartment);
    }
    return ownApartment.apartment;
}

void Apartment::endCurrent() {
    if (std::shared_ptr<Apartment> apartment = std::move(ownApartment.apartment)) {
        ownApartment.apartment = apartment; // module state may use the apartment while it ends
        apartment->end();
        currentApartment = nullptr;
        ownApartment.apartment = nullptr;
    }
}

void Apartment::end() {
    releaseHandedOver();
    // State may hold objects, and their end may make or use state again.
    while (!states_.empty()) {
        const StateEntry last = std::move(states_.back());
        states_.pop_back();
    }
    {
        std::lock_guard lock(listGuard);
        std::erase(livingApartments(), this);
    }
    std::lock_guard lock(queueGuard_);
    ended_ = true;
    for (ObjectCore* object : std::exchange(queue_, {})) {
        object->releaseHere();
    }
}

void* Apartment::findState(ModuleKey module, const void* identity, std::shared_ptr<void> (*make)()) {
    for (const StateEntry& entry : states_) {
        if (entry.identity == identity && entry.module == module) {
            return entry.state.get();
        }
    }
    std::shared_ptr<void> state = make();
    return states_.emplace_back(StateEntry{module, identity, std::move(state)}).state.get();
}

void Apartment::dropStates(ModuleKey module) {
    std::lock_guard lock(listGuard);
    for (Apartment* apartment : livingApartments()) {
        std::erase_if(apartment->states_, [&](const StateEntry& entry) { return entry.module == module; });
    }
}

void Apartment::releaseLater(ObjectCore& object) {
    std::lock_guard lock(queueGuard_);
    if (!ended_) {
        queue_.push_back(&object);
        queued_.store(true, std::memory_order_release);
        return;
    }
    // The owning thread is gone, so the caller's thread stands in for it; the lock lets one in at a time.
    object.releaseHere();
}

void Apartment::releaseHandedOver() {
    while (queued_.load(std::memory_order_acquire)) {
        std::vector<ObjectCore*> objects;
        {
            std::lock_guard lock(queueGuard_);
            objects.swap(queue_);
            queued_.store(false, std::memory_order_relaxed);
        }
        for (ObjectCore* object : objects) {
            object->releaseHere();
        }
    }
}

} // namespace mox

HRESULT CoInitializeEx(PVOID, DWORD dwCoInit) {
    if (!(dwCoInit & COINIT_APARTMENTTHREADED)) {
        return RPC_E_CHANGED_MODE;
    }
    mox::Apartment::current();
    return mox::initializations++ == 0 ? S_OK : S_FALSE;
}

HRESULT CoInitialize(PVOID pvReserved) {
    return CoInitializeEx(pvReserved, COINIT_APARTMENTTHREADED);
}

void CoUninitialize() {
    if (mox::initializations > 0 && --mox::initializations == 0) {
        mox::Apartment::endCurrent();
    }
}
