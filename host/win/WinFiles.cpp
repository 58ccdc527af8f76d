#include "WinFiles.h"

#include "AcFileUse.h"
#include "AcPath.h"
#include "WinError.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {
BOOL succeed(const std::string& path, int result) {
    winSetErrorFor(path, result == 0 ? 0 : errno);
    return result == 0 ? TRUE : FALSE;
}

bool isHidden(const std::string& path) {
    const std::size_t name = path.rfind('/') + 1; // npos + 1 is 0
    return name < path.size() && path[name] == '.';
}

// The buffer rule of the API: the length without the end, or the size needed with it.
DWORD giveText(const std::wstring& text, DWORD size, LPWSTR buffer) {
    if (buffer == nullptr || size < text.size() + 1)
        return static_cast<DWORD>(text.size() + 1);
    text.copy(buffer, text.size());
    buffer[text.size()] = 0;
    return static_cast<DWORD>(text.size());
}

std::wstring currentFolder() {
    char* folder = getcwd(nullptr, 0);
    if (folder == nullptr)
        return L"\\";
    const std::wstring path = acHostPath(folder);
    free(folder);
    return path;
}

// Splits at both kinds of slash and resolves "." and "..".
std::vector<std::wstring> cleanParts(const std::wstring& path) {
    std::vector<std::wstring> parts;
    std::size_t at = 0;
    while (at <= path.size()) {
        std::size_t end = path.find_first_of(L"\\/", at);
        if (end == std::wstring::npos)
            end = path.size();
        std::wstring part = path.substr(at, end - at);
        at = end + 1;
        if (part == L"..") {
            if (!parts.empty())
                parts.pop_back();
        } else if (!part.empty() && part != L".") {
            parts.push_back(std::move(part));
        }
    }
    return parts;
}

std::wstring fullPath(std::wstring path) {
    std::wstring root = L"\\";
    if (path.size() >= 2 && path[1] == L':') { // a path from a machine with drive letters stays what it is
        root = path.substr(0, 2) + L"\\";
        path.erase(0, 2);
    } else if (path.empty() || (path[0] != L'\\' && path[0] != L'/')) {
        path = currentFolder() + L"\\" + path;
    }
    const bool isFolder = !path.empty() && (path.back() == L'\\' || path.back() == L'/');
    std::wstring full = root;
    for (const std::wstring& part : cleanParts(path))
        full += (full.back() == L'\\' ? L"" : L"\\") + part;
    if (isFolder && full.back() != L'\\')
        full += L'\\';
    return full;
}

// A file that somebody has open is neither replaced, moved nor deleted, as on Windows.
bool refuseInUse(const std::string& path) {
    const bool used = acFileInUse(path);
    if (used)
        SetLastError(ERROR_SHARING_VIOLATION);
    return used;
}

class Descriptor { // a file descriptor closed at the end of its scope
public:
    explicit Descriptor(int fd) : mFd(fd) {}
    ~Descriptor() { if (mFd >= 0) close(mFd); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    operator int() const { return mFd; }

private:
    int mFd;
};

bool writeAll(int fd, const char* bytes, ssize_t count) {
    while (count > 0) {
        const ssize_t written = write(fd, bytes, static_cast<std::size_t>(count));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        bytes += written;
        count -= written;
    }
    return true;
}

bool copyBytes(int from, int to) {
    std::vector<char> buffer(1 << 16);
    for (;;) {
        const ssize_t count = read(from, buffer.data(), buffer.size());
        if (count == 0)
            return true;
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 || !writeAll(to, buffer.data(), count))
            return false;
    }
}
} // namespace

DWORD GetFileAttributesW(LPCWSTR path) {
    const std::string file = winFileSystemPath(path);
    struct stat status = {};
    if (!succeed(file, stat(file.c_str(), &status)))
        return INVALID_FILE_ATTRIBUTES;
    DWORD attributes = S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : 0;
    if ((status.st_mode & 0222) == 0)
        attributes |= FILE_ATTRIBUTE_READONLY;
    if (isHidden(file))
        attributes |= FILE_ATTRIBUTE_HIDDEN;
    return attributes == 0 ? FILE_ATTRIBUTE_NORMAL : attributes;
}

