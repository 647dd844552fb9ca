#include "automation/objects/objectcore.h"

#include "automation/objects/objectnumbers.h"

namespace mox {

ObjectCore::ObjectCore(typelib::LibraryState& library) : apartment_(Apartment::current()), library_(library) {
    library_.locks.fetch_add(1, std::memory_order_relaxed);
    apartment_->releaseHandedOver();
}

ObjectCore::~ObjectCore() {
    if (count_ < ending / 2) {
        library_.locks.fetch_sub(1, std::memory_order_relaxed); // a constructor failed: the object was never there
    }
}

ObjectCore* ObjectCore::of(IUnknown& object) noexcept {
    void* core = nullptr;
    if (FAILED(object.QueryInterface(objectCoreId, &core))) {
        return nullptr;
    }
    object.Release();
    return static_cast<ObjectCore*>(core);
}

ULONG ObjectCore::releaseElsewhere() noexcept {
    // The object may end before this returns, so the apartment is held and the count is only a guess, as for any released object.
    const std::shared_ptr<Apartment> apartment = apartment_;
    apartment->releaseLater(*this);
    return 1;
}

void ObjectCore::end() noexcept {
    if (numbered_) {
        ObjectNumbers::forget(identity());
    }
    typelib::LibraryState& library = library_;
    count_ = ending;
    std::unique_ptr<ObjectCore>(this).reset();
    // Only now: the file of the object's code may go as soon as nothing keeps it.
    library.locks.fetch_sub(1, std::memory_order_release);
}

} // namespace mox
