// The stream on a file.
#include "AcPath.h"
#include "WinCounted.h"
#include "WinError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
HRESULT writeError() {
    return errno == ENOSPC || errno == EDQUOT || errno == EFBIG ? STG_E_MEDIUMFULL : STG_E_WRITEFAULT;
}

class FileStream final : public WinCounted<IStream> {
public:
    FileStream(int file, bool readable, bool writable) : mFile(file), mReadable(readable), mWritable(writable) {}
    HRESULT Read(void* bytes, ULONG count, ULONG* done) override {
        ULONG total = 0;
        HRESULT result = mReadable ? S_OK : STG_E_ACCESSDENIED;
        while (result == S_OK && total < count) {
            const ssize_t part = ::read(mFile, static_cast<char*>(bytes) + total, count - total);
            if (part > 0)
                total += static_cast<ULONG>(part);
            else if (part == 0)
                result = S_FALSE;
            else if (errno != EINTR)
                result = STG_E_READFAULT;
        }
        if (done != nullptr)
            *done = total;
        return result;
    }
    HRESULT Write(const void* bytes, ULONG count, ULONG* done) override {
        ULONG total = 0;
        HRESULT result = mWritable ? S_OK : STG_E_ACCESSDENIED;
        while (result == S_OK && total < count) {
            const ssize_t part = ::write(mFile, static_cast<const char*>(bytes) + total, count - total);
            if (part >= 0)
                total += static_cast<ULONG>(part);
            else if (errno != EINTR)
                result = writeError();
        }
        if (done != nullptr)
            *done = total;
        return result;
    }
    HRESULT Seek(LARGE_INTEGER move, DWORD origin, ULARGE_INTEGER* place) override {
        if (origin > STREAM_SEEK_END)
            return STG_E_INVALIDFUNCTION;
        const int from = origin == STREAM_SEEK_SET ? SEEK_SET : origin == STREAM_SEEK_CUR ? SEEK_CUR : SEEK_END;
        const off_t now = ::lseek(mFile, static_cast<off_t>(move.QuadPart), from);
        if (now < 0)
            return STG_E_SEEKERROR;
        if (place != nullptr)
            place->QuadPart = static_cast<std::uint64_t>(now);
        return S_OK;
    }
    HRESULT SetSize(ULARGE_INTEGER size) override {
        if (!mWritable)
            return STG_E_ACCESSDENIED;
        return ::ftruncate(mFile, static_cast<off_t>(size.QuadPart)) == 0 ? S_OK : writeError();
    }
    HRESULT Commit(DWORD) override { return S_OK; } // nothing is held back here

private:
    ~FileStream() override { ::close(mFile); }
    bool answersTo(REFIID iid) const override { return iid == IID_IUnknown || iid == IID_ISequentialStream || iid == IID_IStream; }
    int mFile;
    bool mReadable, mWritable;
};
} // namespace

HRESULT SHCreateStreamOnFileW(LPCWSTR path, DWORD mode, IStream** stream) {
    if (stream == nullptr)
        return E_POINTER;
    *stream = nullptr;
    const DWORD access = mode & 3;
    if (path == nullptr || *path == 0 || access > STGM_READWRITE)
        return E_INVALIDARG;
    const std::string file = acFileSystemPath(path);
    const int flags = (access == STGM_READ ? O_RDONLY : access == STGM_WRITE ? O_WRONLY : O_RDWR) | ((mode & STGM_CREATE) != 0 ? O_CREAT | O_TRUNC : 0);
    const int opened = ::open(file.c_str(), flags | O_CLOEXEC, 0666);
    struct stat status = {};
    if (opened >= 0 && ::fstat(opened, &status) == 0 && S_ISDIR(status.st_mode)) {
        ::close(opened);
        return HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED);
    }
    if (opened < 0) {
        winSetErrorFor(file, errno);
        return HRESULT_FROM_WIN32(GetLastError());
    }
    *stream = new FileStream(opened, access != STGM_WRITE, access != STGM_READ);
    return S_OK;
}
