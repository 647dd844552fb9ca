// What every object of a class has: its apartment, its count of references, the file that its code lies in.
#pragma once

#include "automation/objects/apartment.h"
#include "automation/objects/export.h"
#include "automation/typelib/description.h"

#include <mox/automation.h>

namespace mox {

/// The counted part of an object. Counting on the apartment's own thread is plain arithmetic. References that other threads add
/// are counted apart, atomically, and those that they release are handed over to the apartment: so a reference may be held and
/// let go anywhere, while the object itself ends on its own thread.
class MOX_API ObjectCore {
public:
    virtual ~ObjectCore();
    ObjectCore(const ObjectCore&) = delete;
    ObjectCore& operator=(const ObjectCore&) = delete;

    ULONG addReference() noexcept {
        if (isOnOwnThread()) [[likely]] {
            return static_cast<ULONG>(++count_);
        }
        return static_cast<ULONG>(foreignCount_.fetch_add(1, std::memory_order_relaxed) + 1);
    }
    ULONG releaseReference() noexcept {
        if (isOnOwnThread()) [[likely]] {
            return releaseHere();
        }
        return releaseElsewhere();
    }
    /// Releases one reference on the object's own thread, or for an apartment that is no more.
    ULONG releaseHere() noexcept {
        const std::int32_t left = --count_ + foreignCount_.load(std::memory_order_acquire);
        if (left == 0) {
            end();
        }
        return static_cast<ULONG>(left);
    }

    /// The counted part of an object of one of our classes, borrowed; null for any other object.
    static ObjectCore* of(IUnknown& object) noexcept;

    bool isOnOwnThread() const noexcept { return Apartment::isCurrent(apartment_.get()); }

    /// Marks an object that has a number, so that the number ends with it.
    void setNumbered() noexcept { numbered_ = true; }

protected:
    explicit ObjectCore(typelib::LibraryState& library);

    /// The identity of the object.
    virtual IUnknown* identity() noexcept = 0;

private:
    /// Set while an object ends: references that come and go meanwhile must not end it again.
    static constexpr std::int32_t ending = 1 << 30;

    ULONG releaseElsewhere() noexcept;
    void end() noexcept;

    std::shared_ptr<Apartment> apartment_;
    typelib::LibraryState& library_;
    /// The creator's reference.
    std::int32_t count_ = 1;
    std::atomic<std::int32_t> foreignCount_{0};
    bool numbered_ = false;
};

/// Asked of an object, gives its `ObjectCore`. Never leaves the process.
inline constexpr IID objectCoreId{0x6C2B7A0E, 0x52C1, 0x4F5D, {0x9E, 0x0B, 0x4B, 0x6D, 0x1F, 0x6A, 0x5C, 0x71}};

/// Keeps an object alive for a while.
class Hold {
public:
    explicit Hold(ObjectCore& object) noexcept : object_(object) { object_.addReference(); }
    ~Hold() { object_.releaseHere(); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

private:
    ObjectCore& object_;
};

} // namespace mox
