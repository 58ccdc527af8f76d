// Files of the user's: locked while they are open, and replaced in one step.
#pragma once

#include <cstdint>
#include <string>
#include <sys/stat.h>

namespace odbc {

// Paths are file-system paths in UTF-8; `shown` is how messages call the file.

// A file as it stood at a moment; another program's change shows in it.
struct FileStamp {
    dev_t device = 0;
    ino_t number = 0;
    off_t size = 0;
    timespec changed{};
    static FileStamp of(const struct stat& status) { return {status.st_dev, status.st_ino, status.st_size, status.st_mtim}; }
    bool sameFile(const FileStamp& other) const { return device == other.device && number == other.number; }
    friend bool operator==(const FileStamp& a, const FileStamp& b) {
        return a.sameFile(b) && a.size == b.size && a.changed.tv_sec == b.changed.tv_sec && a.changed.tv_nsec == b.changed.tv_nsec;
    }
};

// The user's file, open and locked. The lock is on the file itself: it ends with the process, however that
// ends, and leaves nothing behind. One who writes keeps everyone else out, readers keep only writers out.
// StoreError: another holder in this process or another, Access (its .ldb stands beside, which keeps a writer out),
// a file that is missing, is no file or cannot be read.
class LockedFile {
public:
    LockedFile(const std::string& path, const std::string& shown, bool forWriting);
    LockedFile(const LockedFile&) = delete;
    LockedFile& operator=(const LockedFile&) = delete;
    ~LockedFile();

    // All reading goes through it: on some network drives a lock keeps even our own other descriptors out.
    int descriptor() const { return mFile; }
    // Whether under the path there still stands what was opened, as it was.
    bool unchanged() const;

private:
    std::string mPath;
    FileStamp mStamp;
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

    // Open for writing, locked, and empty.
    int descriptor() const { return mFile; }
    const std::string& path() const { return mFresh; }
    // On the disk before it takes the old one's name: at any moment one of them stands whole. `opened`: what is
    // replaced, which must still be as it was; null where nothing stood there, and nothing may stand there now.
    void commit(const LockedFile* opened);
    // Removes what a process that was killed between the two left beside the file.
    static void removeLeftovers(const std::string& path);

private:
    std::string mTarget, mFresh, mShown;
    int mFile = -1;
    bool mCommitted = false;
};

} // namespace odbc
