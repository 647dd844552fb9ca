// A counted reference to an object.
#pragma once

#include <mox/abi/interfaces.h>

#include <concepts>
#include <utility>

namespace mox {

/// Holds one reference to an object, or none (Nothing). Has the layout of the interface pointer itself.
template <class Interface> class Ref {
public:
    constexpr Ref() = default;
    constexpr Ref(std::nullptr_t) {}
    /// Shares the object: adds a reference.
    Ref(Interface* object) : object_(object) {
        if (object_) {
            object_->AddRef();
        }
    }
    Ref(const Ref& other) : Ref(other.object_) {}
    Ref(Ref&& other) noexcept : object_(other.detach()) {}
    template <std::derived_from<Interface> Derived> Ref(Ref<Derived> other) noexcept : object_(other.detach()) {}
    ~Ref() {
        if (object_) {
            object_->Release();
        }
    }
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    /// Takes over a reference that the caller holds.
    static Ref attach(Interface* object) {
        Ref result;
        result.object_ = object;
        return result;
    }
    Interface* detach() noexcept { return std::exchange(object_, nullptr); }
    Interface* get() const noexcept { return object_; }
    /// A place for a called function to put a reference into; what was held is released.
    Interface** out() noexcept {
        *this = nullptr;
        return &object_;
    }

    Interface* operator->() const noexcept { return object_; }
    Interface& operator*() const noexcept { return *object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }
    friend bool operator==(const Ref& a, const Ref& b) noexcept { return a.object_ == b.object_; }

    /// The object under another of its interfaces, or nothing if it does not have it.
    template <class Other> Ref<Other> as() const {
        void* other = nullptr;
        if (object_) {
            object_->QueryInterface(interfaceId<Other>, &other);
        }
        return Ref<Other>::attach(static_cast<Other*>(other));
    }

private:
    Interface* object_ = nullptr;
};

} // namespace mox
