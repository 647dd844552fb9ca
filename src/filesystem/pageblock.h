// Memory that files are read into.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace mox::server {

/// A block of bytes that begins with a page: systems copy fastest to whole ones.
class PageBlock {
public:
    explicit PageBlock(std::size_t size) : memory_(size + pageSize) {
        void* start = memory_.data();
        std::size_t space = memory_.size();
        bytes_ = {static_cast<char*>(std::align(pageSize, size, start, space)), size};
    }
    PageBlock(const PageBlock&) = delete;
    PageBlock& operator=(const PageBlock&) = delete;

    std::span<char> first(std::size_t count) const { return bytes_.first(count); }

private:
    static constexpr std::size_t pageSize = 4096;

    std::vector<char> memory_;
    std::span<char> bytes_;
};

} // namespace mox::server
