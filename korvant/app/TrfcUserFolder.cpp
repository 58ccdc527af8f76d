// The per-user folder that holds the two settings files and what was installed beside them.
#include "TrfcUserFolder.h"

#include "WinFiles.h"
#include "WinShell.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

constexpr const wchar_t* kInstalledFiles[] = {L"settings.ini", L"defaults.ini", L"Zorvat.dll", L"Zorvat.mnu", L"Zorvat.mnl", L"korvant.sdf"};

bool isMissing(const std::wstring& path) {
    return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES && GetLastError() == ERROR_FILE_NOT_FOUND;
}

} // namespace

// Without a base the path would begin at the root folder, which is nobody's.
std::wstring userFolder() {
    std::array<wchar_t, MAX_PATH> base{};
    const HRESULT found = SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, base.data());
    return FAILED(found) ? std::wstring() : std::wstring(base.data()) + L"\\Korvant 2018\\";
}

const wchar_t* userFolderFault() {
    std::array<wchar_t, MAX_PATH> base{};
    const HRESULT found = SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, 0, base.data());
    if (SUCCEEDED(found))
        return nullptr;
    if (found == HRESULT_FROM_WIN32(ERROR_ENVVAR_NOT_FOUND))
        return L"a HOME környezeti változó nem nevez meg mappát";
    return found == HRESULT_FROM_WIN32(ERROR_FILENAME_EXCED_RANGE) ? L"az útvonala túl hosszú" : L"nem hozható létre";
}

std::wstring prepareUserFolder(const std::wstring& installationFolder) {
    const std::wstring folder = userFolder();
    if (folder.empty())
        return folder;
    if (GetFileAttributesW(folder.c_str()) == INVALID_FILE_ATTRIBUTES) {
        const DWORD reason = GetLastError();
        if (reason == ERROR_PATH_NOT_FOUND || reason == ERROR_FILE_NOT_FOUND)
            CreateDirectoryW(folder.c_str(), nullptr);
    }
    // All or none: files of two installations must not mix.
    const bool incomplete = std::any_of(std::begin(kInstalledFiles), std::end(kInstalledFiles), [&](const wchar_t* name) { return isMissing(folder + name); });
    if (incomplete)
        for (const wchar_t* name : kInstalledFiles)
            CopyFileW((installationFolder + name).c_str(), (folder + name).c_str(), FALSE);
    return folder;
}
