// Putting a new file in the place of an old one.
#include "DwgWriter.h"

#include "AcPath.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
bool writeAll(int file, const std::vector<Adesk::UInt8>& bytes) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t count = ::write(file, bytes.data() + done, bytes.size() - done);
        if (count < 0 && errno != EINTR)
            return false;
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return ::fsync(file) == 0;
}
// drawing.dwg becomes drawing.bak; another ending is kept before it.
std::string backupOf(const std::string& path) {
    const std::size_t dot = path.size() < 4 ? 0 : path.size() - 4;
    const std::string ending = path.substr(dot);
    const bool drawing = ending.size() == 4 && ending[0] == '.' && (ending[1] | 0x20) == 'd' && (ending[2] | 0x20) == 'w' && (ending[3] | 0x20) == 'g';
    return (drawing ? path.substr(0, dot) : path) + ".bak";
}
} // namespace

bool dwgReplaceFile(const std::string& path, const std::vector<Adesk::UInt8>& bytes, DwgError& error) {
    const std::string fresh = path + "." + std::to_string(::getpid()) + ".tmp";
    const int file = ::open(fresh.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0)
        return error.set(Acad::eFileAccessErr, L"The drawing cannot be saved: its folder is missing or cannot be written.");
    const bool written = writeAll(file, bytes);
    if (::close(file) != 0 || !written) {
        ::unlink(fresh.c_str());
        return error.set(Acad::eFileAccessErr, L"The drawing cannot be saved: the disk is full or fails.");
    }
    struct stat old {};
    if (::stat(path.c_str(), &old) == 0) {
        ::chmod(fresh.c_str(), old.st_mode & 07777);
        const std::string backup = backupOf(path);
        ::unlink(backup.c_str());
        // A second name for the old file: the path itself is never without a file. Where the file
        // system has no second names the old file is moved.
        if (::link(path.c_str(), backup.c_str()) != 0)
            std::rename(path.c_str(), backup.c_str());
    }
    if (std::rename(fresh.c_str(), path.c_str()) != 0) {
        ::unlink(fresh.c_str());
        return error.set(Acad::eFileAccessErr, L"The drawing cannot be saved: the file cannot be replaced.");
    }
    acSyncFolderOf(path);
    return true;
}
