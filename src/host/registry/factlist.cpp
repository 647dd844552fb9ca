#include "host/registry/factlist.h"

#include "platform/advapi32.h"

#include <utility>

namespace mox::host {

void FactList::in(RegistryFact::Root root, std::string path) {
    root_ = root;
    path_ = std::move(path);
}

void FactList::add(std::string_view name, std::uint32_t type, std::string data) {
    facts_.push_back({root_, path_, std::string(name), type, std::move(data)});
}

void FactList::text(std::string_view name, std::string_view text) {
    if (!text.empty()) {
        add(name, platform::REG_SZ, codePage_.fromUtf8(text) + '\0');
    }
}

void FactList::texts(std::string_view name, std::string_view only) {
    if (!only.empty()) {
        add(name, platform::REG_MULTI_SZ, codePage_.fromUtf8(only) + std::string(2, '\0'));
    }
}

void FactList::emptyText(std::string_view name) {
    add(name, platform::REG_SZ, std::string(1, '\0'));
}

void FactList::path(std::string_view name, std::string_view path) {
    if (!path.empty()) {
        add(name, platform::REG_SZ, std::string(path) + '\0');
    }
}

void FactList::number(std::string_view name, std::uint32_t number) {
    std::string bytes;
    for (unsigned shift = 0; shift < 32; shift += 8) {
        bytes += static_cast<char>(number >> shift);
    }
    add(name, platform::REG_DWORD, std::move(bytes));
}

} // namespace mox::host
