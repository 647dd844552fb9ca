// An Automation array of one dimension.
#pragma once

#include <mox/values/traits.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <span>

namespace mox {

/// Owns a SAFEARRAY of one dimension and has the layout of the pointer to it. Without an array inside it is empty, with
/// the bounds 0 to -1. Indexes count from the lower bound and are not checked.
template <class Element> class Array {
public:
    constexpr Array() = default;
    /// Elements `lower` to `upper`, all zero or empty. Throws `std::bad_alloc`.
    Array(Long lower, Long upper) : array_(create(lower, upper)) {}
    Array(std::initializer_list<Element> elements) : Array(std::span<const Element>(elements.begin(), elements.size())) {}
    explicit Array(std::span<const Element> elements) : Array(0, static_cast<Long>(elements.size()) - 1) {
        std::copy(elements.begin(), elements.end(), begin());
    }
    Array(const Array& other) {
        if (other.array_) {
            succeed(SafeArrayCopy(other.array_, &array_));
        }
    }
    Array(Array&& other) noexcept : array_(other.detach()) {}
    ~Array() { SafeArrayDestroy(array_); }
    Array& operator=(Array other) noexcept {
        std::swap(array_, other.array_);
        return *this;
    }

    /// Takes over an array of this element type and of one dimension.
    static Array attach(SAFEARRAY* array) {
        Array result;
        result.array_ = array;
        return result;
    }
    SAFEARRAY* detach() noexcept { return std::exchange(array_, nullptr); }
    SAFEARRAY* get() const noexcept { return array_; }
    SAFEARRAY** out() noexcept {
        SafeArrayDestroy(detach());
        return &array_;
    }

    Long lower() const noexcept { return array_ ? array_->rgsabound[0].lLbound : 0; }
    Long upper() const noexcept { return lower() + size() - 1; }
    Long size() const noexcept { return array_ ? static_cast<Long>(array_->rgsabound[0].cElements) : 0; }
    bool empty() const noexcept { return size() == 0; }

    Element& operator[](Long index) { return data()[index - lower()]; }
    const Element& operator[](Long index) const { return data()[index - lower()]; }
    Element* data() noexcept { return array_ ? static_cast<Element*>(array_->pvData) : nullptr; }
    const Element* data() const noexcept { return array_ ? static_cast<const Element*>(array_->pvData) : nullptr; }
    Element* begin() noexcept { return data(); }
    Element* end() noexcept { return data() + size(); }
    const Element* begin() const noexcept { return data(); }
    const Element* end() const noexcept { return data() + size(); }
    operator std::span<Element>() noexcept { return {begin(), static_cast<std::size_t>(size())}; }
    operator std::span<const Element>() const noexcept { return {begin(), static_cast<std::size_t>(size())}; }

    /// New bounds, all elements new. Fails with `DISP_E_ARRAYISLOCKED` if somebody has the array locked or its size is fixed.
    void redim(Long lower, Long upper) {
        if (array_ && (array_->fFeatures & (FADF_AUTO | FADF_STATIC | FADF_EMBEDDED | FADF_FIXEDSIZE))) {
            throw StatusError(DISP_E_ARRAYISLOCKED);
        }
        Array fresh(lower, upper);
        succeed(SafeArrayDestroy(array_));
        array_ = fresh.detach();
    }
    /// A new upper bound; the elements that have a place in both stay.
    void redimPreserve(Long upper) {
        if (!array_) {
            array_ = create(0, upper);
            return;
        }
        SAFEARRAYBOUND bound = boundOf(lower(), upper);
        succeed(SafeArrayRedim(array_, &bound));
    }

private:
    static SAFEARRAYBOUND boundOf(Long lower, Long upper) {
        const std::int64_t count = std::int64_t{upper} - lower + 1;
        if (count < 0) {
            throw StatusError(DISP_E_BADINDEX);
        }
        return {static_cast<ULONG>(count), lower};
    }

    static SAFEARRAY* create(Long lower, Long upper) {
        SAFEARRAYBOUND bound = boundOf(lower, upper);
        SAFEARRAY* array = nullptr;
        if constexpr (Record<Element>) {
            array = SafeArrayCreateEx(VT_RECORD, 1, &bound, recordInfo<Element>().get());
        } else {
            array = SafeArrayCreate(variantType<Element>, 1, &bound);
        }
        if (!array) {
            throw std::bad_alloc();
        }
        return array;
    }

    SAFEARRAY* array_ = nullptr;
};
static_assert(sizeof(Array<Long>) == sizeof(SAFEARRAY*));

} // namespace mox
