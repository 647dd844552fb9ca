// The run-time layer of Visual Basic programs: what the language itself gives to its programs.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

namespace mox::platform {

struct Runtime : SystemLibrary {
    Runtime() : SystemLibrary("runtime") {}

    /// Identifier of the thread of the calling apartment.
    Operation<std::uint32_t()> ThreadID{*this, "ThreadID", 0};

    /// Twips in one pixel of the screen object; 15 at 96 dots per inch.
    Operation<float()> ScreenTwipsPerPixelX{*this, "ScreenTwipsPerPixelX", 0};
    Operation<float()> ScreenTwipsPerPixelY{*this, "ScreenTwipsPerPixelY", 0};

    /// Seeds the random numbers of the apartment from the clock.
    Operation<bool()> Randomize{*this, "Randomize", false};
    /// The next random number of the apartment, from 0 up to but without 1.
    Operation<float()> Rnd{*this, "Rnd", 0};

    // Files. The answer is 0, or the number of the run-time error that the statement raises.
    Operation<std::int32_t(std::string_view folder)> MkDir{*this, "MkDir", 75};
    Operation<std::int32_t(std::string_view file)> Kill{*this, "Kill", 53};
    /// Opens a file in binary mode for reading and writing, makes it if there is none, and closes it again.
    Operation<std::int32_t(std::string_view file)> TouchBinary{*this, "TouchBinary", 75};
};

/// Of the present machine.
MOX_API Runtime& runtime();

} // namespace mox::platform
