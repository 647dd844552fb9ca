#pragma once

#include "TRL_OBKR_MOX/moxFS.h"

namespace mox::server {

using namespace TRL_OBKR_MOX;

/// Entry to the file system services, and what spans files and folders: search, listings, temporary names, standard folders.
class moxFS final : public Implements<moxFS> {
public:
    ~moxFS() override;

    Ref<_moxFSDrives> get_Drives();
    String FindFolder(const String& sFolderName, const String& sRootPath, Boolean bSearchInSubFolders, Long lMaxSubFolderDepth,
                      Boolean bIgnoreHiddenFolder);
    MOX_FS_FINDFF FindFolderAndFiles(const String& sRootPath, Boolean bSearchInSubFolders, Long lMaxSubFolderDepth,
                                     Boolean bIgnoreHiddenFolder);
    MOX_FS_FINDFF GetFolderAndFiles(const String& sRootPath, Boolean bSearchInSubFolders, Long lMaxSubFolderDepth,
                                    Boolean bIgnoreHiddenFolderAndFiles);
    Ref<_moxFSFolder> get_Folder();
    String GetTempFile(const String& sPrefix, const String& sSuffix, const String& sPath, Boolean bCreateFile);
    Boolean MergeFiles(const String& FirstFile, const String& SecondFile, Long BlockSize);
    String GetStandardPath(MOX_FS_STDPATH ID, Boolean Add_BackSlash);
    Ref<_moxFSFile> get_File();
    String FindFile(const String& sFileName, const String& sRootPath, Boolean bSearchInSubFolders, Long lMaxSubFolderDepth,
                    Boolean bIgnoreHiddenFolderAndFiles);

private:
    Ref<_moxFSFile> File;
    Ref<_moxFSFolder> Folder;
    Ref<_moxFSDrives> Drives;
    /// The answer for the standard path `Application`; empty until it is first asked for.
    String ApplicationPath;
};

} // namespace mox::server
