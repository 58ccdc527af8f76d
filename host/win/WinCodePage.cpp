#include "WinCodePage.h"

#include "AcUtText.h"
#include "WinFiles.h"

#include <algorithm>
#include <cstring>

namespace {
constexpr UINT kWindows1250 = 1250;
constexpr wchar_t kReplacement = 0xFFFD;

bool isAnsi(UINT codePage) {
    return codePage == CP_ACP || codePage == kWindows1250;
}

int fail(DWORD code) {
    SetLastError(code);
    return 0;
}

// Copies what was converted into the caller's buffer, or tells its size.
template <class Text, class Char> int give(const Text& text, Char* buffer, int size) {
    const int length = static_cast<int>(text.size());
    if (size == 0)
        return length;
    if (buffer == nullptr || size < length)
        return fail(122); // the buffer is too small
    std::copy(text.begin(), text.end(), buffer);
    return length;
}

bool isHighSurrogate(unsigned c) {
    return c >= 0xD800 && c < 0xDC00;
}
bool isLowSurrogate(unsigned c) {
    return c >= 0xDC00 && c < 0xE000;
}

unsigned unitAt(std::string_view bytes, std::size_t unit) {
    return static_cast<unsigned char>(bytes[unit * 2]) | static_cast<unsigned>(static_cast<unsigned char>(bytes[unit * 2 + 1])) << 8;
}
} // namespace

int MultiByteToWideChar(UINT codePage, DWORD flags, const char* bytes, int byteCount, LPWSTR text, int size) {
    if (bytes == nullptr || byteCount == 0 || byteCount < -1 || size < 0)
        return fail(ERROR_INVALID_PARAMETER);
    const std::string_view source(bytes, byteCount < 0 ? std::strlen(bytes) + 1 : static_cast<std::size_t>(byteCount));
    if (!isAnsi(codePage) && codePage != CP_UTF8)
        return fail(ERROR_INVALID_PARAMETER);
    const std::wstring wide = isAnsi(codePage) ? acFromAnsi(source) : acFromUtf8(source);
    const bool isMalformed = codePage == CP_UTF8 && acToUtf8(wide) != source;
    if (isMalformed && (flags & MB_ERR_INVALID_CHARS) != 0)
        return fail(1113); // no mapping for the sequence
    return give(wide, text, size);
}

int WideCharToMultiByte(UINT codePage, DWORD, LPCWSTR text, int length, char* bytes, int size, const char* defaultChar, BOOL* usedDefault) {
    if (text == nullptr || length == 0 || length < -1 || size < 0 || (!isAnsi(codePage) && codePage != CP_UTF8))
        return fail(ERROR_INVALID_PARAMETER);
    const std::wstring source(text, length < 0 ? std::wcslen(text) + 1 : static_cast<std::size_t>(length));
    if (codePage == CP_UTF8)
        return give(acToUtf8(source), bytes, size);
    std::string ansi;
    BOOL replaced = FALSE;
    for (const wchar_t c : source) {
        std::string one = acToAnsi(std::wstring_view(&c, 1));
        if (one == "?" && c != L'?') {
            replaced = TRUE;
            if (defaultChar != nullptr)
                one.assign(1, *defaultChar);
        }
        ansi += one;
    }
    if (usedDefault != nullptr)
        *usedDefault = replaced;
    return give(ansi, bytes, size);
}

BOOL IsTextUnicode(const void* bytes, int byteCount, int* tests) {
    if (tests != nullptr)
        *tests = 0;
    if (bytes == nullptr || byteCount < 2)
        return FALSE;
    const std::string_view source(static_cast<const char*>(bytes), static_cast<std::size_t>(byteCount));
    if (unitAt(source, 0) == 0xFEFF)
        return TRUE;
    if (byteCount % 2 != 0)
        return FALSE;
    // European 16-bit text has a zero high byte for nearly every letter, and the letters beyond
    // Latin-1 have a small one; 8-bit text has no zero byte at all.
    std::size_t zeroHigh = 0, zeroUnits = 0;
    const std::size_t units = source.size() / 2;
    for (std::size_t i = 0; i < units; ++i) {
        const unsigned unit = unitAt(source, i);
        zeroHigh += unit < 0x100 ? 1 : 0;
        zeroUnits += unit == 0 ? 1 : 0;
    }
    return zeroHigh * 2 > units && zeroUnits * 4 < units ? TRUE : FALSE;
}

std::wstring winFromUtf16(std::string_view bytes) {
    std::wstring text;
    const std::size_t units = bytes.size() / 2;
    text.reserve(units);
    for (std::size_t i = 0; i < units; ++i) {
        const unsigned unit = unitAt(bytes, i);
        if (isHighSurrogate(unit) && i + 1 < units && isLowSurrogate(unitAt(bytes, i + 1))) {
            const unsigned low = unitAt(bytes, ++i);
            text += static_cast<wchar_t>(0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
        } else {
            text += isHighSurrogate(unit) || isLowSurrogate(unit) ? kReplacement : static_cast<wchar_t>(unit);
        }
    }
    return text;
}
