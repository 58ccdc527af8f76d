#include "DbPath.h"

#include "AcUtText.h"

#include <algorithm>

#include <dirent.h>
#include <sys/stat.h>

namespace {
bool exists(const std::wstring& path, bool asFile) {
    struct stat info {};
    if (stat(path.empty() ? "." : acToUtf8(path).c_str(), &info) != 0)
        return false;
    return asFile ? S_ISREG(info.st_mode) : S_ISDIR(info.st_mode);
}
// The first name of the folder that equals the wanted one but for case, in order of code values, so
// that the choice is the same on every run.
std::wstring matchInFolder(const std::wstring& folder, const std::wstring& wanted) {
    DIR* const open = opendir(folder.empty() ? "." : acToUtf8(folder).c_str());
    if (open == nullptr)
        return {};
    std::wstring best;
    while (const dirent* const entry = readdir(open)) {
        const std::wstring name = acFromUtf8(entry->d_name);
        if (acutWcsicmp(name.c_str(), wanted.c_str()) == 0 && (best.empty() || name < best))
            best = name;
    }
    closedir(open);
    return best;
}
} // namespace

std::wstring dbHostPath(std::wstring path) {
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}
std::wstring dbFolderOf(const std::wstring& path) {
    const std::size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash);
}

std::wstring dbExistingFile(const std::wstring& given) {
    std::wstring path = given;
    std::replace(path.begin(), path.end(), L'\\', L'/');
    if (exists(path, true))
        return path;
    std::wstring found;
    for (std::size_t at = 0; at < path.size();) {
        std::size_t end = path.find(L'/', at);
        end = end == std::wstring::npos ? path.size() : end;
        const std::wstring part = path.substr(at, end - at);
        const bool last = end == path.size();
        if (!part.empty() && part != L"." && part != L"..") {
            const std::wstring exact = found + part;
            const std::wstring match = exists(exact, last) ? part : matchInFolder(found, part);
            if (match.empty())
                return {};
            found += match;
        } else {
            found += part;
        }
        if (!last)
            found += L'/';
        at = end + 1;
    }
    return exists(found, true) ? found : std::wstring();
}
