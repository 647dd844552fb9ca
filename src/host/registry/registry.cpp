#include "host/registry/registry.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

namespace mox::host {

namespace {

using platform::HKEY;
using namespace platform; // the answers

constexpr std::size_t longestKeyName = 255;
constexpr std::size_t longestValueName = 16'383;

/// Units of UTF-16 in UTF-8.
std::size_t lengthOf(std::string_view text) {
    std::size_t units = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        units += (byte & 0xC0) == 0x80 ? 0 : byte >= 0xF0 ? 2 : 1;
    }
    return units;
}

bool hasLongName(std::string_view path) {
    for (std::size_t start = 0; start <= path.size();) {
        const std::size_t end = std::min(path.find('\\', start), path.size());
        if (lengthOf(path.substr(start, end - start)) > longestKeyName) {
            return true;
        }
        start = end + 1;
    }
    return false;
}

/// The rights that generic ones stand for.
std::uint32_t specific(std::uint32_t access) {
    constexpr std::uint32_t everything = 0x10000000 | 0x02000000;
    constexpr std::uint32_t reading = 0x80000000;
    constexpr std::uint32_t writing = 0x40000000;
    constexpr std::uint32_t keyWrite = 0x20006;
    return access | ((access & everything) != 0 ? KEY_ALL_ACCESS : 0) | ((access & reading) != 0 ? KEY_READ : 0) |
           ((access & writing) != 0 ? keyWrite : 0);
}

/// Without a domain: what tells the users of one machine from each other is their number.
std::string branchOfUser() {
    return "S-1-5-21-0-0-0-" + std::to_string(getuid());
}

bool isPlain(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

Registry::Registry(RegistryStore::Facts facts, std::filesystem::path file, Durability durability, const CodePage& codePage,
                   Handles& handles)
    : codePage_(codePage), handles_(handles), store_(std::move(file), durability, branchOfUser(), std::move(facts)) {
    auto number = static_cast<std::uint32_t>(HKEY_CLASSES_ROOT);
    for (Key& key : predefined_) {
        key = std::make_shared<RegistryKey>();
        key->root = static_cast<HKEY>(number++);
    }
}

Registry::~Registry() = default;

Registry::Key Registry::keyOf(HKEY handle) const {
    const std::uint32_t place = static_cast<std::uint32_t>(handle) - static_cast<std::uint32_t>(HKEY_CLASSES_ROOT);
    return place < predefined_.size() ? predefined_[place] : handles_.get<RegistryKey>(handle);
}

std::string Registry::stored(std::string_view name) const {
    name = name.substr(0, name.find('\0'));
    return isPlain(name) ? std::string(name) : codePage_.toUtf8(name);
}

template <class Task> std::int32_t Registry::perform(HKEY handle, std::uint32_t access, bool lasts, Task task) {
    const Key key = keyOf(handle);
    if (!key) {
        return ERROR_INVALID_HANDLE;
    }
    if ((key->access & access) != access) {
        return ERROR_ACCESS_DENIED;
    }
    const std::lock_guard lock(guard_);
    return store_.perform(lasts, [&](KeyTree& tree) {
        KeyView view(tree, store_.user());
        return view.isDeleted(*key) ? ERROR_KEY_DELETED : task(view, *key, tree);
    });
}

template <class Find>
std::int32_t Registry::findKey(HKEY handle, const std::string& path, std::uint32_t access, HKEY& opened, Find find) {
    KeyView::Stored found;
    const std::int32_t answer = perform(handle, 0, true, [&](KeyView& view, const RegistryKey& key, KeyTree&) -> std::int32_t {
        return key.isPredefined() && path.empty() ? ERROR_SUCCESS : find(view, key, found);
    });
    if (answer != ERROR_SUCCESS) {
        return answer;
    }
    if (!found) { // a predefined key has no other handle
        opened = handle;
        return ERROR_SUCCESS;
    }
    auto key = std::make_shared<RegistryKey>();
    key->access = access;
    if (const Key parent = keyOf(handle); parent && parent->root == HKEY_CLASSES_ROOT) {
        key->root = parent->root;
        key->path = continuedPath(parent->path, path);
    } else {
        key->number = found.front();
    }
    opened = handles_.open("key", std::move(key));
    return opened != 0 ? ERROR_SUCCESS : ERROR_NOT_ENOUGH_MEMORY;
}

std::int32_t Registry::openKey(HKEY handle, std::string_view name, std::uint32_t access, HKEY& opened) {
    const std::string path = stored(name);
    return findKey(handle, path, specific(access), opened, [&](KeyView& view, const RegistryKey& key, KeyView::Stored& found) {
        found = view.find(key, path);
        return found ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
    });
}

std::int32_t Registry::createKey(HKEY handle, std::string_view name, HKEY& opened) {
    const std::string path = stored(name);
    if (hasLongName(path)) {
        return ERROR_INVALID_PARAMETER;
    }
    // What may be made depends on the key, not on what this handle was opened for.
    return findKey(handle, path, KEY_ALL_ACCESS, opened, [&](KeyView& view, const RegistryKey& key, KeyView::Stored& made) {
        if (KeyView::isForReading(key)) {
            return ERROR_ACCESS_DENIED;
        }
        made = view.make(key, path);
        return made ? ERROR_SUCCESS : ERROR_KEY_DELETED;
    });
}

std::int32_t Registry::closeKey(HKEY handle) {
    const Key key = keyOf(handle);
    return key && (key->isPredefined() || handles_.close<RegistryKey>(handle)) ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
}

std::int32_t Registry::deleteKey(HKEY handle, std::string_view name, bool withKeys) {
    const std::string path = stored(name);
    return perform(handle, 0, true, [&](KeyView& view, const RegistryKey& key, KeyTree& tree) -> std::int32_t {
        const KeyView::Stored found = view.find(key, path);
        if (key.isPredefined() && path.find_first_not_of('\\') == std::string::npos) {
            return ERROR_ACCESS_DENIED;
        }
        if (!found) {
            return ERROR_FILE_NOT_FOUND;
        }
        if (view.isPredefined(found.front())) {
            return ERROR_ACCESS_DENIED;
        }
        switch (tree.remove(found.front(), withKeys)) {
        case KeyRemoval::done:
            return ERROR_SUCCESS;
        case KeyRemoval::hasKeys:
            return ERROR_ACCESS_DENIED;
        default: // another process was faster
            return path.empty() ? ERROR_KEY_DELETED : ERROR_FILE_NOT_FOUND;
        }
    });
}

std::int32_t Registry::enumKey(HKEY handle, std::uint32_t index, std::span<char> buffer, std::uint32_t& length) {
    return perform(handle, KEY_ENUMERATE_SUB_KEYS, false, [&](KeyView& view, RegistryKey& key, KeyTree& tree) -> std::int32_t {
        if (key.listed != tree.stamp() || !key.listed.isKnown()) {
            key.names = view.keys(view.find(key, ""));
            std::ranges::transform(key.names, key.names.begin(),
                                   [&](const std::string& name) { return codePage_.fromUtf8(name); });
            key.listed = tree.stamp();
        }
        if (index >= key.names.size()) {
            return ERROR_NO_MORE_ITEMS;
        }
        const std::string& name = key.names[index];
        if (name.size() >= buffer.size()) {
            return ERROR_MORE_DATA;
        }
        *std::ranges::copy(name, buffer.begin()).out = '\0';
        length = static_cast<std::uint32_t>(name.size());
        return ERROR_SUCCESS;
    });
}

std::int32_t Registry::queryValue(HKEY handle, std::string_view name, std::uint32_t& type, std::span<char> data,
                                  std::uint32_t& size) {
    const std::string wanted = stored(name);
    return perform(handle, KEY_QUERY_VALUE, false, [&](KeyView& view, const RegistryKey& key, KeyTree&) -> std::int32_t {
        const RegistryValue* const value = view.value(view.find(key, ""), wanted);
        if (!value) {
            return ERROR_FILE_NOT_FOUND;
        }
        type = value->type;
        size = static_cast<std::uint32_t>(value->data.size());
        if (data.empty()) {
            return ERROR_SUCCESS;
        }
        if (value->data.size() > data.size()) {
            return ERROR_MORE_DATA;
        }
        std::ranges::copy(value->data, data.begin());
        return ERROR_SUCCESS;
    });
}

std::int32_t Registry::setValue(HKEY handle, std::string_view name, std::uint32_t type, std::string_view data) {
    const std::string wanted = stored(name);
    if (lengthOf(wanted) > longestValueName) {
        return ERROR_INVALID_PARAMETER;
    }
    return perform(handle, KEY_SET_VALUE, true, [&](KeyView& view, const RegistryKey& key, KeyTree& tree) -> std::int32_t {
        if (KeyView::isForReading(key)) {
            return ERROR_ACCESS_DENIED;
        }
        return tree.setValue(view.make(key, "").front(), wanted, type, data) ? ERROR_SUCCESS : ERROR_KEY_DELETED;
    });
}

std::int32_t Registry::deleteValue(HKEY handle, std::string_view name) {
    const std::string wanted = stored(name);
    return perform(handle, KEY_SET_VALUE, true, [&](KeyView& view, const RegistryKey& key, KeyTree& tree) -> std::int32_t {
        const KeyView::Stored found = view.find(key, "");
        return tree.removeValue(found.first, wanted) || tree.removeValue(found.second, wanted) ? ERROR_SUCCESS
                                                                                               : ERROR_FILE_NOT_FOUND;
    });
}

std::int32_t Registry::value(HKEY root, std::string_view path, std::string_view name, std::optional<RegistryValue>& value) {
    return perform(root, 0, false, [&](KeyView& view, const RegistryKey& key, KeyTree&) -> std::int32_t {
        const RegistryValue* const found = view.value(view.find(key, stored(path)), stored(name));
        value = found ? std::optional(*found) : std::nullopt;
        return found ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
    });
}

std::vector<std::string> Registry::valueNames(HKEY root, std::string_view path) {
    std::vector<std::string> names;
    perform(root, 0, false, [&](KeyView& view, const RegistryKey& key, KeyTree&) -> std::int32_t {
        names = view.valueNames(view.find(key, stored(path)));
        std::ranges::transform(names, names.begin(), [&](const std::string& name) { return codePage_.fromUtf8(name); });
        return ERROR_SUCCESS;
    });
    return names;
}

std::string Registry::report() {
    std::error_code error;
    std::string text = store_.file().string();
    if (!std::filesystem::exists(store_.file(), error)) {
        return text + ", not made yet";
    }
    const std::lock_guard lock(guard_);
    std::string damage;
    const std::int32_t status = store_.perform(false, [&](KeyTree&) {
        damage = store_.damage();
        return ERROR_SUCCESS;
    });
    if (status != ERROR_SUCCESS) {
        return text + ": cannot be read, error " + std::to_string(status);
    }
    return text + (damage.empty() ? "" : "; " + damage);
}

} // namespace mox::host
