// Reading and writing the bytes of image files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <exception>
#include <span>
#include <type_traits>
#include <vector>

namespace mox::host {

/// A file that cannot be read as an image.
class ImageError : public std::exception {
public:
    enum class Kind {
        /// It is damaged, or of no known format.
        invalid,
        /// It stands for more pixels than are handled, or there is no memory.
        tooLarge,
    };
    explicit ImageError(Kind kind = Kind::invalid) noexcept : kind_(kind) {}
    Kind kind() const noexcept { return kind_; }
    const char* what() const noexcept override { return "not a readable image"; }

private:
    Kind kind_;
};

/// Throws `ImageError` unless it holds.
inline void requireImage(bool condition) {
    if (!condition) {
        throw ImageError();
    }
}

/// Bytes of a file; numbers have their low byte first. What lies outside throws `ImageError`.
class ImageBytes {
public:
    ImageBytes(std::span<const std::byte> bytes) noexcept : bytes_(bytes) {}

    std::size_t size() const noexcept { return bytes_.size(); }
    std::span<const std::byte> all() const noexcept { return bytes_; }
    std::span<const std::byte> part(std::size_t place, std::size_t size) const {
        requireImage(place <= bytes_.size() && size <= bytes_.size() - place);
        return bytes_.subspan(place, size);
    }
    std::span<const std::byte> from(std::size_t place) const {
        requireImage(place <= bytes_.size());
        return bytes_.subspan(place);
    }
    template <class Number> Number number(std::size_t place) const {
        static_assert(std::is_integral_v<Number>);
        Number value;
        std::memcpy(&value, part(place, sizeof value).data(), sizeof value);
        return value;
    }
    std::uint8_t u8(std::size_t place) const { return number<std::uint8_t>(place); }
    std::uint16_t u16(std::size_t place) const { return number<std::uint16_t>(place); }
    std::int16_t i16(std::size_t place) const { return number<std::int16_t>(place); }
    std::uint32_t u32(std::size_t place) const { return number<std::uint32_t>(place); }
    std::int32_t i32(std::size_t place) const { return number<std::int32_t>(place); }

private:
    std::span<const std::byte> bytes_;
};

/// Puts the bytes of a file together.
class ImageWriter {
public:
    template <class Number> void number(Number value) {
        static_assert(std::is_integral_v<Number>);
        const std::size_t place = bytes_.size();
        bytes_.resize(place + sizeof value);
        std::memcpy(bytes_.data() + place, &value, sizeof value);
    }
    void u8(std::uint8_t value) { number(value); }
    void u16(std::size_t value) { number(static_cast<std::uint16_t>(value)); }
    void u32(std::size_t value) { number(static_cast<std::uint32_t>(value)); }
    void i32(std::int32_t value) { number(value); }
    void bytes(std::span<const std::byte> bytes) { bytes_.insert(bytes_.end(), bytes.begin(), bytes.end()); }
    /// So many zeros, for the caller to fill in.
    std::span<std::byte> room(std::size_t size) {
        bytes_.resize(bytes_.size() + size);
        return std::span(bytes_).last(size);
    }

    void reserve(std::size_t size) { bytes_.reserve(size); }
    std::size_t size() const noexcept { return bytes_.size(); }
    std::vector<std::byte> take() noexcept { return std::move(bytes_); }

private:
    std::vector<std::byte> bytes_;
};

} // namespace mox::host
