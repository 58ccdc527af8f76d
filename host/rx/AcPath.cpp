// Mapping of host paths: exact name first, then each part without regard to case.
#include "AcPath.h"

#include "AcUtText.h"

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {
bool exists(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0;
}

// The entry of the folder that equals the name but for case; the first by code order where
// several do, so that the answer does not depend on the folder's own order.
std::string sameButForCase(const std::string& folder, const std::string& name) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir(folder.empty() ? "." : folder.c_str()), ::closedir);
    if (!open)
        return {};
    const std::wstring wanted = acFromUtf8(name);
    std::string found;
    while (const dirent* entry = ::readdir(open.get())) {
        const std::string candidate = entry->d_name;
        if (acutWcsicmp(acFromUtf8(candidate).c_str(), wanted.c_str()) == 0 && (found.empty() || candidate < found))
            found = candidate;
    }
    return found;
}
} // namespace

std::string acFileSystemPath(std::wstring_view hostPath) {
    std::string path = acToUtf8(hostPath);
    std::replace(path.begin(), path.end(), '\\', '/');
    if (path.empty() || exists(path))
        return path;
    std::string done = path.front() == '/' ? "/" : "";
    std::size_t at = done.size();
    while (at < path.size()) {
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string part = path.substr(at, end - at);
        at = end + 1;
        if (part.empty())
            continue;
        const std::string exact = done + part;
        const std::string other = exists(exact) ? std::string() : sameButForCase(done, part);
        done += other.empty() ? part : other;
        if (end < path.size())
            done += '/';
    }
    return done;
}

std::wstring acHostPath(std::string_view fileSystemPath) {
    std::wstring path = acFromUtf8(fileSystemPath);
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

std::wstring acFileName(std::wstring_view hostPath) {
    return std::wstring(hostPath.substr(hostPath.find_last_of(L"\\/") + 1)); // npos + 1 is 0
}

void acSyncFolderOf(const std::string& fileSystemPath) {
    const std::size_t slash = fileSystemPath.rfind('/');
    const std::string name = slash == std::string::npos ? "." : fileSystemPath.substr(0, slash + 1);
    const int folder = ::open(name.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}
