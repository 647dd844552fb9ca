#include "filesystem/treewalk.h"

#include "automation/objects/errormodes.h"
#include "core/ansi.h"
#include "core/modMoxHub.h"
#include "filesystem/foldersearch.h"
#include "filesystem/pathtext.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace mox::server {

namespace {

constexpr std::u16string_view everything = u"*.*";

/// One row of a listing.
struct ListingRow {
    Boolean IsDirectory;
    String PathFileName;
    String Extension;
    Byte Depth = 0;
};

MOX_FS_FINDFF emptyRows(Long last) {
    return {0, Array<Boolean>(0, last), Array<String>(0, last), Array<String>(0, last), Array<Byte>(0, last)};
}

bool isEntered(const FolderSearch& search, Boolean ignoreHidden) {
    const std::string& name = search.entry().cFileName;
    return search.isFolder() && !name.starts_with('.') && !name.starts_with('$') && !(ignoreHidden && search.isHidden());
}

String nameOf(const FolderSearch& search) {
    return fromAnsiToNul(search.entry().cFileName);
}

/// The first entry that fits, unless it is hidden and such are ignored.
String firstMatch(const std::u16string& folder, const std::u16string& name, Boolean ignoreHidden) {
    const FolderSearch search(toAnsi(folder + name));
    const bool isHit = search && !(ignoreHidden && search.isHidden());
    return isHit ? folder + std::u16string(nameOf(search)) : String();
}

std::vector<String> enteredFolders(const std::u16string& folder, Boolean ignoreHidden) {
    std::vector<String> names;
    for (FolderSearch search(toAnsi(folder + std::u16string(everything))); search; search.next()) {
        if (isEntered(search, ignoreHidden)) {
            names.push_back(nameOf(search));
        }
    }
    return names;
}

String searchFolder(const std::u16string& name, const std::u16string& root, const TreeBounds& bounds, Long depth,
                    Boolean ignoreHidden) {
    String result;
    trapAndLeave([&] {
        const std::u16string folder = withBackslash(root);
        if (!modMoxHub::FolderExists(folder)) {
            return;
        }
        result = firstMatch(folder, name, ignoreHidden);
        if (!result.empty() || !bounds.subFolders || !bounds.reaches(depth)) {
            return;
        }
        for (const String& subFolder : enteredFolders(folder, ignoreHidden)) {
            result = searchFolder(name, folder + std::u16string(subFolder), bounds, depth + 1, ignoreHidden);
            if (!result.empty()) {
                return;
            }
        }
    });
    return result;
}

void collect(const std::u16string& path, const TreeBounds& bounds, Long depth, Boolean ignoreHidden,
             std::vector<ListingRow>& rows) {
    const std::u16string folder = withBackslash(path);
    rows.push_back({True, folder, behindLastPoint(withoutBackslash(folder)), static_cast<Byte>(depth)});
    std::vector<String> subFolders;
    for (FolderSearch search(toAnsi(folder + std::u16string(everything))); search; search.next()) {
        if (!search.isFolder()) {
            if (!(ignoreHidden && search.isHidden())) {
                String name = nameOf(search);
                const std::u16string_view extension = behindLastPoint(name);
                rows.push_back({False, std::move(name), extension, static_cast<Byte>(depth)});
            }
        } else if (bounds.reaches(depth) && isEntered(search, ignoreHidden)) {
            subFolders.push_back(nameOf(search));
        }
    }
    if (bounds.subFolders) {
        for (const String& subFolder : subFolders) {
            collect(folder + std::u16string(subFolder), bounds, depth + 1, True, rows);
        }
    }
}

} // namespace

String searchTree(const std::u16string& name, const std::u16string& root, const TreeBounds& bounds, Boolean ignoreHidden) {
    return trimmed(name).empty() ? String() : searchFolder(name, root, bounds, 0, ignoreHidden);
}

MOX_FS_FINDFF listTree(const std::u16string& root, const TreeBounds& bounds, Boolean ignoreHidden) {
    std::vector<ListingRow> rows;
    collect(root, bounds, 0, ignoreHidden, rows);
    const auto last = static_cast<Long>(rows.size()) - 1;
    MOX_FS_FINDFF listing = emptyRows(last);
    listing.Count = last + 1;
    for (Long i = 0; i <= last; ++i) {
        ListingRow& row = rows[static_cast<std::size_t>(i)];
        listing.IsDirectory.data()[i] = row.IsDirectory;
        listing.PathFileName.data()[i] = std::move(row.PathFileName);
        listing.Extension.data()[i] = std::move(row.Extension);
        listing.Depth.data()[i] = row.Depth;
    }
    return listing;
}

MOX_FS_FINDFF emptyListing() {
    return emptyRows(0);
}

} // namespace mox::server
