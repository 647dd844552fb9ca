#pragma once

#include "TRL_OBKR_MOX/moxFSFile.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Services for single files. No file is open between calls, and no error reaches the caller: a member leaves with the value that
/// its result has so far.
class moxFSFile final : public Implements<moxFSFile> {
public:
    String CreateUniqueFileName(const String& sBasePathFileName, const String& sNumSep, Boolean bBracketAllowed);
    Boolean DrawIcon(const String& sFileName, Long hDC, Long X, Long Y, MOX_FS_ICONSIZE Size, MOX_FS_ICONSTATE State);
    String GetExeFromFileExtension(const String& sFileExt, Boolean bShortExeName);
    String GetExeFromFileName(const String& sFileName, Boolean bShortExeName);
    MOX_FILEDATETIME GetDateTime(const String& sFileName);
    Long GetChecksum(const String& sFileName, Long lMaxMBTaken);
    Boolean Copy(const String& sPathFileSrc, const String& sPathFileDest, Boolean bOverWriteExisting);
    Boolean Move(const String& sPathFileSrc, const String& sPathOrPathFileDest, Boolean bOverWriteExisting);
    String GetDisplayName(const String& sFileName);
    Boolean SetDateTime(const String& sFileName, const MOX_FILEDATETIME& FDT, Boolean bSetCreated, Boolean bSetLastAccessed,
                        Boolean bSetLastModified);
    Long GetSize(const String& sFileName);
    MOX_FILEVERSIONINFO GetVersion(const String& sFileName);
    Boolean SetAttributes(const String& sFileName, MOX_FS_FILEATTRIBUTES eAttributes);
    MOX_FS_FILEATTRIBUTES GetAttributes(const String& sFileName);
    String StripExtension(const String& sPathFile);
    String StripFileName(const String& sPathFile, Boolean bIncludeExtension);
    String StripPath(const String& sPathFile, Boolean Add_BackSlash);
    Boolean Rename(const String& sPathFileOld, const String& sFileNew, Boolean bOverWriteExisting);
    Boolean Delete(const String& sFileName, Boolean bAllowUndo, Boolean bDeleteWriteProtected, Boolean bConfirmDialog);
    Boolean Exists(const String& sFileName);
    String GetShortPathFileName(const String& sFileName);
    String GetTypeName(const String& sFileName);

private:
    /// What `CopyFileA` and `MoveFileA` have in common: an operation from a path to a path, both in the code page.
    using Transfer = bool (*)(const std::string& source, const std::string& target);

    Boolean transfer(const String& source, const String& destination, Boolean overwrite, Transfer operation);
    /// True if nothing is in the way at a path, or no longer is.
    bool makeRoom(const String& target, Boolean overwrite);
};

} // namespace mox::server
