#include "session/SafeFile.h"

#include "AcPath.h"
#include "store/StoreTable.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace odbc {

namespace {
constexpr const char* kFreshEnding = ".tmp";

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

std::string behindLinks(const std::string& path) {
    char* const real = ::realpath(path.c_str(), nullptr);
    if (real == nullptr)
        return path; // it does not stand yet
    std::string result = real;
    std::free(real);
    return result;
}

[[noreturn]] void refuseOpen(const std::string& shown, int error) {
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        throw StoreError("The file \"" + shown + "\" does not exist.");
    case EACCES:
    case EPERM:
        throw StoreError("You have no right to read the file \"" + shown + "\".");
    default:
        throw StoreError("The file \"" + shown + "\" cannot be opened.");
    }
}

[[noreturn]] void refuseWrite(const std::string& shown, int error) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        throw StoreError("The file \"" + shown + "\" cannot be written: the disk is full.");
    case EACCES:
    case EPERM:
    case EROFS:
        throw StoreError("The file \"" + shown + "\" cannot be written: you have no right to change its folder.");
    default:
        throw StoreError("The file \"" + shown + "\" cannot be written.");
    }
}

bool sameFile(int file, const std::string& path) {
    struct stat opened {}, named {};
    return ::fstat(file, &opened) == 0 && ::stat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}
} // namespace

FileLock::FileLock(const std::string& path, const std::string& shown) {
    for (;;) {
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0)
            refuseOpen(shown, errno);
        if (!S_ISREG(status.st_mode))
            throw StoreError("\"" + shown + (S_ISDIR(status.st_mode) ? "\" is a folder, no database." : "\" is no file."));
        mFile = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (mFile < 0)
            refuseOpen(shown, errno);
        const bool locked = ::flock(mFile, LOCK_EX | LOCK_NB) == 0;
        // Whoever held the lock may have put a new file in the place of this one.
        if (sameFile(mFile, path)) {
            if (locked)
                return;
            ::close(mFile);
            throw StoreError("The file \"" + shown + "\" is in use: it is open in this program or another one.");
        }
        ::close(mFile);
    }
}

FileLock::~FileLock() {
    ::close(mFile);
}

bool fileExists(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

bool mayReplace(const std::string& path) {
    const std::string target = behindLinks(path);
    return (!fileExists(target) || ::access(target.c_str(), W_OK) == 0) && ::access(folderOf(target).c_str(), W_OK | X_OK) == 0;
}

ReplacingFile::ReplacingFile(const std::string& path, std::string shown)
    : mTarget(behindLinks(path)), mFresh(mTarget + "." + std::to_string(::getpid()) + kFreshEnding), mShown(std::move(shown)) {
    ::unlink(mFresh.c_str());
    // Made here, so that a folder without rights is told as what it is.
    const int file = ::open(mFresh.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0)
        refuseWrite(mShown, errno);
    ::close(file);
}

ReplacingFile::~ReplacingFile() {
    if (!mCommitted)
        ::unlink(mFresh.c_str());
}

void ReplacingFile::commit() {
    const int file = ::open(mFresh.c_str(), O_RDWR | O_CLOEXEC);
    if (file < 0)
        refuseWrite(mShown, errno);
    struct stat old {};
    if (::stat(mTarget.c_str(), &old) == 0)
        ::fchmod(file, old.st_mode & 07777);
    const int synced = ::fsync(file) == 0 ? 0 : errno;
    const int closed = ::close(file) == 0 ? 0 : errno;
    if (synced != 0 || closed != 0)
        refuseWrite(mShown, synced != 0 ? synced : closed);
    if (std::rename(mFresh.c_str(), mTarget.c_str()) != 0)
        refuseWrite(mShown, errno);
    mCommitted = true;
    acSyncFolderOf(mTarget);
}

void ReplacingFile::removeLeftovers(const std::string& path) {
    const std::string target = behindLinks(path);
    const std::string name = target.substr(target.rfind('/') + 1) + ".";
    const std::string ending = kFreshEnding;
    std::error_code fault; // what cannot be listed or removed does no harm
    for (std::filesystem::directory_iterator at(folderOf(target), fault), end; !fault && at != end; at.increment(fault)) {
        const std::string file = at->path().filename().string();
        if (file.size() <= name.size() + ending.size() || !file.starts_with(name) || !file.ends_with(ending))
            continue;
        const std::string middle = file.substr(name.size(), file.size() - name.size() - ending.size());
        if (middle.find_first_not_of("0123456789") == std::string::npos)
            ::unlink(at->path().c_str());
    }
}

} // namespace odbc
