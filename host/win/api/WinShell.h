// Shell functions: the user's folders, opening a document, showing a help topic. What is opened
// is always named on the command line; a program is started only where there is a screen.
#pragma once

#include "WinTypes.h"

#include <string>
#include <vector>

constexpr DWORD ERROR_ENVVAR_NOT_FOUND = 203;
constexpr DWORD ERROR_FILENAME_EXCED_RANGE = 206;
constexpr HRESULT HRESULT_FROM_WIN32(DWORD code) {
    return static_cast<HRESULT>(code == 0 ? 0u : 0x80070000u | (code & 0xFFFFu));
}

constexpr int CSIDL_LOCAL_APPDATA = 0x1C; // 28
// The only folder known is 28, the user's local application data: environment
// KORVANT_LOCALAPPDATA, else XDG_DATA_HOME, else .local/share of the home folder. It is made
// where it is absent, since programs rely on it; a home folder itself is not, and the root folder is nobody's home.
// The buffer takes MAX_PATH characters, the path is a full one with backslashes and none at its end. Another id
// gives E_FAIL, no folder at all, too long a path and a folder that cannot be made the HRESULT of
// ERROR_ENVVAR_NOT_FOUND, ERROR_FILENAME_EXCED_RANGE and ERROR_PATH_NOT_FOUND.
HRESULT SHGetFolderPathW(HWND owner, int folderId, HANDLE token, DWORD flags, LPWSTR path);

constexpr int SW_SHOWNORMAL = 1;
// Prints "Megnyitás: <file>" and, where there is a screen, hands the file to the desktop.
// The result is above 32 for success, 2 where a file is absent.
INT_PTR ShellExecuteW(HWND owner, LPCWSTR operation, LPCWSTR file, LPCWSTR parameters, LPCWSTR folder, int show);

constexpr UINT HH_DISPLAY_TOPIC = 0;
// Shows the topic of an address "…\help\Name.chm::/Topic.html". Prints "Súgó: Topic.html"; the
// page is the HTML file Topic.html in the folder of the .chm, or one named help/ beside it.
// Gives null where no such page stands (the line then says so), else a non-null value.
HWND HtmlHelpW(HWND owner, LPCWSTR address, UINT command, DWORD_PTR data);
// The page's file that an address stands for, whether it exists or not; empty for junk.
std::wstring winHelpPage(LPCWSTR address);

// What was asked for since the program's start, oldest first (for tests): the files that ShellExecuteW
// opened, and the addresses given to HtmlHelpW, whether their page stands or not.
const std::vector<std::wstring>& winOpenedDocuments();
// How a document is handed to the desktop; the default opens nothing, the program with a
// window installs its own. Returns false where it could not be opened.
using WinDocumentOpener = bool (*)(const std::wstring& pathOrAddress);
void winSetDocumentOpener(WinDocumentOpener opener);
