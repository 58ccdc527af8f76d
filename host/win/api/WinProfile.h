// Values in an initialization file: [section], key=value, UTF-8, read at each call and written
// at once. Section and key are compared without regard to case.
#pragma once

#include "WinTypes.h"

#include <string>

// The number of characters copied (without the end); a missing key gives the default.
DWORD GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue, LPWSTR buffer, DWORD size, LPCWSTR file);
UINT GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, int defaultValue, LPCWSTR file);
// A null value removes the key, a null key the section. Line ends in a value become blanks.
BOOL WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR file);
std::wstring winProfileString(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue, LPCWSTR file);
