// The bytes of a file, opened by host path.
#pragma once

#include "WinTypes.h"

#include <memory>
#include <string>

class WinBinaryFile {
public:
    WinBinaryFile();
    ~WinBinaryFile(); // closes
    WinBinaryFile(const WinBinaryFile&) = delete;
    WinBinaryFile& operator=(const WinBinaryFile&) = delete;

    // mode: "rb" or "wb" (replaces). False, with GetLastError, where it cannot be opened.
    bool open(LPCWSTR path, LPCWSTR mode);
    bool isOpen() const;
    enum Origin { kSet = 0, kCurrent = 1, kEnd = 2 }; // SEEK_SET, SEEK_CUR, SEEK_END
    bool seek(long offset, Origin origin);
    long tell() const; // -1 where not open
    std::size_t read(void* bytes, std::size_t count);
    std::size_t write(const void* bytes, std::size_t count);
    bool close();

private:
    struct Impl;
    std::unique_ptr<Impl> mImpl;
};
// The whole file; false where it cannot be read.
bool winReadFile(LPCWSTR path, std::string& bytes);
