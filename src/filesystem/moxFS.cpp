#include "filesystem/moxFS.h"

#include "automation/objects/errormodes.h"
#include "automation/objects/runtimeerror.h"
#include "core/ansi.h"
#include "core/classes.h"
#include "core/modMoxHub.h"
#include "core/release.h"
#include "filesystem/binaryfile.h"
#include "filesystem/pageblock.h"
#include "filesystem/pathtext.h"
#include "filesystem/standardpath.h"
#include "filesystem/treewalk.h"

#include "platform/kernel32.h"

#include <algorithm>

namespace mox::server {

namespace {

using namespace platform;

/// False for a folder that a listing does not begin with: hidden, and no root of a drive.
bool isListed(const String& root, Boolean ignoreHidden) {
    constexpr std::size_t lengthOfDriveRoot = 3;
    if (root.size() <= lengthOfDriveRoot) {
        return true;
    }
    const std::uint32_t attributes = kernel32().GetFileAttributesA(toAnsi(root));
    const bool isHidden = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_HIDDEN) != 0;
    return !(ignoreHidden && isHidden);
}

} // namespace

moxFS::~moxFS() {
    releaseInOrder(File, Folder, Drives);
}

Ref<_moxFSDrives> moxFS::get_Drives() {
    return child(Drives);
}

String moxFS::FindFolder(const String& sFolderName, const String& sRootPath, Boolean bSearchInSubFolders, Long lMaxSubFolderDepth,
                         Boolean bIgnoreHiddenFolder) {
    String result;
    trapAndLeave([&] {
        const std::u16string_view name = sFolderName.view().substr(0, sFolderName.view().find_last_not_of(u"/\\") + 1);
        result = searchTree(std::u16string(behindLastBackslash(name)), std::u16string(sRootPath),
                            {bSearchInSubFolders, lMaxSubFolderDepth}, bIgnoreHiddenFolder);
    });
    return result;
}

MOX_FS_FINDFF moxFS::FindFolderAndFiles(const String& sRootPath, Boolean bSearchInSubFolders, Long lMaxSubFolderDepth,
                                        Boolean bIgnoreHiddenFolder) {
    return modMoxHub::FolderExists(sRootPath)
               ? listTree(std::u16string(sRootPath), {bSearchInSubFolders, lMaxSubFolderDepth}, bIgnoreHiddenFolder)
               : emptyListing();
}

MOX_FS_FINDFF moxFS::GetFolderAndFiles(const String& sRootPath, Boolean bSearchInSubFolders, Long lMaxSubFolderDepth,
                                       Boolean bIgnoreHiddenFolderAndFiles) {
    return modMoxHub::FolderExists(sRootPath) && isListed(sRootPath, bIgnoreHiddenFolderAndFiles)
               ? listTree(std::u16string(sRootPath), {bSearchInSubFolders, lMaxSubFolderDepth}, bIgnoreHiddenFolderAndFiles)
               : emptyListing();
}

Ref<_moxFSFolder> moxFS::get_Folder() {
    return child(Folder);
}

String moxFS::GetTempFile(const String& sPrefix, const String& sSuffix, const String& sPath, Boolean bCreateFile) {
    return modMoxHub::CreateTempName(sPrefix, sSuffix, sPath, bCreateFile);
}

Boolean moxFS::MergeFiles(const String& FirstFile, const String& SecondFile, Long BlockSize) {
    constexpr Long largestPiece = 256 * 1024;
    Boolean result;
    trapAndLeave([&] {
        if (!modMoxHub::FileExists(FirstFile) || !modMoxHub::FileExists(SecondFile)) {
            return;
        }
        BinaryFile first(FirstFile, FileAccess::write);
        const BinaryFile second(SecondFile, FileAccess::read);
        const std::int64_t end = first.length();
        const std::int64_t length = second.length();
        if (length > 0 && BlockSize <= 0) {
            throw RuntimeError(errInvalidCall);
        }
        // Larger blocks go in pieces that stay in the cache of the processor.
        const std::int64_t pieceSize = std::min(BlockSize, largestPiece);
        const PageBlock piece(static_cast<std::size_t>(std::min(length, pieceSize)));
        for (std::int64_t position = 0; position < length; position += pieceSize) {
            const std::span<char> bytes = piece.first(static_cast<std::size_t>(std::min(length - position, pieceSize)));
            second.read(position, bytes);
            first.write(end + position, bytes);
        }
        result = True;
    });
    return result;
}

String moxFS::GetStandardPath(MOX_FS_STDPATH ID, Boolean Add_BackSlash) {
    String result = u"c:\\";
    trapAndLeave([&] {
        std::u16string path;
        if (ID == Application) {
            if (ApplicationPath.empty()) {
                ApplicationPath = applicationPath();
            }
            path = ApplicationPath;
        } else {
            path = standardPath(ID);
        }
        result = Add_BackSlash ? path : withoutBackslash(path);
    });
    return result;
}

Ref<_moxFSFile> moxFS::get_File() {
    return child(File);
}

String moxFS::FindFile(const String& sFileName, const String& sRootPath, Boolean bSearchInSubFolders, Long lMaxSubFolderDepth,
                       Boolean bIgnoreHiddenFolderAndFiles) {
    String result;
    trapAndLeave([&] {
        result = searchTree(std::u16string(behindLastBackslash(sFileName)), std::u16string(sRootPath),
                            {bSearchInSubFolders, lMaxSubFolderDepth}, bIgnoreHiddenFolderAndFiles);
    });
    return result;
}

} // namespace mox::server
