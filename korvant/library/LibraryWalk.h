// Which folders of a library the tree lists, and how far it goes down. A library may hold links, to a share of the
// office as well as to itself, and its path may be a mistake: neither may turn into a walk through the disk.
#pragma once

#include <set>
#include <string>
#include <vector>

class LibraryWalk {
public:
    explicit LibraryWalk(const std::wstring& root);
    struct Folder {
        std::wstring name, path;
        bool goesDown = true; // its own folders are listed too
    };
    // The folders in a folder of the library, in the order of the search; none for a library that is not set. Each
    // may be asked for once.
    std::vector<Folder> foldersOf(const std::wstring& folder);
    // Whether there were more folders than any library has, and the rest was left out.
    bool wasCutShort() const { return mListed > kMostFolders; }

private:
    static constexpr int kMostFolders = 5000;
    bool leadsElsewhere(const std::wstring& link);
    std::wstring mRoot; // its real path
    std::set<std::wstring> mLinked;
    int mListed = 0;
};
