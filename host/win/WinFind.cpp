// The file search: one listing, sorted, handed out name by name.
#include "AcPath.h"
#include "AcUtText.h"
#include "WinError.h"

#include <algorithm>
#include <cerrno>
#include <cwctype>
#include <dirent.h>
#include <memory>
#include <sys/stat.h>
#include <vector>

namespace {
struct Search {
    std::vector<WIN32_FIND_DATAW> found;
    std::size_t next = 0;
};

bool sameLetter(wchar_t a, wchar_t b) {
    return std::towlower(static_cast<wint_t>(a)) == std::towlower(static_cast<wint_t>(b));
}

// "*" is any run, "?" any one character. Going back to the last "*" only keeps it linear enough.
bool matches(const std::wstring& name, const std::wstring& mask) {
    std::size_t n = 0, m = 0, star = std::wstring::npos, resume = 0;
    while (n < name.size()) {
        if (m < mask.size() && (mask[m] == L'?' || (mask[m] != L'*' && sameLetter(mask[m], name[n])))) {
            ++n, ++m;
        } else if (m < mask.size() && mask[m] == L'*') {
            star = m++;
            resume = n;
        } else if (star != std::wstring::npos) {
            m = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (m < mask.size() && mask[m] == L'*')
        ++m;
    return m == mask.size();
}

bool describe(const std::string& folder, const std::string& name, WIN32_FIND_DATAW& data) {
    struct stat status = {}, entry = {};
    const std::wstring wide = acFromUtf8(name);
    const std::string path = folder + "/" + name;
    if (wide.size() >= MAX_PATH || stat(path.c_str(), &status) != 0 || lstat(path.c_str(), &entry) != 0)
        return false;
    data.dwFileAttributes = S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
    if (S_ISDIR(status.st_mode) && S_ISLNK(entry.st_mode))
        data.dwFileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
    data.fileSize = static_cast<std::uint64_t>(status.st_size);
    data.lastWriteTime = status.st_mtime;
    wide.copy(data.cFileName, wide.size());
    return true;
}

bool comesBefore(const WIN32_FIND_DATAW& a, const WIN32_FIND_DATAW& b) {
    const bool dotsA = wcscmp(a.cFileName, L".") == 0 || wcscmp(a.cFileName, L"..") == 0;
    const bool dotsB = wcscmp(b.cFileName, L".") == 0 || wcscmp(b.cFileName, L"..") == 0;
    if (dotsA != dotsB)
        return dotsA;
    const int order = acutWcsicmp(a.cFileName, b.cFileName);
    return order != 0 ? order < 0 : wcscmp(a.cFileName, b.cFileName) < 0;
}

std::vector<WIN32_FIND_DATAW> list(DIR* folder, const std::string& path, const std::wstring& mask) {
    std::vector<WIN32_FIND_DATAW> found;
    while (const dirent* entry = readdir(folder)) {
        WIN32_FIND_DATAW data;
        if (matches(acFromUtf8(entry->d_name), mask) && describe(path, entry->d_name, data))
            found.push_back(data);
    }
    std::sort(found.begin(), found.end(), comesBefore);
    return found;
}
} // namespace

HANDLE FindFirstFileW(LPCWSTR mask, WIN32_FIND_DATAW* data) {
    const std::wstring whole = mask == nullptr ? L"" : mask;
    const std::size_t cut = whole.find_last_of(L"\\/");
    std::wstring name = cut == std::wstring::npos ? whole : whole.substr(cut + 1);
    if (name == L"*.*")
        name = L"*"; // by tradition also the names without a dot
    const std::wstring folder = cut == std::wstring::npos ? L"." : cut == 0 ? L"\\" : whole.substr(0, cut);
    const std::string path = winFileSystemPath(folder.c_str());
    DIR* listing = opendir(path.c_str());
    if (listing == nullptr) {
        SetLastError(errno == EACCES ? ERROR_ACCESS_DENIED : ERROR_PATH_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    auto search = std::make_unique<Search>();
    search->found = list(listing, path, name);
    closedir(listing);
    if (search->found.empty()) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    *data = search->found[search->next++];
    SetLastError(ERROR_SUCCESS);
    return search.release(); // FindClose takes it back
}

BOOL FindNextFileW(HANDLE handle, WIN32_FIND_DATAW* data) {
    auto* search = static_cast<Search*>(handle);
    if (handle == INVALID_HANDLE_VALUE || search == nullptr || search->next >= search->found.size()) {
        SetLastError(ERROR_NO_MORE_FILES);
        return FALSE;
    }
    *data = search->found[search->next++];
    return TRUE;
}

BOOL FindClose(HANDLE handle) {
    if (handle == INVALID_HANDLE_VALUE || handle == nullptr)
        return FALSE;
    delete static_cast<Search*>(handle);
    return TRUE;
}
