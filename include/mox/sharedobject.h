// The base of small helper objects that any thread may use: enumerators, type information, error objects.
#pragma once

#include <mox/values.h>

#include <atomic>
#include <memory>

namespace mox {

/// Counts references atomically and answers for `Interfaces`. The first reference is the creator's.
template <class First, class... Others> class SharedObject : public First, public Others... {
public:
    SharedObject() = default;
    virtual ~SharedObject() = default;
    SharedObject(const SharedObject&) = delete;
    SharedObject& operator=(const SharedObject&) = delete;

    HRESULT QueryInterface(REFIID iid, void** result) override {
        if (!result) {
            return E_POINTER;
        }
        *result = nullptr;
        if (iid == IID_IUnknown || iid == interfaceId<First>) {
            *result = static_cast<First*>(this);
        } else {
            static_cast<void>(((iid == interfaceId<Others> ? (*result = static_cast<Others*>(this)) : nullptr) || ...));
        }
        if (!*result) {
            *result = findOtherInterface(iid);
        }
        if (!*result) {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    ULONG AddRef() override { return count_.fetch_add(1, std::memory_order_relaxed) + 1; }
    ULONG Release() override {
        const ULONG left = count_.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (left == 0) {
            std::unique_ptr<SharedObject>(this).reset();
        }
        return left;
    }

protected:
    /// Base interfaces of `First` or `Others` that have identifiers of their own.
    virtual void* findOtherInterface(REFIID) noexcept { return nullptr; }

private:
    std::atomic<ULONG> count_{1};
};

/// A new helper object under its first interface.
template <class Interface, class Class, class... Arguments> Ref<Interface> makeShared(Arguments&&... arguments) {
    return Ref<Interface>::attach(std::make_unique<Class>(std::forward<Arguments>(arguments)...).release());
}

} // namespace mox
