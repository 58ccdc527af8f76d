// Conversions between wide text and bytes, and the guess whether bytes are 16-bit text. The
// system's single-byte code page is Windows-1250. Wide characters here hold whole code points.
#pragma once

#include "WinTypes.h"

#include <string>
#include <string_view>

constexpr UINT CP_ACP = 0;
constexpr UINT CP_UTF8 = 65001;
constexpr DWORD MB_ERR_INVALID_CHARS = 8;
// byteCount -1: null-ended, and the end is converted too. With size 0 the needed size in
// characters is returned. 0 with GetLastError where the buffer is too small, the code page is
// unknown, or (MB_ERR_INVALID_CHARS) a byte sequence is malformed.
int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int byteCount, LPWSTR text, int size);
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length, char* bytes, int size, const char* defaultChar, BOOL* usedDefault);

// True where the bytes look like little-endian 16-bit text: a mark of 0xFF 0xFE, or an even
// count in which the high bytes are mostly zero. An 8-bit text of any language is not.
BOOL IsTextUnicode(const void* bytes, int byteCount, int* tests);
// 16-bit little-endian bytes (without a mark) as wide text; pairs of surrogates are joined,
// lone ones become U+FFFD, an odd last byte is dropped.
std::wstring winFromUtf16(std::string_view bytes);
