// A counted Automation string.
#pragma once

#include <mox/abi/functions.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace mox {

/// UTF-16 to UTF-8 and back; lone surrogates and broken sequences become U+FFFD.
__attribute__((visibility("default"))) std::string utf8FromUtf16(std::u16string_view text);
__attribute__((visibility("default"))) std::u16string utf16FromUtf8(std::string_view text);

/// Owns a BSTR and has its layout, so that a `BSTR*` of the interface is a `String&`. An empty string may be a null
/// pointer inside. Running out of memory throws `std::bad_alloc`.
class String {
public:
    constexpr String() = default;
    String(const char16_t* text) : String(std::u16string_view(text)) {}
    String(std::u16string_view text) : text_(text.empty() ? nullptr : allocate(text.data(), text.size())) {}
    String(const std::u16string& text) : String(std::u16string_view(text)) {}
    String(const String& other) : String(other.view()) {}
    String(String&& other) noexcept : text_(other.detach()) {}
    ~String() { SysFreeString(text_); }
    String& operator=(String other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }

    /// Takes over a BSTR, which is freed with this object.
    static String attach(BSTR text) {
        String result;
        result.text_ = text;
        return result;
    }
    /// A string of `length` characters, which the caller fills in through `data()`; they start undefined.
    static String ofLength(std::size_t length) { return attach(length ? allocate(nullptr, length) : nullptr); }
    static String fromUtf8(std::string_view text) { return String(utf16FromUtf8(text)); }

    /// Gives the BSTR to the caller, who frees it.
    BSTR detach() noexcept { return std::exchange(text_, nullptr); }
    /// The BSTR, still owned by this object.
    BSTR get() const noexcept { return text_; }
    /// A place for a called function to put a BSTR into; what was held is freed.
    BSTR* out() noexcept {
        SysFreeString(detach());
        return &text_;
    }

    /// Cuts the string to its first `length` characters, in place.
    void truncate(std::size_t length) noexcept {
        if (length < size()) {
            reinterpret_cast<std::uint32_t*>(text_)[-1] = static_cast<std::uint32_t>(length * sizeof(char16_t));
            text_[length] = u'\0';
        }
    }

    std::size_t size() const noexcept { return SysStringLen(text_); }
    bool empty() const noexcept { return size() == 0; }
    char16_t* data() noexcept { return text_; }
    std::u16string_view view() const noexcept { return text_ ? std::u16string_view(text_, size()) : std::u16string_view(); }
    operator std::u16string_view() const noexcept { return view(); }
    char16_t operator[](std::size_t index) const { return text_[index]; }
    std::string utf8() const { return utf8FromUtf16(view()); }

    friend bool operator==(const String& a, const String& b) noexcept { return a.view() == b.view(); }
    friend bool operator==(const String& a, std::u16string_view b) noexcept { return a.view() == b; }
    friend bool operator==(const String& a, const std::u16string& b) noexcept { return a.view() == b; }
    friend bool operator==(const String& a, const char16_t* b) noexcept { return a.view() == b; }

private:
    static BSTR allocate(const char16_t* text, std::size_t length) {
        constexpr std::size_t longest = 0x7FFFFFF0 / sizeof(char16_t);
        BSTR result = length <= longest ? SysAllocStringLen(text, static_cast<UINT>(length)) : nullptr;
        if (!result) {
            throw std::bad_alloc();
        }
        return result;
    }

    BSTR text_ = nullptr;
};
static_assert(sizeof(String) == sizeof(BSTR));

} // namespace mox
