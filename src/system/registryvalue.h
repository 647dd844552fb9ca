// Values of registry keys as texts and bytes.
#pragma once

#include "system/registrykey.h"

#include <optional>
#include <string>

namespace mox::server {

/// A value as text: texts as they are, up to their first NUL, those with variables with these in their places; lists of texts
/// with a NUL between any two; bytes as two hexadecimal digits each, a 32-bit number as eight. Empty if there is no such value,
/// if it is of another type or cannot be read. A link is an empty text.
std::optional<String> readAsText(const RegistryKey& key, const String& name);

/// The bytes of a binary value; empty for none, and for a value that is of another type or cannot be read.
std::string readBytes(const RegistryKey& key, const String& name);

// The same for a key by its path. They trap every error and give then what stands for no value.

/// A value as text, or `otherwise`.
String registryText(REG_ROOTKEY root, const String& path, const String& name, const String& otherwise) noexcept;
std::string registryBytes(REG_ROOTKEY root, const String& path, const String& name) noexcept;

} // namespace mox::server
