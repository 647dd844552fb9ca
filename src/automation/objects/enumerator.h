// Enumerators of connection points and of connections.
#pragma once

#include <mox/sharedobject.h>

#include <algorithm>
#include <vector>

namespace mox {

inline IConnectionPoint* copyOfItem(const Ref<IConnectionPoint>& item) {
    return Ref<IConnectionPoint>(item).detach();
}

/// A connection whose sink is held.
struct HeldConnection {
    Ref<IUnknown> sink;
    DWORD cookie;
};
inline CONNECTDATA copyOfItem(const HeldConnection& item) {
    return {Ref<IUnknown>(item.sink).detach(), item.cookie};
}

/// Enumerates a list that was taken when the enumerator was made. `Interface` gives out `Given`, made of each `Item` by
/// `copyOfItem`. The owner of the items is kept alive.
template <class Interface, class Given, class Item> class Enumerator final : public SharedObject<Interface> {
public:
    Enumerator(Ref<IUnknown> owner, std::vector<Item> items, std::size_t position = 0)
        : owner_(std::move(owner)), items_(std::move(items)), position_(position) {}

    HRESULT Next(ULONG count, Given* given, ULONG* fetched) override {
        if (!given || (!fetched && count != 1)) {
            return E_POINTER;
        }
        ULONG taken = 0;
        while (taken < count && position_ < items_.size()) {
            given[taken++] = copyOfItem(items_[position_++]);
        }
        if (fetched) {
            *fetched = taken;
        }
        return taken == count ? S_OK : S_FALSE;
    }
    HRESULT Skip(ULONG count) override {
        const std::size_t left = items_.size() - position_;
        position_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }
    HRESULT Reset() override {
        position_ = 0;
        return S_OK;
    }
    HRESULT Clone(Interface** result) override {
        if (!result) {
            return E_POINTER;
        }
        *result = makeShared<Interface, Enumerator>(owner_, items_, position_).detach();
        return S_OK;
    }

private:
    const Ref<IUnknown> owner_;
    const std::vector<Item> items_;
    std::size_t position_;
};

} // namespace mox
