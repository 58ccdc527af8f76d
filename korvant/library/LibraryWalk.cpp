#include "LibraryWalk.h"

#include "WinFiles.h"

namespace {
bool isIn(const std::wstring& path, const std::wstring& folder) {
    const bool begins = path.compare(0, folder.size(), folder) == 0;
    return begins && (path.size() == folder.size() || folder.back() == L'\\' || path[folder.size()] == L'\\');
}
} // namespace

LibraryWalk::LibraryWalk(const std::wstring& root) : mRoot(root.empty() ? root : winRealPath(root.c_str())) {}

// A link into the library shows what stands elsewhere in the tree; one to a folder around it would show the library
// again, without end; a second one to the same folder adds nothing.
bool LibraryWalk::leadsElsewhere(const std::wstring& link) {
    const std::wstring target = winRealPath(link.c_str());
    if (target.empty() || isIn(target, mRoot) || isIn(mRoot, target))
        return false;
    return mLinked.insert(target).second;
}

std::vector<LibraryWalk::Folder> LibraryWalk::foldersOf(const std::wstring& folder) {
    std::vector<Folder> folders;
    WIN32_FIND_DATAW found;
    const HANDLE search = mRoot.empty() ? INVALID_HANDLE_VALUE : FindFirstFileW((folder + L"\\*.*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return folders;
    do {
        const std::wstring name = found.cFileName;
        const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (!isFolder || name == L"." || name == L".." || name == L"Temp" || ++mListed > kMostFolders)
            continue;
        const std::wstring path = folder + L"\\" + name;
        const bool isLink = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        folders.push_back({name, path, !isLink || leadsElsewhere(path)});
    } while (FindNextFileW(search, &found));
    FindClose(search);
    return folders;
}
