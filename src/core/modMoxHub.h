// What several classes share: files and folders, temporary names, programs of files, disk space, object numbers.
#pragma once

#include "TRL_OBKR_MOX/descriptions.h"

#include <mox/values.h>

#include <vector>

namespace mox::server::modMoxHub {

// Without a word on errors, a procedure traps every error and returns what its result holds at that moment.

/// The path with its names in short form; empty if the file does not exist. Errors go to the caller.
String GetShortPath(const String& sPath);

/// True if a search finds something: also for a folder and for a pattern that matches, not for the root of a drive.
Boolean FileExists(const String& sPath);

/// True for an existing folder, with or without a backslash at its end. Blanks around the text do not count. One or two
/// characters mean a drive.
Boolean FolderExists(const String& sPath);

/// Makes a folder with all that lead to it. False if the path does not begin with a drive and a backslash, or with a server, and
/// if a folder cannot be made; those in front of it stay.
Boolean CreateFolderTree(const String& sPath);

/// The folder for temporary files, with a backslash at its end; `c:\` if the system does not tell. Errors go to the caller.
String GetTempFolder();

/// The path of a file that does not exist: in `sPath`, or in the temporary folder if there is no such folder. Its name is
/// `sPrefix`, a random text of up to four characters and, unless it is empty, a point and `sSuffix`. With `bCreateFile` the file
/// is made, with the temporary attribute. Empty after an error.
String CreateTempName(const String& sPrefix, const String& sSuffix, const String& sPath, Boolean bCreateFile);

/// The path of the program that opens a file, in short form if asked for; empty if there is none.
String GetExeOfFile(const String& sFile, Boolean bShortName);

/// The path of the program that opens files with an extension; empty if there is none.
String GetExeOfExtension(const String& sExtension);

/// The space of the disk that a folder lies on. `AvailableBytes` may keep what it holds. One character means a drive.
Boolean GetDiskSpace(const String& sPath, Double& TotalBytes, Double& UsedBytes, Double& FreeBytes, Double& AvailableBytes);

/// The living object of the calling apartment that `PtrFromObject` gave that number, or Nothing.
Ref<IDispatch> ObjectFromPtr(Long lPointer) noexcept;

/// A number for an object, which holds no reference; 0 for Nothing. Errors go to the caller.
Long PtrFromObject(const Ref<IDispatch>& cObject);

/// Draws the icon that the shell shows for a file, folder or drive. One character means a drive.
Boolean DrawShellIcon(Long hDC, Long X, Long Y, const String& sPath, TRL_OBKR_MOX::MOX_FS_ICONSIZE Size,
                      TRL_OBKR_MOX::MOX_FS_ICONSTATE State);

/// A font of a list.
struct FontEntry {
    String Name;
    /// 1 for characters of the same width, 2 for those of their own, 0 if that is not told.
    Long Pitch = 0;
    /// 1 to 5 as `moX_FONT_FAMILY`, 0 if that is not told.
    Long Family = 0;
    Boolean Symbol;
};

/// The fonts of a context, 0 for the screen, with that face name, or all for an empty one; sorted by name. A font comes once for
/// each of its character sets, but for direct repetitions. The number of fonts; for 0 the list has one empty entry. Errors go to
/// the caller.
Long EnumerateFonts(std::vector<FontEntry>& Fonts, Long hDC, const String& sFaceName);

} // namespace mox::server::modMoxHub
