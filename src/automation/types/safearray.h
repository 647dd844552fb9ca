// What the operations on arrays share: the hidden part before the descriptor, sizes and elements.
#pragma once

#include <mox/abi/interfaces.h>

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <optional>

namespace mox::automation {

inline constexpr UINT mostDimensions = 60;

/// Marks of arrays whose descriptor and elements lie in memory that is not the array's own.
inline constexpr USHORT foreignStorage = FADF_AUTO | FADF_STATIC | FADF_EMBEDDED;

struct FreeMemory {
    void operator()(void* memory) const noexcept { std::free(memory); }
};
using Memory = std::unique_ptr<std::byte, FreeMemory>;

// ---- the hidden part; which of these is there stands in the features of the array

VARTYPE storedType(const SAFEARRAY& array) noexcept;
void storeType(SAFEARRAY& array, VARTYPE type) noexcept;
IID storedInterface(const SAFEARRAY& array) noexcept;
void storeInterface(SAFEARRAY& array, const IID& id) noexcept;
/// Borrowed from the array, which holds a reference.
IRecordInfo* storedRecord(const SAFEARRAY& array) noexcept;
/// Stores the pointer alone; references are the caller's matter.
void storeRecord(SAFEARRAY& array, IRecordInfo* info) noexcept;

/// A descriptor with its hidden part, all zero; null if there is no memory.
SAFEARRAY* newDescriptor(UINT dimensions) noexcept;
void freeDescriptor(SAFEARRAY* array) noexcept;

// ---- sizes

/// The size of an element in bytes, 0 for a type that no element has. A record has the size of a pointer to one here.
ULONG elementSize(VARTYPE type) noexcept;

/// Whether all indexes of a dimension are numbers of 32 bits.
bool isValid(const SAFEARRAYBOUND& bound) noexcept;

/// The number of elements, nothing if they do not fit into the address space.
std::optional<std::size_t> elementCount(const SAFEARRAY& array) noexcept;

// ---- elements

/// What has to be done for an element besides moving its bytes.
enum class ElementKind { plain, text, object, variant, record };
ElementKind elementKind(const SAFEARRAY& array) noexcept;

/// Frees what elements own and leaves them zero, which is nothing, empty or the initial record.
void clearElements(const SAFEARRAY& array, std::byte* elements, std::size_t count) noexcept;

/// Makes raw memory into elements; plain ones have to be zero already.
HRESULT initializeElements(const SAFEARRAY& array, std::byte* elements, std::size_t count) noexcept;

/// Copies elements of the array's kind over raw memory of the same size, which holds nothing if it fails.
HRESULT copyElements(const SAFEARRAY& array, const std::byte* source, std::byte* target, std::size_t count) noexcept;

inline std::byte* elementsOf(const SAFEARRAY& array) noexcept {
    return static_cast<std::byte*>(array.pvData);
}

} // namespace mox::automation
