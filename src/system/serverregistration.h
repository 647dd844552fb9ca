// Servers of others that are told to register themselves.
#pragma once

#include <mox/values.h>

#include <string_view>

namespace mox::server {

/// Loads a library and runs a routine of it on a thread. True if the routine comes to its end within so many milliseconds, 100 to
/// 30000, whatever its result is. A routine that does not is left to itself: it goes on, and its library stays loaded for it.
/// Every error ends it with False.
Boolean runRoutineOfLibrary(const String& file, std::string_view routine, Long msTimeout) noexcept;

/// Starts a program with an option and does not wait for it. False if there is no such file; one that cannot be started raises
/// the error of the run-time layer.
Boolean startServerProgram(const String& file, std::u16string_view option);

} // namespace mox::server
