// Files of the user's: locked while they are open, and replaced in one step.
#pragma once

#include <string>
#include <sys/types.h>

namespace odbc {

// Paths are file-system paths in UTF-8; `shown` is how messages call the file.

// An advisory lock on the file itself: it ends with the process, however that ends, and leaves nothing
// behind. Another holder, in this process or another, is a StoreError, as is a file that is missing,
// is no file or cannot be read.
class FileLock {
public:
    FileLock(const std::string& path, const std::string& shown);
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    ~FileLock();

private:
    int mFile = -1;
};

bool fileExists(const std::string& path);
// Whether its folder and, where it stands, the file can be written: both are when it is replaced.
bool mayReplace(const std::string& path);

// A new file beside an old one, in whose place it is put by commit. Destroyed without, it goes.
class ReplacingFile {
public:
    // Where `path` is a link, what it points to is replaced.
    ReplacingFile(const std::string& path, std::string shown);
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;
    ~ReplacingFile();

    // To be written, then closed.
    const std::string& path() const { return mFresh; }
    // On the disk before it takes the old one's name: at any moment one of them stands whole.
    void commit();
    // Removes what a process that was killed between the two left beside the file.
    static void removeLeftovers(const std::string& path);

private:
    std::string mTarget, mFresh, mShown;
    bool mCommitted = false;
};

} // namespace odbc
