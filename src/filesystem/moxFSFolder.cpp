#include "filesystem/moxFSFolder.h"

#include "automation/objects/errormodes.h"
#include "core/ansi.h"
#include "core/modMoxHub.h"
#include "filesystem/describedfile.h"
#include "filesystem/foldersearch.h"
#include "filesystem/pathtext.h"
#include "filesystem/uniquename.h"

#include "platform/shell32.h"

#include <algorithm>

namespace mox::server {

namespace {

using namespace platform;

constexpr std::uint16_t flag(Boolean isSet, std::uint16_t value) {
    return isSet ? value : std::uint16_t{0};
}

/// The questions that an operation may ask.
constexpr std::uint16_t questions(Boolean confirmDialog) {
    return confirmDialog ? FOF_CONFIRMMOUSE : FOF_NOCONFIRMATION;
}

/// A list of one path.
std::string listOf(std::u16string_view path) {
    return toAnsi(path) + std::string(2, '\0');
}

bool operate(std::uint32_t function, std::u16string_view from, std::u16string_view to, std::uint16_t flags) {
    SHFILEOPSTRUCTA operation;
    operation.wFunc = function;
    operation.pFrom = listOf(from);
    operation.pTo = to.empty() ? std::string() : listOf(to);
    operation.fFlags = flags;
    return shell32().SHFileOperationA(operation) == 0;
}

/// What `Copy` and `Move` have in common.
bool transfer(std::uint32_t function, const String& path, const String& pathNew, std::uint16_t flags) {
    const std::u16string from = withBackslash(path);
    const std::u16string to = withBackslash(pathNew);
    return modMoxHub::FolderExists(from) && !to.empty() && operate(function, withoutBackslash(from), withoutBackslash(to), flags);
}

constexpr std::uint16_t transferFlags(Boolean allowUndo, Boolean confirmDialog, Boolean showProgress) {
    return static_cast<std::uint16_t>(FOF_MULTIDESTFILES | FOF_NOERRORUI | flag(allowUndo, FOF_ALLOWUNDO) |
                                      questions(confirmDialog) | flag(!showProgress, FOF_SILENT));
}

/// True if a folder has an entry that `counts`, leaving out hidden ones and those of the system where wanted.
template <class Counts> Boolean hasEntry(const String& path, Boolean ignoreHidden, Boolean ignoreSystem, Counts counts) {
    Boolean result;
    trapAndLeave([&] {
        const std::u16string folder = withBackslash(path);
        if (!modMoxHub::FolderExists(folder)) {
            return;
        }
        for (FolderSearch search(toAnsi(folder + u"*.*")); search && !result; search.next()) {
            result = counts(search) && !(ignoreHidden && search.isHidden()) && !(ignoreSystem && search.isSystem());
        }
    });
    return result;
}

} // namespace

Boolean moxFSFolder::Copy(const String& sPath, const String& sPathNew, Boolean bAllowUndo, Boolean bConfirmDialog,
                          Boolean bShowProgress) {
    Boolean result;
    trapAndLeave([&] { result = transfer(FO_COPY, sPath, sPathNew, transferFlags(bAllowUndo, bConfirmDialog, bShowProgress)); });
    return result;
}

Boolean moxFSFolder::Create(const String& sPath) {
    return modMoxHub::CreateFolderTree(sPath);
}

Boolean moxFSFolder::Delete(const String& sPath, Boolean bOnlySubFolderAndFiles, Boolean bAllowUndo, Boolean bConfirmDialog) {
    Boolean result;
    trapAndLeave([&] {
        const std::u16string path = withBackslash(sPath);
        if (!modMoxHub::FolderExists(path)) {
            return;
        }
        const auto flags =
            static_cast<std::uint16_t>(FOF_SILENT | FOF_NOERRORUI | flag(bAllowUndo, FOF_ALLOWUNDO) | questions(bConfirmDialog));
        result = operate(FO_DELETE, bOnlySubFolderAndFiles ? path + u"*" : withoutBackslash(path), {}, flags);
    });
    return result;
}

String moxFSFolder::GetDisplayName(const String& sPath) {
    String result;
    trapAndLeave([&] { result = displayName(withBackslash(sPath)); });
    return result;
}

Boolean moxFSFolder::DrawIcon(const String& sPath, Long hDC, Long X, Long Y, MOX_FS_ICONSIZE Size, MOX_FS_ICONSTATE State) {
    return modMoxHub::DrawShellIcon(hDC, X, Y, sPath, Size, State);
}

Boolean moxFSFolder::Exists(const String& sPath) {
    return modMoxHub::FolderExists(sPath);
}

Boolean moxFSFolder::Move(const String& sPath, const String& sPathNew, Boolean bAllowUndo, Boolean bConfirmDialog,
                          Boolean bShowProgress) {
    Boolean result;
    trapAndLeave([&] { result = transfer(FO_MOVE, sPath, sPathNew, transferFlags(bAllowUndo, bConfirmDialog, bShowProgress)); });
    return result;
}

String moxFSFolder::GetParentFolder(const String& sPath) {
    String result;
    trapAndLeave([&] {
        std::u16string path(trimmed(sPath));
        if (path.empty()) {
            return;
        }
        path = path.size() <= 2 ? path.substr(0, 1) + u":\\" : withBackslash(path);
        const std::size_t last = path.rfind(u'\\', path.size() - 2);
        result = path.substr(0, last + 1);
    });
    return result;
}

Boolean moxFSFolder::HasFiles(const String& sPath, Boolean bIgnoreHidden, Boolean bIgnoreSystem) {
    return hasEntry(sPath, bIgnoreHidden, bIgnoreSystem, [](const FolderSearch& search) { return !search.isFolder(); });
}

Boolean moxFSFolder::HasSubFolder(const String& sPath, Boolean bIgnoreHidden, Boolean bIgnoreSystem) {
    return hasEntry(sPath, bIgnoreHidden, bIgnoreSystem,
                    [](const FolderSearch& search) { return search.isFolder() && !search.entry().cFileName.starts_with('.'); });
}

MOX_FS_SPACEINFO moxFSFolder::GetSpace(const String& sPath) {
    MOX_FS_SPACEINFO space;
    return modMoxHub::GetDiskSpace(sPath, space.TotalBytes, space.UsedBytes, space.FreeBytes, space.AvailableBytes)
               ? space
               : MOX_FS_SPACEINFO{};
}

String moxFSFolder::get_StripExtension(const String& sPath) {
    return behindLastPoint(withoutBackslash(sPath));
}

Boolean moxFSFolder::get_IsRootFolder(const String& sPath) {
    return GetParentFolder(sPath).empty();
}

MOX_FS_FILEATTRIBUTES moxFSFolder::GetAttributes(const String& sPath) {
    MOX_FS_FILEATTRIBUTES result{};
    trapAndLeave([&] {
        if (Exists(sPath)) {
            result = readAttributes(sPath);
        }
    });
    return result;
}

MOX_FILEDATETIME moxFSFolder::GetDateTime(const String& sPath) {
    MOX_FILEDATETIME times;
    trapAndLeave([&] { readDateTime(withoutBackslash(sPath), times); });
    return times;
}

Boolean moxFSFolder::Rename(const String& sPath, const String& sPathNew, Boolean bAllowUndo) {
    Boolean result;
    trapAndLeave([&] {
        const std::u16string from = withBackslash(sPath);
        const std::u16string to = withBackslash(sPathNew);
        if (from.empty() || to.empty() || from == to || !modMoxHub::FolderExists(from) || modMoxHub::FolderExists(to)) {
            return;
        }
        const auto flags = static_cast<std::uint16_t>(FOF_SILENT | FOF_NOCONFIRMATION | FOF_NOCONFIRMMKDIR | FOF_NOERRORUI |
                                                      flag(bAllowUndo, FOF_ALLOWUNDO));
        result = operate(FO_RENAME, withoutBackslash(from), withoutBackslash(to), flags);
    });
    return result;
}

Boolean moxFSFolder::SetAttributes(const String& sPath, MOX_FS_FILEATTRIBUTES eAttributes) {
    Boolean result;
    trapAndLeave([&] { result = Exists(sPath) && writeAttributes(sPath, eAttributes); });
    return result;
}

String moxFSFolder::GetShortPathName(const String& sPath) {
    String result;
    trapAndLeave([&] { result = modMoxHub::GetShortPath(sPath); });
    return result;
}

String moxFSFolder::GetTypeName(const String& sPath) {
    String result;
    trapAndLeave([&] { result = typeName(withBackslash(sPath)); });
    return result;
}

String moxFSFolder::CreateUniquePathName(const String& sBasePathName, const String& sNumSep, Boolean bBracketAllowed) {
    std::u16string text = cleanedName(sBasePathName);
    text.erase(text.find_last_not_of(u'\\') + 1);
    if (text.empty()) {
        text = u"_";
    }
    if (!modMoxHub::FolderExists(text)) {
        return text;
    }
    const std::size_t point = text.rfind(u'.');
    const std::size_t separator = text.find_last_of(u"/\\");
    const bool hasExtension = point != text.npos && (separator == text.npos || point > separator);
    const std::size_t baseLength = hasExtension ? point : text.size();
    return freeName({text.substr(0, baseLength), text.substr(baseLength)}, sNumSep, bBracketAllowed, modMoxHub::FolderExists);
}

} // namespace mox::server
