#include "AcFileUse.h"

#include "AcPath.h"
#include "AcUtText.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

bool acLockFile(int descriptor, AcFileLock lock) {
    const int kind = lock == AcFileLock::Shared ? LOCK_SH : LOCK_EX;
    int result = 0;
    do
        result = ::flock(descriptor, kind | LOCK_NB);
    while (result != 0 && errno == EINTR);
    return result == 0 || errno != EWOULDBLOCK;
}

bool acOpenInAccess(const std::string& fileSystemPath) {
    constexpr std::size_t kEnding = 4;
    std::wstring path = acFromUtf8(fileSystemPath);
    if (path.size() < kEnding || acutWcsicmp(path.c_str() + path.size() - kEnding, L".mdb") != 0)
        return false;
    path.replace(path.size() - kEnding, kEnding, L".ldb");
    struct stat status {};
    return ::stat(acFileSystemPath(path).c_str(), &status) == 0;
}

bool acFileInUse(const std::string& fileSystemPath) {
    struct stat status {};
    if (::stat(fileSystemPath.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    if (acOpenInAccess(fileSystemPath))
        return true;
    const int file = ::open(fileSystemPath.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false; // whoever wants to change it will be told why he cannot
    const bool locked = !acLockFile(file, AcFileLock::Exclusive);
    ::close(file);
    return locked;
}
