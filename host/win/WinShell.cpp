#include "WinShell.h"

#include "AcPath.h"
#include "AcUtText.h"
#include "WinError.h"

#include <cstdlib>
#include <cwchar>
#include <filesystem>
#include <sys/stat.h>

namespace {
constexpr INT_PTR kOpened = 33; // anything above 32 is success

bool openNothing(const std::wstring&) {
    return true;
}
WinDocumentOpener gOpener = openNothing;

std::vector<std::wstring>& opened() {
    static std::vector<std::wstring> documents;
    return documents;
}

const char* environment(const char* name) {
    const char* value = getenv(name);
    return value != nullptr && *value != 0 ? value : nullptr;
}

bool isFolder(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// A user without a folder of his own often has a home that does not exist, or the root folder.
bool isHome(const std::string& path) {
    return isFolder(path) && path.find_first_not_of('/') != std::string::npos;
}

std::string localAppDataFolder() {
    if (const char* folder = environment("KORVANT_LOCALAPPDATA"))
        return folder;
    if (const char* folder = environment("XDG_DATA_HOME"))
        return folder;
    if (const char* home = environment("HOME"); home != nullptr && isHome(home))
        return std::string(home) + "/.local/share";
    return {};
}

bool isFile(const std::string& path) {
    struct stat status = {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

void makeFolders(const std::string& path) {
    for (std::size_t slash = path.find('/', 1); slash != std::string::npos; slash = path.find('/', slash + 1))
        mkdir(path.substr(0, slash).c_str(), 0777);
    mkdir(path.c_str(), 0777); // whether it stands now is tested by the caller
}

bool isAddress(const std::wstring& file) {
    return file.find(L"://") != std::wstring::npos || file.rfind(L"mailto:", 0) == 0;
}

std::wstring topicOf(const std::wstring& address) {
    const std::size_t cut = address.find(L"::/");
    return cut == std::wstring::npos ? L"" : address.substr(cut + 3);
}
} // namespace

HRESULT SHGetFolderPathW(HWND, int folderId, HANDLE, DWORD, LPWSTR path) {
    if (path == nullptr)
        return E_FAIL;
    path[0] = 0;
    if ((folderId & 0xFF) != CSIDL_LOCAL_APPDATA)
        return E_FAIL;
    std::string folder = localAppDataFolder();
    while (!folder.empty() && folder.back() == '/')
        folder.pop_back();
    if (folder.empty())
        return HRESULT_FROM_WIN32(ERROR_ENVVAR_NOT_FOUND);
    std::error_code error;
    folder = std::filesystem::absolute(folder, error).string(); // the current folder may change
    const std::wstring text = acHostPath(folder);
    if (text.size() >= MAX_PATH)
        return HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE);
    if (!isFolder(folder))
        makeFolders(folder);
    if (!isFolder(acFileSystemPath(text))) // also one that a host path cannot name
        return HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND);
    wmemcpy(path, text.c_str(), text.size() + 1);
    return S_OK;
}

INT_PTR ShellExecuteW(HWND, LPCWSTR, LPCWSTR file, LPCWSTR, LPCWSTR, int) {
    const std::wstring document = file == nullptr ? L"" : file;
    if (!isAddress(document) && GetFileAttributesW(document.c_str()) == INVALID_FILE_ATTRIBUTES) {
        acutPrintf(L"Nem nyitható meg: %s\n", document.c_str());
        return GetLastError() == ERROR_PATH_NOT_FOUND ? 3 : 2;
    }
    acutPrintf(L"Megnyitás: %s\n", document.c_str());
    opened().push_back(document);
    return gOpener(document) ? kOpened : 31;
}

std::wstring winHelpPage(LPCWSTR address) {
    const std::wstring whole = address == nullptr ? L"" : address;
    const std::wstring topic = topicOf(whole);
    const bool climbs = topic.find(L"..") != std::wstring::npos; // a topic names a page of the help
    if (topic.empty() || climbs)
        return {};
    const std::wstring book = whole.substr(0, whole.find(L"::/"));
    const std::size_t cut = book.find_last_of(L"\\/");
    const std::wstring folder = cut == std::wstring::npos ? L"." : book.substr(0, cut);
    const std::wstring beside = folder + L"\\" + topic, below = folder + L"\\help\\" + topic;
    return !isFile(winFileSystemPath(beside.c_str())) && isFile(winFileSystemPath(below.c_str())) ? below : beside;
}

HWND HtmlHelpW(HWND, LPCWSTR address, UINT, DWORD_PTR) {
    const std::wstring page = winHelpPage(address);
    const std::wstring topic = topicOf(address == nullptr ? L"" : address);
    opened().push_back(address == nullptr ? L"" : address);
    if (page.empty() || !isFile(winFileSystemPath(page.c_str()))) {
        acutPrintf(L"Súgó: %s (nincs ilyen oldal)\n", topic.c_str());
        return nullptr;
    }
    acutPrintf(L"Súgó: %s\n", topic.c_str());
    return gOpener(page) ? &opened() : nullptr;
}

const std::vector<std::wstring>& winOpenedDocuments() {
    return opened();
}

void winSetDocumentOpener(WinDocumentOpener opener) {
    gOpener = opener == nullptr ? openNothing : opener;
}
