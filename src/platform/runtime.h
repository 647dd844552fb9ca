// The run-time layer of Visual Basic programs: what the language itself gives to its programs.
#pragma once

#include "platform/operation.h"
#include "platform/types.h"

#include <mox/values.h>

#include <string>

namespace mox::platform {

/// What a file that is open in binary mode is used for.
enum class FileAccess { read, write, readWrite };

struct Runtime : SystemLibrary {
    Runtime() : SystemLibrary("runtime") {}

    /// Identifier of the thread of the calling apartment.
    Operation<std::uint32_t()> ThreadID{*this, "ThreadID", 0};

    /// The folder that the file with `code` in it was loaded from, as a path without a final NUL; empty if it is not known.
    Operation<std::string(const void* code)> AppPath{*this, "AppPath", ""};
    /// The text in lower case.
    Operation<std::u16string(std::u16string_view text)> LCase{*this, "LCase", u""};

    /// Twips in one pixel of the screen object; 15 at 96 dots per inch.
    Operation<float()> ScreenTwipsPerPixelX{*this, "ScreenTwipsPerPixelX", 0};
    Operation<float()> ScreenTwipsPerPixelY{*this, "ScreenTwipsPerPixelY", 0};

    /// A new object of one of the run-time layer's own classes, such as `StdFont`, or of any other. The answer is 0, or the
    /// number of the run-time error that `New` raises.
    Operation<std::int32_t(const GUID& classId, Ref<IDispatch>& object)> New{*this, "New", 429};

    /// Seeds the random numbers of the apartment from the clock.
    Operation<bool()> Randomize{*this, "Randomize", false};
    /// The next random number of the apartment, from 0 up to but without 1.
    Operation<float()> Rnd{*this, "Rnd", 0};

    // Files. The answer is 0, or the number of the run-time error that the statement raises.
    Operation<std::int32_t(std::string_view folder)> MkDir{*this, "MkDir", 75};
    Operation<std::int32_t(std::string_view file)> Kill{*this, "Kill", 53};
    /// Opens a file in binary mode for reading and writing, makes it if there is none, and closes it again.
    Operation<std::int32_t(std::string_view file)> TouchBinary{*this, "TouchBinary", 75};

    /// `Open ... For Binary Access ...`, shared with other openers: a file number into `number`. Makes an empty file if there is
    /// none, also for reading.
    Operation<std::int32_t(std::string_view file, FileAccess access, Handle& number)> OpenBinary{*this, "OpenBinary", 75};
    /// `LOF`: the length of an open file in bytes.
    Operation<std::int32_t(Handle number, std::int64_t& length)> LengthOfFile{*this, "LengthOfFile", 52};
    /// `Get`: bytes from a position, counted from 0. 62 if the file has fewer, 54 if it is open for writing only.
    Operation<std::int32_t(Handle number, std::int64_t position, std::span<char> bytes)> GetBytes{*this, "GetBytes", 57};
    /// `Put`: bytes at a position, counted from 0. 61 if the disk is full, 54 if the file is open for reading only.
    Operation<std::int32_t(Handle number, std::int64_t position, std::span<const char> bytes)> PutBytes{*this, "PutBytes", 57};
    /// `Close`.
    Operation<std::int32_t(Handle number)> CloseFile{*this, "CloseFile", 52, givesBack};

    /// `Shell`: starts a program and does not wait for it. Its identifier into `task`. 53 if there is no such program, 5 if it
    /// cannot be started. `windowStyle`: 2 is a minimised window with the focus.
    Operation<std::int32_t(std::string_view commandLine, std::int32_t windowStyle, double& task)> Shell{*this, "Shell", 53};
};

/// Of the present machine.
MOX_API Runtime& runtime();

} // namespace mox::platform
