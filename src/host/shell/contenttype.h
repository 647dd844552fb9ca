// What kind of content a file has.
#pragma once

#include "host/shell/gio.h"

#include <filesystem>
#include <string>

namespace mox::host {

/// The content type by the shared MIME database: by the file's name, and by its contents where the name says too little. Null if
/// there is none.
GText contentTypeOf(const std::filesystem::path& file);
/// By the name alone.
GText contentTypeOfName(const std::string& name);

} // namespace mox::host
