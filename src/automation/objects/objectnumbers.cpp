#include "automation/objects/objectnumbers.h"

#include "automation/objects/apartment.h"
#include "automation/objects/objectcore.h"

#include <unordered_map>

namespace mox {

namespace {

struct Entry {
    IUnknown* identity;
    /// Objects of our own classes take their number back when they end. Of others we hold a reference instead, and look from time
    /// to time whether it is the last one.
    Ref<IUnknown> guest;
};

struct Numbers {
    std::unordered_map<Long, Entry> entries;
    std::unordered_map<IUnknown*, Long> numbers;
    Long last = 0;

    void erase(IUnknown* identity) {
        if (const auto found = numbers.find(identity); found != numbers.end()) {
            auto node = entries.extract(found->second);
            numbers.erase(found);
        }
    }
};

Numbers& numbersOfApartment() {
    static const char module = 0;
    return Apartment::state<Numbers>(&module);
}

bool isAbandoned(const Entry& entry) {
    if (!entry.guest) {
        return false;
    }
    entry.guest->AddRef();
    return entry.guest->Release() == 1;
}

void dropAbandoned(Numbers& table) {
    std::vector<IUnknown*> abandoned;
    for (const auto& [number, entry] : table.entries) {
        if (isAbandoned(entry)) {
            abandoned.push_back(entry.identity);
        }
    }
    for (IUnknown* identity : abandoned) {
        table.erase(identity);
    }
}

} // namespace

Long ObjectNumbers::numberOf(IUnknown& object) {
    Ref<IUnknown> identity = Ref<IUnknown>(&object).as<IUnknown>();
    Numbers& table = numbersOfApartment();
    dropAbandoned(table);
    if (const auto found = table.numbers.find(identity.get()); found != table.numbers.end()) {
        return found->second;
    }
    // An odd step goes through all numbers before one comes back, so a stale number names nothing, and a guessed one hardly ever
    // does.
    do {
        table.last = static_cast<Long>(static_cast<ULONG>(table.last) + 0x9E3779B1u);
    } while (table.last == 0 || table.entries.contains(table.last));

    ObjectCore* own = ObjectCore::of(*identity);
    if (own) {
        own->setNumbered();
    }
    IUnknown* key = identity.get();
    table.entries.emplace(table.last, Entry{key, own ? nullptr : std::move(identity)});
    table.numbers.emplace(key, table.last);
    return table.last;
}

Ref<IDispatch> ObjectNumbers::objectOf(Long number) {
    Numbers& table = numbersOfApartment();
    dropAbandoned(table);
    const auto found = table.entries.find(number);
    return found == table.entries.end() ? nullptr : Ref<IUnknown>(found->second.identity).as<IDispatch>();
}

void ObjectNumbers::forget(IUnknown* identity) noexcept {
    numbersOfApartment().erase(identity);
}

} // namespace mox
