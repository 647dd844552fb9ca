#pragma once

#include "TRL_OBKR_MOX/moxFSFolder.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Services for folders. No error reaches the caller: a member leaves with the value that its result has so far.
class moxFSFolder final : public Implements<moxFSFolder> {
public:
    Boolean Copy(const String& sPath, const String& sPathNew, Boolean bAllowUndo, Boolean bConfirmDialog, Boolean bShowProgress);
    Boolean Create(const String& sPath);
    Boolean Delete(const String& sPath, Boolean bOnlySubFolderAndFiles, Boolean bAllowUndo, Boolean bConfirmDialog);
    String GetDisplayName(const String& sPath);
    Boolean DrawIcon(const String& sPath, Long hDC, Long X, Long Y, MOX_FS_ICONSIZE Size, MOX_FS_ICONSTATE State);
    Boolean Exists(const String& sPath);
    Boolean Move(const String& sPath, const String& sPathNew, Boolean bAllowUndo, Boolean bConfirmDialog, Boolean bShowProgress);
    String GetParentFolder(const String& sPath);
    Boolean HasFiles(const String& sPath, Boolean bIgnoreHidden, Boolean bIgnoreSystem);
    Boolean HasSubFolder(const String& sPath, Boolean bIgnoreHidden, Boolean bIgnoreSystem);
    MOX_FS_SPACEINFO GetSpace(const String& sPath);
    String get_StripExtension(const String& sPath);
    Boolean get_IsRootFolder(const String& sPath);
    MOX_FS_FILEATTRIBUTES GetAttributes(const String& sPath);
    MOX_FILEDATETIME GetDateTime(const String& sPath);
    Boolean Rename(const String& sPath, const String& sPathNew, Boolean bAllowUndo);
    Boolean SetAttributes(const String& sPath, MOX_FS_FILEATTRIBUTES eAttributes);
    String GetShortPathName(const String& sPath);
    String GetTypeName(const String& sPath);
    String CreateUniquePathName(const String& sBasePathName, const String& sNumSep, Boolean bBracketAllowed);
};

} // namespace mox::server
