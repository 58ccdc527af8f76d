// Files and folders by host path: backslashes, and a case-insensitive second try where the
// exact name is absent (libraries come from systems that do not tell cases apart).
// Operations that give FALSE leave their reason in GetLastError.
#pragma once

#include "WinTypes.h"

#include <ctime>
#include <string>

constexpr DWORD ERROR_SUCCESS = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND = 2; // the folder stands, the name in it does not
constexpr DWORD ERROR_PATH_NOT_FOUND = 3; // a folder on the way is missing
constexpr DWORD ERROR_ACCESS_DENIED = 5;
constexpr DWORD ERROR_NO_MORE_FILES = 18;
constexpr DWORD ERROR_WRITE_FAULT = 29;
constexpr DWORD ERROR_SHARING_VIOLATION = 32; // somebody has the file open
constexpr DWORD ERROR_FILE_EXISTS = 80;
constexpr DWORD ERROR_INVALID_PARAMETER = 87;
constexpr DWORD ERROR_ALREADY_EXISTS = 183;
DWORD GetLastError();
void SetLastError(DWORD code);

constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x02;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD FILE_ATTRIBUTE_REPARSE_POINT = 0x400; // a link to a folder; told by the search alone
constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFFu;
DWORD GetFileAttributesW(LPCWSTR path);

// One folder; its parent must stand. The second argument (security) must be null.
BOOL CreateDirectoryW(LPCWSTR path, void* security);
BOOL RemoveDirectoryW(LPCWSTR path); // an empty one
// A file that is locked, by this program or another, or a database open in Access is not replaced, moved
// or deleted: ERROR_SHARING_VIOLATION.
BOOL CopyFileW(LPCWSTR from, LPCWSTR to, BOOL failIfExists);
BOOL MoveFileW(LPCWSTR from, LPCWSTR to);
BOOL DeleteFileW(LPCWSTR path);
// The absolute form with backslashes and without "." and "..". Returns its length without the
// end, or the size needed (with the end) when the buffer is too small. namePart, where given,
// is pointed at the last component inside the buffer, or null where there is none.
DWORD GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* namePart);
DWORD GetTempPathW(DWORD size, LPWSTR buffer); // with a backslash at the end
DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer);

// ---- search ------------------------------------------------------------------------------
struct WIN32_FIND_DATAW {
    DWORD dwFileAttributes = 0;
    std::uint64_t fileSize = 0;
    std::time_t lastWriteTime = 0;
    WCHAR cFileName[MAX_PATH] = {};
};
using WIN32_FIND_DATA = WIN32_FIND_DATAW;
const HANDLE INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1));
// mask: a folder, a backslash and a name with "*" and "?"; "*.*" matches every name. "." and
// ".." come first; the rest by name, by code value without regard to case, so that the order is
// the same on every machine. Names of MAX_PATH characters and more are left out.
HANDLE FindFirstFileW(LPCWSTR mask, WIN32_FIND_DATAW* data);
BOOL FindNextFileW(HANDLE search, WIN32_FIND_DATAW* data);
BOOL FindClose(HANDLE search);

// ---- status ------------------------------------------------------------------------------
struct WinFileStatus {
    std::uint64_t length = 0;
    std::time_t modified = 0;   // UTC seconds
    std::tm modifiedLocal = {}; // the same in local time, for wcsftime
    bool isFolder = false;
};
// The path that names a file or folder without any link on the way; empty with GetLastError where there is none.
std::wstring winRealPath(LPCWSTR path);
// False with GetLastError where there is no such file.
bool winFileStatus(LPCWSTR path, WinFileStatus& status);
// wcsftime of a local time as text.
std::wstring winFormatTime(LPCWSTR format, const std::tm& time);
