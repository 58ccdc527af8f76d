#include "session/SafeFile.h"

#include "AcFileUse.h"
#include "AcPath.h"
#include "store/StoreTable.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace odbc {

namespace {
// NAME.mdb.korvant-PID.tmp: a name that nobody else gives to a file of his.
constexpr const char* kFreshMark = ".korvant-";
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
        throw StoreError("A fájl nem létezik: \"" + shown + "\".");
    case EACCES:
    case EPERM:
        throw StoreError("Nincs jog a fájl olvasásához: \"" + shown + "\".");
    default:
        throw StoreError("A fájl nem nyitható meg: \"" + shown + "\".");
    }
}

[[noreturn]] void refuseWrite(const std::string& shown, int error) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        throw StoreError("A fájl nem írható, mert a lemez megtelt: \"" + shown + "\".");
    case EACCES:
    case EPERM:
    case EROFS:
        throw StoreError("A fájl nem írható, mert nincs jog a mappájához: \"" + shown + "\".");
    default:
        throw StoreError("A fájl nem írható: \"" + shown + "\".");
    }
}

[[noreturn]] void refuseInUse(const std::string& shown) {
    throw StoreError("A fájl használatban van, ebben a programban vagy egy másikban nyitva áll: \"" + shown + "\".");
}

[[noreturn]] void refuseChanged(const std::string& shown) {
    throw StoreError("A fájlt közben egy másik program megváltoztatta, ezért az ő változata maradt meg: \"" + shown + "\".");
}
} // namespace

LockedFile::LockedFile(const std::string& path, const std::string& shown, bool forWriting) : mPath(path) {
    if (forWriting && acOpenInAccess(behindLinks(path)))
        refuseInUse(shown);
    for (;;) {
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0)
            refuseOpen(shown, errno);
        if (!S_ISREG(status.st_mode))
            throw StoreError(std::string(S_ISDIR(status.st_mode) ? "Ez mappa, nem adatbázis: \"" : "Ez nem fájl: \"") + shown + "\".");
        // An exclusive lock wants a descriptor that may write, on NFS.
        mFile = ::open(path.c_str(), (forWriting ? O_RDWR : O_RDONLY) | O_CLOEXEC);
        if (mFile < 0)
            refuseOpen(shown, errno);
        const bool locked = acLockFile(mFile, forWriting ? AcFileLock::Exclusive : AcFileLock::Shared);
        struct stat opened {};
        ::fstat(mFile, &opened);
        mStamp = FileStamp::of(opened);
        // Whoever held the lock may have put a new file in the place of this one.
        if (::stat(path.c_str(), &status) == 0 && mStamp.sameFile(FileStamp::of(status))) {
            if (locked)
                return;
            ::close(mFile);
            refuseInUse(shown);
        }
        ::close(mFile);
    }
}

LockedFile::~LockedFile() {
    ::close(mFile);
}

bool LockedFile::unchanged() const {
    struct stat status {};
    return ::stat(mPath.c_str(), &status) == 0 && FileStamp::of(status) == mStamp;
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
    : mTarget(behindLinks(path)), mFresh(mTarget + kFreshMark + std::to_string(::getpid()) + kFreshEnding), mShown(std::move(shown)) {
    ::unlink(mFresh.c_str());
    mFile = ::open(mFresh.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (mFile < 0)
        refuseWrite(mShown, errno);
    acLockFile(mFile, AcFileLock::Exclusive); // tells others that it is no leftover
}

ReplacingFile::~ReplacingFile() {
    if (!mCommitted)
        ::unlink(mFresh.c_str());
    ::close(mFile);
}

void ReplacingFile::commit(const LockedFile* opened) {
    struct stat old {};
    if (opened != nullptr && ::fstat(opened->descriptor(), &old) == 0) {
        // Who may not give files away keeps at least the group; the rights come last, since a change of owner takes some.
        if (::fchown(mFile, old.st_uid, old.st_gid) != 0)
            (void)!::fchown(mFile, static_cast<uid_t>(-1), old.st_gid);
        ::fchmod(mFile, old.st_mode & 07777);
    }
    if (::fsync(mFile) != 0)
        refuseWrite(mShown, errno);
    if (acOpenInAccess(mTarget))
        refuseInUse(mShown);
    if (opened != nullptr && !opened->unchanged()) {
        if (!fileExists(folderOf(mTarget)))
            refuseWrite(mShown, ENOENT);
        refuseChanged(mShown);
    }
    int placed = 0;
    if (opened != nullptr) {
        placed = ::rename(mFresh.c_str(), mTarget.c_str());
    } else {
        placed = ::renameat2(AT_FDCWD, mFresh.c_str(), AT_FDCWD, mTarget.c_str(), RENAME_NOREPLACE);
        if (placed != 0 && errno == EINVAL) // a file system that cannot tell
            placed = fileExists(mTarget) ? (errno = EEXIST, -1) : ::rename(mFresh.c_str(), mTarget.c_str());
        if (placed != 0 && errno == EEXIST)
            refuseChanged(mShown);
    }
    if (placed != 0)
        refuseWrite(mShown, errno);
    mCommitted = true;
    acSyncFolderOf(mTarget);
}

void ReplacingFile::removeLeftovers(const std::string& path) {
    const std::string target = behindLinks(path);
    const std::string name = target.substr(target.rfind('/') + 1) + kFreshMark;
    const std::string ending = kFreshEnding;
    std::error_code fault; // what cannot be listed or removed does no harm
    for (std::filesystem::directory_iterator at(folderOf(target), fault), end; !fault && at != end; at.increment(fault)) {
        const std::string file = at->path().filename().string();
        if (file.size() <= name.size() + ending.size() || !file.starts_with(name) || !file.ends_with(ending))
            continue;
        const std::string middle = file.substr(name.size(), file.size() - name.size() - ending.size());
        if (middle.find_first_not_of("0123456789") == std::string::npos && !acFileInUse(at->path().string()))
            ::unlink(at->path().c_str());
    }
}

} // namespace odbc
