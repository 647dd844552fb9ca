#include "filesystem/moxFSFile.h"

#include "automation/objects/errormodes.h"
#include "core/ansi.h"
#include "core/modMoxHub.h"
#include "filesystem/filetime.h"
#include "filesystem/pathtext.h"

#include "platform/kernel32.h"
#include "platform/runtime.h"
#include "platform/shell32.h"

namespace mox::server {

namespace {

using namespace platform;

bool equalInLowerCase(std::u16string_view first, std::u16string_view second) {
    return runtime().LCase(first) == runtime().LCase(second);
}

} // namespace

Boolean moxFSFile::Copy(const String& sPathFileSrc, const String& sPathFileDest, Boolean bOverWriteExisting) {
    return transfer(sPathFileSrc, sPathFileDest, bOverWriteExisting, [](const std::string& source, const std::string& target) {
        return kernel32().CopyFileA(source, target, false);
    });
}

Boolean moxFSFile::Move(const String& sPathFileSrc, const String& sPathOrPathFileDest, Boolean bOverWriteExisting) {
    return transfer(sPathFileSrc, sPathOrPathFileDest, bOverWriteExisting,
                    [](const std::string& source, const std::string& target) { return kernel32().MoveFileA(source, target); });
}

Boolean moxFSFile::transfer(const String& source, const String& destination, Boolean overwrite, Transfer operation) {
    Boolean result;
    trapAndLeave([&] {
        const String folder = StripPath(destination, True);
        if (!Exists(source) || !modMoxHub::FolderExists(folder)) {
            return;
        }
        String name = StripFileName(destination, True);
        if (name.empty()) {
            name = StripFileName(source, True);
        }
        const String target = withBackslash(folder).append(name.view());
        if (!equalInLowerCase(source, target) && makeRoom(target, overwrite)) {
            result = operation(toAnsi(source), toAnsi(target));
        }
    });
    return result;
}

bool moxFSFile::makeRoom(const String& target, Boolean overwrite) {
    return !Exists(target) || (overwrite && Delete(target, False, True, False));
}

Boolean moxFSFile::Rename(const String& sPathFileOld, const String& sFileNew, Boolean bOverWriteExisting) {
    Boolean result;
    trapAndLeave([&] {
        const String folder = StripPath(sPathFileOld, True);
        const String newFolder = StripPath(sFileNew, True);
        const String name = StripFileName(sFileNew, True);
        const bool staysInFolder = newFolder.empty() || trimmed(newFolder) == trimmed(folder);
        if (!Exists(sPathFileOld) || !staysInFolder || name.empty()) {
            return;
        }
        const String target = std::u16string(folder).append(name.view());
        if (!equalInLowerCase(target, sPathFileOld) && makeRoom(target, bOverWriteExisting)) {
            result = kernel32().MoveFileA(toAnsi(sPathFileOld), toAnsi(target));
        }
    });
    return result;
}

Boolean moxFSFile::Delete(const String& sFileName, Boolean bAllowUndo, Boolean bDeleteWriteProtected, Boolean bConfirmDialog) {
    Boolean result;
    trapAndLeave([&] {
        if (!Exists(sFileName)) {
            return;
        }
        const MOX_FS_FILEATTRIBUTES attributes = GetAttributes(sFileName);
        if (attributes & FA_READONLY) {
            if (!bDeleteWriteProtected) {
                return;
            }
            SetAttributes(sFileName, static_cast<MOX_FS_FILEATTRIBUTES>(attributes & ~FA_READONLY));
        }
        SHFILEOPSTRUCTA operation;
        operation.wFunc = FO_DELETE;
        operation.pFrom = toAnsi(sFileName) + std::string(2, '\0');
        operation.fFlags = static_cast<std::uint16_t>(FOF_SILENT | FOF_NOERRORUI | (bAllowUndo ? FOF_ALLOWUNDO : 0) |
                                                      (bConfirmDialog ? FOF_CONFIRMMOUSE : FOF_NOCONFIRMATION));
        shell32().SHFileOperationA(operation);
        result = !Exists(sFileName);
    });
    return result;
}

Boolean moxFSFile::SetDateTime(const String& sFileName, const MOX_FILEDATETIME& FDT, Boolean bSetCreated,
                               Boolean bSetLastAccessed, Boolean bSetLastModified) {
    Boolean result;
    trapAndLeave([&] {
        if (!Exists(sFileName)) {
            return;
        }
        const bool setsAll = bSetCreated && bSetLastAccessed && bSetLastModified;
        const MOX_FILEDATETIME present = setsAll ? FDT : GetDateTime(sFileName);
        const auto created = fileTime(bSetCreated ? FDT.Created : present.Created);
        const auto modified = fileTime(bSetLastModified ? FDT.Modified : present.Modified);
        const auto accessed = fileTime(bSetLastAccessed ? FDT.LastAccess : present.LastAccess);
        if (!created || !modified || !accessed) {
            return;
        }
        const Handle file =
            kernel32().CreateFileA(toAnsi(sFileName), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, OPEN_EXISTING);
        if (file != invalidHandle) {
            result = kernel32().SetFileTime(file, *created, *accessed, *modified);
            kernel32().CloseHandle(file);
        }
    });
    return result;
}

} // namespace mox::server
