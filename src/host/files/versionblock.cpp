#include "host/files/versionblock.h"

#include "platform/version.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace mox::host {

namespace {

constexpr std::size_t headerSize = 6; // length, length of the value, kind of the value
constexpr std::size_t unitSize = 2;
constexpr std::string_view rootKey = "VS_VERSION_INFO";

std::size_t wordAt(std::string_view bytes, std::size_t at) noexcept {
    return static_cast<unsigned char>(bytes[at]) | static_cast<std::size_t>(static_cast<unsigned char>(bytes[at + 1])) << 8;
}

std::uint32_t longAt(std::string_view bytes, std::size_t at) noexcept {
    return static_cast<std::uint32_t>(wordAt(bytes, at) | wordAt(bytes, at + unitSize) << 16);
}

/// Parts begin at multiples of four bytes from the begin of the block.
std::size_t aligned(std::size_t position) noexcept {
    return (position + 3) & ~std::size_t{3};
}

/// One value of the tree and the values below it, by their places in the block.
struct Node {
    std::size_t end = 0;
    std::size_t keyBegin = 0;
    std::size_t keyEnd = 0;
    std::size_t valueBegin = 0;
    std::size_t valueEnd = 0;
    std::size_t childrenBegin = 0;
    bool isText = false;
};

/// The node at a place, which has to end in front of `limit`; nothing for a damaged one.
std::optional<Node> nodeAt(std::string_view block, std::size_t begin, std::size_t limit) {
    if (begin > limit || limit - begin < headerSize) {
        return std::nullopt;
    }
    Node node;
    node.end = begin + wordAt(block, begin);
    if (node.end < begin + headerSize || node.end > limit) {
        return std::nullopt;
    }
    node.isText = wordAt(block, begin + 4) == 1;
    node.keyBegin = begin + headerSize;
    node.keyEnd = node.keyBegin;
    while (node.keyEnd + unitSize <= node.end && wordAt(block, node.keyEnd) != 0) {
        node.keyEnd += unitSize;
    }
    const std::size_t length = wordAt(block, begin + 2) * (node.isText ? unitSize : 1);
    node.valueBegin = std::min(aligned(node.keyEnd + unitSize), node.end);
    node.valueEnd = std::min(node.valueBegin + length, node.end);
    node.childrenBegin = aligned(node.valueEnd);
    // Some compilers count a text in bytes: it ends at its NUL in any case.
    for (std::size_t at = node.valueBegin; node.isText && at + unitSize <= node.valueEnd; at += unitSize) {
        node.valueEnd = wordAt(block, at) == 0 ? at : node.valueEnd;
    }
    return node;
}

/// Calls `visit` with each node directly below another, until it gives true.
template <class Visit> void visitChildren(std::string_view block, const Node& parent, Visit visit) {
    for (std::size_t at = parent.childrenBegin; at < parent.end;) {
        const std::optional<Node> child = nodeAt(block, at, parent.end);
        if (!child || visit(*child)) {
            return;
        }
        at = aligned(child->end);
    }
}

char lower(std::size_t unit) noexcept {
    return static_cast<char>(unit >= 'A' && unit <= 'Z' ? unit + 0x20 : unit);
}

/// Keys are ASCII.
bool hasKey(std::string_view block, const Node& node, std::string_view key) {
    if (node.keyEnd - node.keyBegin != key.size() * unitSize) {
        return false;
    }
    for (std::size_t i = 0; i < key.size(); ++i) {
        const std::size_t unit = wordAt(block, node.keyBegin + i * unitSize);
        if (unit > 0x7F || lower(unit) != lower(static_cast<unsigned char>(key[i]))) {
            return false;
        }
    }
    return true;
}

std::optional<Node> rootOf(std::string_view block) {
    const std::optional<Node> root = nodeAt(block, 0, block.size());
    return root && hasKey(block, *root, rootKey) ? root : std::nullopt;
}

/// Writes the texts of the three levels below the root into the copy.
void copyTexts(std::string_view block, const Node& node, const CodePage& codePage, std::string& copy, int levels) {
    visitChildren(block, node, [&](const Node& child) {
        if (child.isText && child.valueEnd > child.valueBegin) {
            std::u16string text;
            for (std::size_t at = child.valueBegin; at + unitSize <= child.valueEnd; at += unitSize) {
                text += static_cast<char16_t>(wordAt(block, at));
            }
            // Never longer than in units of two bytes each.
            const std::string bytes = codePage.fromUtf16(text);
            copy.replace(child.valueBegin, bytes.size(), bytes);
            std::fill(copy.begin() + static_cast<std::ptrdiff_t>(child.valueBegin + bytes.size()),
                      copy.begin() + static_cast<std::ptrdiff_t>(child.valueEnd), '\0');
        }
        if (levels > 1) {
            copyTexts(block, child, codePage, copy, levels - 1);
        }
        return false;
    });
}

bool fixedPart(std::string_view block, const Node& root, std::string_view& value) {
    constexpr std::size_t fixedSize = 52;
    const std::size_t size = root.valueEnd - root.valueBegin;
    if (root.isText || size < fixedSize || longAt(block, root.valueBegin) != platform::VS_FFI_SIGNATURE) {
        return false;
    }
    value = block.substr(root.valueBegin, size);
    return true;
}

} // namespace

std::string versionBlock(std::string_view resource, const CodePage& codePage) {
    constexpr int levels = 3; // StringFileInfo, a language, a text
    const std::optional<Node> root = rootOf(resource);
    if (!root) {
        return {};
    }
    std::string block(resource.substr(0, root->end));
    block.resize(aligned(root->end));
    std::string copy = block;
    copyTexts(block, *root, codePage, copy, levels);
    return block + copy;
}

bool queryVersion(std::span<const char> bytes, std::string_view path, std::string_view& value) {
    const std::string_view block(bytes.data(), bytes.size());
    std::optional<Node> node = rootOf(block);
    if (!node) {
        return false;
    }
    const std::size_t copyBegin = aligned(node->end);
    bool isRoot = true;
    path = path.substr(0, path.find('\0'));
    while (node && !path.empty()) {
        const std::size_t end = std::min(path.find('\\'), path.size());
        if (const std::string_view key = path.substr(0, end); !key.empty()) {
            const Node parent = *node;
            node.reset();
            isRoot = false;
            visitChildren(block, parent, [&](const Node& child) {
                node = hasKey(block, child, key) ? std::optional(child) : std::nullopt;
                return node.has_value();
            });
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    if (!node || isRoot) {
        return node && fixedPart(block, *node, value);
    }
    const std::size_t begin = node->valueBegin + (node->isText ? copyBegin : 0);
    const std::size_t end = node->valueEnd + (node->isText ? copyBegin : 0);
    if (end > block.size()) {
        return false;
    }
    const std::string_view found = block.substr(begin, end - begin);
    value = node->isText ? found.substr(0, found.find('\0')) : found;
    return true;
}

} // namespace mox::host
