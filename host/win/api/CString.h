// Wide text as dialogs use it. A CString given to Format stands for "%s".
#pragma once

#include "WinTypes.h"

#include <cstdarg>
#include <string>
#include <type_traits>

class CString {
public:
    CString() = default;
    CString(LPCTSTR text); // null counts as empty
    CString(LPCTSTR text, int length);
    CString(const std::wstring& text) : mText(text) {}
    explicit CString(wchar_t c, int repeat = 1);
    CString& operator=(LPCTSTR text);

    operator LPCTSTR() const { return mText.c_str(); }
    LPCTSTR GetString() const { return mText.c_str(); }
    const std::wstring& text() const { return mText; }
    int GetLength() const { return static_cast<int>(mText.size()); }
    bool IsEmpty() const { return mText.empty(); }
    void Empty() { mText.clear(); }
    // A position outside the text gives 0.
    wchar_t GetAt(int index) const;
    void SetAt(int index, wchar_t c);
    wchar_t operator[](int index) const { return GetAt(index); }

    int Compare(LPCTSTR other) const;       // by code value
    int CompareNoCase(LPCTSTR other) const;
    int Find(wchar_t c, int start = 0) const; // -1: not found
    int Find(LPCTSTR text, int start = 0) const;
    int ReverseFind(wchar_t c) const;
    int FindOneOf(LPCTSTR characters) const;
    // Counts and positions outside the text are cut to it.
    CString Left(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;
    CString Right(int count) const;
    int Replace(LPCTSTR from, LPCTSTR to); // the number of replacements
    int Replace(wchar_t from, wchar_t to);
    int Remove(wchar_t c);
    int Insert(int index, LPCTSTR text);
    int Delete(int index, int count = 1);
    CString& MakeLower();
    CString& MakeUpper();
    CString& Trim();
    CString& Trim(LPCTSTR characters);
    CString& TrimLeft();
    CString& TrimLeft(LPCTSTR characters);
    CString& TrimRight();
    CString& TrimRight(LPCTSTR characters);
    CString& TrimRight(wchar_t c);
    // The next token from start, which moves behind it; start is -1 where none is left. Runs of
    // separators count as one, so an empty token is never given.
    CString Tokenize(LPCTSTR separators, int& start) const;

    // Room for at least `size` characters and the end; call ReleaseBuffer before anything else.
    LPTSTR GetBuffer(int size = 0);
    void ReleaseBuffer(int length = -1); // -1: up to the first null

    // Rules of acFormat; the format may not use arguments of other class types than CString and
    // std::wstring.
    template <class... Args> void Format(LPCTSTR format, const Args&... args) { FormatRaw(format, plain(args)...); }
    template <class... Args> void Format(UINT stringId, const Args&... args) { FormatRaw(resourceText(stringId).c_str(), plain(args)...); }
    template <class... Args> void AppendFormat(LPCTSTR format, const Args&... args) {
        CString piece;
        piece.FormatRaw(format, plain(args)...);
        mText += piece.mText;
    }
    void FormatV(LPCTSTR format, va_list args);
    void Append(LPCTSTR text);
    void AppendChar(wchar_t c) { mText += c; }
    // A string of the module's string table; FALSE and empty where the id is unknown.
    BOOL LoadString(UINT id);

    CString& operator+=(LPCTSTR text);
    CString& operator+=(wchar_t c);
    friend CString operator+(const CString& a, const CString& b);
    friend CString operator+(const CString& a, LPCTSTR b);
    friend CString operator+(LPCTSTR a, const CString& b);
    friend CString operator+(const CString& a, wchar_t b);
    friend bool operator==(const CString& a, const CString& b) { return a.mText == b.mText; }
    friend bool operator==(const CString& a, LPCTSTR b) { return a.Compare(b) == 0; }
    friend bool operator<(const CString& a, const CString& b) { return a.mText < b.mText; }

private:
    void FormatRaw(LPCTSTR format, ...);
    static std::wstring resourceText(UINT id);
    template <class T> static auto plain(const T& value) {
        if constexpr (std::is_same_v<T, CString>)
            return value.GetString();
        else if constexpr (std::is_same_v<T, std::wstring>)
            return value.c_str();
        else if constexpr (std::is_array_v<T>)
            return static_cast<const std::remove_extent_t<T>*>(value);
        else
            return value;
    }
    std::wstring mText;
};
using CStringW = CString;
