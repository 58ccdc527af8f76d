// The basic types of the window system's API on this host. Text is wide; handles are opaque.
#pragma once

#include <cstddef>
#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using HRESULT = std::int32_t;
using COLORREF = std::uint32_t; // 0x00BBGGRR
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;
using TCHAR = wchar_t;
using WCHAR = wchar_t;
using LPCTSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPWSTR = wchar_t*;
using HANDLE = void*;
using HINSTANCE = void*;
using HWND = void*;

#ifndef TRUE
constexpr BOOL TRUE = 1;
#endif
#ifndef FALSE
constexpr BOOL FALSE = 0;
#endif
#ifndef _T
#define _T(x) L##x
#endif

constexpr int MAX_PATH = 260;
constexpr HRESULT S_OK = 0;
constexpr HRESULT S_FALSE = 1;
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005);
constexpr bool SUCCEEDED(HRESULT hr) { return hr >= 0; }
constexpr bool FAILED(HRESULT hr) { return hr < 0; }

constexpr COLORREF RGB(int r, int g, int b) {
    return static_cast<COLORREF>((r & 0xFF) | ((g & 0xFF) << 8) | ((b & 0xFF) << 16));
}
constexpr BYTE GetRValue(COLORREF c) { return static_cast<BYTE>(c); }
constexpr BYTE GetGValue(COLORREF c) { return static_cast<BYTE>(c >> 8); }
constexpr BYTE GetBValue(COLORREF c) { return static_cast<BYTE>(c >> 16); }
constexpr WORD LOWORD(std::uintptr_t v) { return static_cast<WORD>(v & 0xFFFF); }
constexpr WORD HIWORD(std::uintptr_t v) { return static_cast<WORD>((v >> 16) & 0xFFFF); }
constexpr WPARAM MAKEWPARAM(UINT low, UINT high) { return static_cast<WPARAM>((low & 0xFFFFu) | (high << 16)); }
