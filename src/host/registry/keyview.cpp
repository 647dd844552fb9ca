#include "host/registry/keyview.h"

#include "host/files/names.h"

#include <algorithm>
#include <iterator>

namespace mox::host {

namespace {

constexpr std::string_view classes = "Software\\Classes";
constexpr std::string_view presentProfile = "System\\CurrentControlSet\\Hardware Profiles\\Current";

/// Two lists in order as one; of names that differ in case only, the one of the first list stays.
std::vector<std::string> merged(std::vector<std::string> first, const std::vector<std::string>& second) {
    if (second.empty()) {
        return first;
    }
    std::vector<std::string> all;
    std::ranges::set_union(first, second, std::back_inserter(all), {}, foldCase, foldCase);
    return all;
}

} // namespace

std::string continuedPath(std::string_view path, std::string_view rest) {
    std::string whole(path);
    if (!path.empty() && !rest.empty()) {
        whole += '\\';
    }
    return whole.append(rest);
}

KeyView::Branch KeyView::branchOf(platform::HKEY root) const {
    switch (root) {
    case platform::HKEY_LOCAL_MACHINE:
        return {KeyTree::localMachine, ""};
    case platform::HKEY_USERS:
        return {KeyTree::users, ""};
    case platform::HKEY_CURRENT_USER:
        return {KeyTree::users, user_};
    case platform::HKEY_CURRENT_CONFIG:
        return {KeyTree::localMachine, std::string(presentProfile)};
    case platform::HKEY_CLASSES_ROOT:
        return {KeyTree::localMachine, std::string(classes)};
    default:
        return {0, ""};
    }
}

KeyView::Branch KeyView::userClasses() const {
    return {KeyTree::users, continuedPath(user_, classes)};
}

std::int64_t KeyView::find(const Branch& branch, std::string_view path) {
    return tree_.find(tree_.find(branch.key, branch.path), path);
}

KeyView::Stored KeyView::find(const RegistryKey& key, std::string_view path) {
    if (key.root == 0) {
        return {tree_.find(key.number, path), 0};
    }
    if (key.root != platform::HKEY_CLASSES_ROOT) {
        return {find(branchOf(key.root), path), 0};
    }
    const std::string whole = continuedPath(key.path, path);
    return {find(userClasses(), whole), find(branchOf(key.root), whole)};
}

KeyView::Stored KeyView::make(const RegistryKey& key, std::string_view path) {
    if (const Stored found = find(key, path)) {
        return found;
    }
    if (key.root == 0) {
        return {tree_.make(key.number, path), 0};
    }
    const Branch branch = branchOf(key.root);
    return {0, tree_.make(branch.key, continuedPath(branch.path, continuedPath(key.path, path)))};
}

bool KeyView::isDeleted(const RegistryKey& key) {
    return key.root == 0 ? !tree_.exists(key.number) : !key.path.empty() && !find(key, "");
}

bool KeyView::isForReading(const RegistryKey& key) noexcept {
    return key.root == platform::HKEY_PERFORMANCE_DATA || key.root == platform::HKEY_DYN_DATA;
}

bool KeyView::isPredefined(std::int64_t stored) {
    if (find(userClasses(), "") == stored) {
        return true;
    }
    return std::ranges::any_of(std::initializer_list<platform::HKEY>{platform::HKEY_LOCAL_MACHINE, platform::HKEY_USERS,
                                                                     platform::HKEY_CURRENT_USER, platform::HKEY_CURRENT_CONFIG,
                                                                     platform::HKEY_CLASSES_ROOT},
                               [&](platform::HKEY root) { return find(branchOf(root), "") == stored; });
}

const RegistryValue* KeyView::value(const Stored& stored, std::string_view name) {
    const RegistryValue* const value = stored.first != 0 ? tree_.value(stored.first, name) : nullptr;
    return value || stored.second == 0 ? value : tree_.value(stored.second, name);
}

std::vector<std::string> KeyView::keys(const Stored& stored) {
    return merged(stored.first != 0 ? tree_.keys(stored.first) : std::vector<std::string>(),
                  stored.second != 0 ? tree_.keys(stored.second) : std::vector<std::string>());
}

std::vector<std::string> KeyView::valueNames(const Stored& stored) {
    return merged(stored.first != 0 ? tree_.valueNames(stored.first) : std::vector<std::string>(),
                  stored.second != 0 ? tree_.valueNames(stored.second) : std::vector<std::string>());
}

} // namespace mox::host
