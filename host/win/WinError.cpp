#include "WinError.h"

#include "AcPath.h"

#include <cerrno>
#include <sys/stat.h>

namespace {
thread_local DWORD gLastError = ERROR_SUCCESS;

bool isFolder(const std::string& path) {
    struct stat status = {};
    return stat(path.empty() ? "." : path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

DWORD absentError(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ERROR_FILE_NOT_FOUND;
    return isFolder(slash == 0 ? "/" : path.substr(0, slash)) ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}
} // namespace

DWORD GetLastError() {
    return gLastError;
}

void SetLastError(DWORD code) {
    gLastError = code;
}

void winSetErrorFor(const std::string& path, int errorNumber) {
    switch (errorNumber) {
    case 0: gLastError = ERROR_SUCCESS; return;
    case ENOENT: gLastError = absentError(path); return;
    case ENOTDIR: gLastError = ERROR_PATH_NOT_FOUND; return;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENOTEMPTY: gLastError = ERROR_ACCESS_DENIED; return;
    case EEXIST: gLastError = ERROR_ALREADY_EXISTS; return;
    case EINVAL:
    case ENAMETOOLONG:
    case ELOOP: gLastError = ERROR_INVALID_PARAMETER; return;
    default: gLastError = ERROR_WRITE_FAULT; return; // the medium failed or is full
    }
}

std::string winFileSystemPath(LPCWSTR path) {
    std::string mapped = acFileSystemPath(path == nullptr ? L"" : path);
    while (mapped.size() > 1 && mapped.back() == '/')
        mapped.pop_back();
    return mapped;
}