BOOL CreateDirectoryW(LPCWSTR path, void*) {
    const std::string folder = winFileSystemPath(path);
    if (mkdir(folder.c_str(), 0777) == 0)
        return succeed(folder, 0);
    winSetErrorFor(folder, errno);
    if (GetLastError() == ERROR_FILE_NOT_FOUND) // an empty name, since the parent stands
        SetLastError(ERROR_PATH_NOT_FOUND);
    return FALSE;
}

BOOL RemoveDirectoryW(LPCWSTR path) {
    const std::string folder = winFileSystemPath(path);
    return succeed(folder, rmdir(folder.c_str()));
}

BOOL CopyFileW(LPCWSTR from, LPCWSTR to, BOOL failIfExists) {
    const std::string source = winFileSystemPath(from), target = winFileSystemPath(to);
    const Descriptor input(open(source.c_str(), O_RDONLY | O_CLOEXEC));
    struct stat status = {};
    if (input < 0 || fstat(input, &status) != 0)
        return succeed(source, -1);
    struct stat present = {};
    if (stat(target.c_str(), &present) == 0 && present.st_dev == status.st_dev && present.st_ino == status.st_ino) {
        SetLastError(ERROR_ACCESS_DENIED); // truncating the target would destroy the source
        return FALSE;
    }
    if (!failIfExists && refuseInUse(target))
        return FALSE;
    const int exclusive = failIfExists ? O_EXCL : 0;
    const Descriptor output(open(target.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | exclusive, status.st_mode & 0777));
    if (output < 0) {
        winSetErrorFor(target, errno);
        if (GetLastError() == ERROR_ALREADY_EXISTS)
            SetLastError(ERROR_FILE_EXISTS);
        return FALSE;
    }
    return succeed(target, copyBytes(input, output) ? 0 : -1);
}

BOOL MoveFileW(LPCWSTR from, LPCWSTR to) {
    const std::string source = winFileSystemPath(from), target = winFileSystemPath(to);
    struct stat status = {};
    if (source != target && stat(target.c_str(), &status) == 0) {
        SetLastError(ERROR_ALREADY_EXISTS);
        return FALSE;
    }
    if (refuseInUse(source))
        return FALSE;
    return succeed(source, rename(source.c_str(), target.c_str()));
}

BOOL DeleteFileW(LPCWSTR path) {
    const std::string file = winFileSystemPath(path);
    if (refuseInUse(file))
        return FALSE;
    return succeed(file, unlink(file.c_str()));
}

DWORD GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* namePart) {
    const std::wstring full = fullPath(path == nullptr ? L"" : path);
    const DWORD length = giveText(full, size, buffer);
    if (namePart != nullptr) {
        const std::size_t name = full.rfind(L'\\') + 1;
        *namePart = length == full.size() && name < full.size() ? buffer + name : nullptr;
    }
    return length;
}

DWORD GetTempPathW(DWORD size, LPWSTR buffer) {
    const char* folder = getenv("TMPDIR");
    return giveText(acHostPath(folder == nullptr || *folder == 0 ? "/tmp" : folder) + L"\\", size, buffer);
}

DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer) {
    return giveText(currentFolder(), size, buffer);
}

std::wstring winRealPath(LPCWSTR path) {
    const std::string file = winFileSystemPath(path);
    const std::unique_ptr<char, void (*)(void*)> real(realpath(file.c_str(), nullptr), std::free);
    return succeed(file, real != nullptr ? 0 : -1) ? acHostPath(real.get()) : std::wstring();
}

bool winFileStatus(LPCWSTR path, WinFileStatus& status) {
    const std::string file = winFileSystemPath(path);
    struct stat found = {};
    if (!succeed(file, stat(file.c_str(), &found)))
        return false;
    status.length = static_cast<std::uint64_t>(found.st_size);
    status.modified = found.st_mtime;
    localtime_r(&found.st_mtime, &status.modifiedLocal);
    status.isFolder = S_ISDIR(found.st_mode);
    return true;
}

std::wstring winFormatTime(LPCWSTR format, const std::tm& time) {
    std::vector<wchar_t> text(128);
    // An empty format gives 0 as well as a buffer that is too small, so growing has an end.
    while (text.size() < 4096) {
        const std::size_t length = wcsftime(text.data(), text.size(), format, &time);
        if (length > 0 || *format == 0)
            return std::wstring(text.data(), length);
        text.resize(text.size() * 2);
    }
    return {};
}
