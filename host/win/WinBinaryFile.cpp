#include "WinBinaryFile.h"

#include "WinError.h"

#include <cerrno>
#include <cstdio>
#include <sys/stat.h>

struct WinBinaryFile::Impl {
    std::FILE* file = nullptr;
};

WinBinaryFile::WinBinaryFile() : mImpl(std::make_unique<Impl>()) {}

WinBinaryFile::~WinBinaryFile() {
    close();
}

bool WinBinaryFile::open(LPCWSTR path, LPCWSTR mode) {
    close();
    const std::wstring wanted = mode == nullptr ? L"" : mode;
    if (wanted != L"rb" && wanted != L"wb") {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    const std::string file = winFileSystemPath(path);
    struct stat status = {};
    if (stat(file.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) { // it would open for reading
        SetLastError(ERROR_ACCESS_DENIED);
        return false;
    }
    mImpl->file = std::fopen(file.c_str(), wanted == L"rb" ? "rb" : "wb");
    winSetErrorFor(file, mImpl->file == nullptr ? errno : 0);
    return mImpl->file != nullptr;
}

bool WinBinaryFile::isOpen() const {
    return mImpl->file != nullptr;
}

bool WinBinaryFile::seek(long offset, Origin origin) {
    static constexpr int kOrigins[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    return isOpen() && std::fseek(mImpl->file, offset, kOrigins[origin]) == 0;
}

long WinBinaryFile::tell() const {
    return isOpen() ? std::ftell(mImpl->file) : -1;
}

std::size_t WinBinaryFile::read(void* bytes, std::size_t count) {
    return isOpen() ? std::fread(bytes, 1, count, mImpl->file) : 0;
}

std::size_t WinBinaryFile::write(const void* bytes, std::size_t count) {
    return isOpen() ? std::fwrite(bytes, 1, count, mImpl->file) : 0;
}

bool WinBinaryFile::close() {
    if (!isOpen())
        return true;
    const bool isWhole = std::ferror(mImpl->file) == 0;
    const bool isClosed = std::fclose(mImpl->file) == 0;
    mImpl->file = nullptr;
    return isWhole && isClosed;
}

bool winReadFile(LPCWSTR path, std::string& bytes) {
    WinBinaryFile file;
    bytes.clear();
    if (!file.open(path, L"rb"))
        return false;
    char piece[1 << 14];
    while (const std::size_t count = file.read(piece, sizeof piece))
        bytes.append(piece, count);
    return file.close();
}
