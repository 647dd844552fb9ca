// What the objects of a library's type information have in common.
#pragma once

#include "automation/typelib/description.h"

#include <mox/values.h>

#include <atomic>
#include <new>

namespace mox::typelib {

/// An object that its `Library` owns, so that it is the same one for every caller. Any thread may use it. Each reference that is
/// held counts as a lock of the library's file, and the library with all its parts goes only when there is none.
template <class Interface> class LibraryPart : public Interface {
public:
    virtual ~LibraryPart() = default;
    LibraryPart(const LibraryPart&) = delete;
    LibraryPart& operator=(const LibraryPart&) = delete;

    HRESULT QueryInterface(REFIID iid, void** result) final {
        if (!result) {
            return E_POINTER;
        }
        *result = nullptr;
        if (iid != IID_IUnknown && iid != interfaceId<Interface>) {
            return E_NOINTERFACE;
        }
        *result = static_cast<Interface*>(this);
        AddRef();
        return S_OK;
    }
    ULONG AddRef() final {
        state_.locks.fetch_add(1, std::memory_order_relaxed);
        return count_.fetch_add(1, std::memory_order_relaxed) + 1;
    }
    ULONG Release() final {
        // The file, and this object with it, may go as soon as the lock is given back.
        LibraryState& state = state_;
        const ULONG left = count_.fetch_sub(1, std::memory_order_relaxed) - 1;
        state.locks.fetch_sub(1, std::memory_order_release);
        return left;
    }

protected:
    explicit LibraryPart(LibraryState& state) : state_(state) {}

private:
    LibraryState& state_;
    std::atomic<ULONG> count_{0};
};

/// Hands out a part with a reference.
template <class Interface> HRESULT give(Interface& part, Interface** result) noexcept {
    part.AddRef();
    *result = &part;
    return S_OK;
}

/// Runs `body`, whose status or whose exception becomes the status.
template <class Body> HRESULT statusOf(Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const StatusError& error) {
        return error.status();
    } catch (...) {
        return E_UNEXPECTED;
    }
}

/// Answers GetDocumentation. Every out place may be null; there are no help files.
inline HRESULT giveDocumentation(const char16_t* name, const char16_t* help, BSTR* nameOut, BSTR* helpOut, DWORD* contextOut,
                                 BSTR* fileOut) noexcept {
    return statusOf([&] {
        String nameText = nameOut ? String(name) : String();
        String helpText = helpOut && help ? String(help) : String();
        if (nameOut) {
            *nameOut = nameText.detach();
        }
        if (helpOut) {
            *helpOut = helpText.detach();
        }
        if (contextOut) {
            *contextOut = 0;
        }
        if (fileOut) {
            *fileOut = nullptr;
        }
        return S_OK;
    });
}

} // namespace mox::typelib
