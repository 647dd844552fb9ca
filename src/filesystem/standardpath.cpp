#include "filesystem/standardpath.h"

#include "core/ansi.h"
#include "core/classes.h"
#include "core/modMoxHub.h"
#include "filesystem/pathtext.h"

#include "platform/kernel32.h"
#include "platform/runtime.h"

#include <algorithm>
#include <array>

namespace mox::server {

namespace {

using namespace platform;

/// A folder that the registry names, and the one that serves where it names none that exists.
struct ShellFolder {
    MOX_FS_STDPATH id;
    REG_ROOTKEY root;
    const char16_t* valueName;
    MOX_FS_STDPATH otherwise;
    /// Only the drive root of the other one serves.
    bool otherwiseRoot = false;
};

constexpr ShellFolder shellFolders[] = {
    {Fonts, HKEY_CURRENT_USER, u"Fonts", Windows},
    {CommonAppData, HKEY_LOCAL_MACHINE, u"Common AppData", CommonDocuments},
    {CommonTemplates, HKEY_LOCAL_MACHINE, u"Common Templates", CommonDocuments},
    {CommonDocuments, HKEY_LOCAL_MACHINE, u"Common Documents", Windows, true},
    {CommonPictures, HKEY_LOCAL_MACHINE, u"CommonPictures", CommonDocuments},
    {CommonMusic, HKEY_LOCAL_MACHINE, u"CommonMusic", CommonDocuments},
    {CommonVideo, HKEY_LOCAL_MACHINE, u"CommonVideo", CommonDocuments},
    {UserAppData, HKEY_CURRENT_USER, u"AppData", UserDocuments},
    {UserTemplates, HKEY_CURRENT_USER, u"Templates", UserDocuments},
    {UserDocuments, HKEY_CURRENT_USER, u"Personal", Windows, true},
    {UserPictures, HKEY_CURRENT_USER, u"My Pictures", UserDocuments},
    {UserMusic, HKEY_CURRENT_USER, u"My Music", UserDocuments},
    {UserVideo, HKEY_CURRENT_USER, u"My Video", UserDocuments},
};

std::u16string systemFolder(Operation<std::uint32_t(std::span<char> buffer)>& operation) {
    std::array<char, 260> buffer{};
    const std::uint32_t length = operation(buffer);
    return withBackslash(fromAnsiToNul({buffer.data(), std::min<std::size_t>(length, buffer.size())}));
}

std::u16string shellFolder(const ShellFolder& folder) {
    String path;
    succeed(create<_moxRegistry>()->raw_extGetKeyValue(
        folder.root, String(u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders").get(),
        String(folder.valueName).get(), nullptr, path.out()));
    if (!path.empty() && modMoxHub::FolderExists(path)) {
        return withBackslash(path);
    }
    constexpr std::size_t lengthOfDriveRoot = 3;
    const std::u16string other = standardPath(folder.otherwise);
    return folder.otherwiseRoot ? other.substr(0, lengthOfDriveRoot) : other;
}

} // namespace

std::u16string standardPath(MOX_FS_STDPATH ID) {
    switch (ID) {
    case Windows:
        return systemFolder(kernel32().GetWindowsDirectoryA);
    case WinSystem:
        return systemFolder(kernel32().GetSystemDirectoryA);
    case Temp:
        return std::u16string(modMoxHub::GetTempFolder());
    default:
        const auto* const folder = std::ranges::find(shellFolders, ID, &ShellFolder::id);
        return folder != std::end(shellFolders) ? shellFolder(*folder) : std::u16string();
    }
}

String applicationPath() {
    Variant program;
    succeed(create<_moxHub>()->raw_get_ExtensionInfo(moxext_UsedByApp, program.out()));
    const std::u16string path(program.as<String>());
    if (path.empty()) {
        return withBackslash(fromAnsi(runtime().AppPath(reinterpret_cast<const void*>(&applicationPath))));
    }
    const std::size_t end = path.rfind(u'\\');
    return path.substr(0, end == path.npos ? end : end + 1);
}

} // namespace mox::server
