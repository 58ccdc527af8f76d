#include "CString.h"

#include "AcUtText.h"

#include <algorithm>
#include <cwctype>

namespace {
constexpr LPCTSTR kBlanks = L" \t\r\n\v\f";
std::wstring safe(LPCTSTR text) {
    return text == nullptr ? L"" : text;
}
std::size_t positive(int count) {
    return static_cast<std::size_t>(std::max(count, 0));
}
int found(std::size_t at) {
    return at == std::wstring::npos ? -1 : static_cast<int>(at);
}
} // namespace

CString::CString(LPCTSTR text) : mText(safe(text)) {}
CString::CString(LPCTSTR text, int length) : mText(safe(text).substr(0, positive(length))) {}
CString::CString(wchar_t c, int repeat) : mText(positive(repeat), c) {}

CString& CString::operator=(LPCTSTR text) {
    mText = safe(text);
    return *this;
}

wchar_t CString::GetAt(int index) const {
    return index >= 0 && index < GetLength() ? mText[static_cast<std::size_t>(index)] : L'\0';
}

void CString::SetAt(int index, wchar_t c) {
    if (index >= 0 && index < GetLength())
        mText[static_cast<std::size_t>(index)] = c;
}

int CString::Compare(LPCTSTR other) const {
    return acutWcscmp(mText.c_str(), other == nullptr ? L"" : other);
}

int CString::CompareNoCase(LPCTSTR other) const {
    return acutWcsicmp(mText.c_str(), other == nullptr ? L"" : other);
}

int CString::Find(wchar_t c, int start) const {
    return found(mText.find(c, positive(start)));
}
int CString::Find(LPCTSTR text, int start) const {
    return found(mText.find(safe(text), positive(start)));
}
int CString::ReverseFind(wchar_t c) const {
    return found(mText.rfind(c));
}
int CString::FindOneOf(LPCTSTR characters) const {
    return found(mText.find_first_of(safe(characters)));
}

CString CString::Left(int count) const {
    return mText.substr(0, positive(count));
}
CString CString::Mid(int first) const {
    return Mid(first, GetLength());
}
CString CString::Mid(int first, int count) const {
    return positive(first) >= mText.size() ? CString() : CString(mText.substr(positive(first), positive(count)));
}
CString CString::Right(int count) const {
    return mText.substr(mText.size() - std::min(mText.size(), positive(count)));
}

int CString::Replace(LPCTSTR from, LPCTSTR to) {
    const std::wstring old = safe(from), fresh = safe(to);
    int count = 0;
    if (old.empty())
        return count;
    for (std::size_t at = mText.find(old); at != std::wstring::npos; at = mText.find(old, at + fresh.size())) {
        mText.replace(at, old.size(), fresh);
        ++count;
    }
    return count;
}

int CString::Replace(wchar_t from, wchar_t to) {
    const auto count = std::count(mText.begin(), mText.end(), from);
    std::replace(mText.begin(), mText.end(), from, to);
    return static_cast<int>(count);
}

int CString::Remove(wchar_t c) {
    return static_cast<int>(std::erase(mText, c));
}

int CString::Insert(int index, LPCTSTR text) {
    mText.insert(std::min(positive(index), mText.size()), safe(text));
    return GetLength();
}

int CString::Delete(int index, int count) {
    if (positive(index) < mText.size())
        mText.erase(positive(index), positive(count));
    return GetLength();
}

CString& CString::MakeLower() {
    for (wchar_t& c : mText)
        c = static_cast<wchar_t>(std::towlower(static_cast<wint_t>(c)));
    return *this;
}

CString& CString::MakeUpper() {
    for (wchar_t& c : mText)
        c = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(c)));
    return *this;
}

CString& CString::Trim() {
    return Trim(kBlanks);
}
CString& CString::Trim(LPCTSTR characters) {
    return TrimLeft(characters).TrimRight(characters);
}
CString& CString::TrimLeft() {
    return TrimLeft(kBlanks);
}
CString& CString::TrimLeft(LPCTSTR characters) {
    mText.erase(0, std::min(mText.find_first_not_of(safe(characters)), mText.size()));
    return *this;
}
CString& CString::TrimRight() {
    return TrimRight(kBlanks);
}
CString& CString::TrimRight(LPCTSTR characters) {
    mText.erase(mText.find_last_not_of(safe(characters)) + 1); // npos + 1 is 0: nothing is kept
    return *this;
}
CString& CString::TrimRight(wchar_t c) {
    const wchar_t one[] = {c, 0};
    return TrimRight(one);
}

CString CString::Tokenize(LPCTSTR separators, int& start) const {
    const std::wstring set = safe(separators);
    const std::size_t first = start < 0 ? std::wstring::npos : mText.find_first_not_of(set, positive(start));
    if (first == std::wstring::npos) {
        start = -1;
        return {};
    }
    const std::size_t end = std::min(mText.find_first_of(set, first), mText.size());
    start = static_cast<int>(end) + 1;
    return mText.substr(first, end - first);
}

LPTSTR CString::GetBuffer(int size) {
    if (size > GetLength())
        mText.resize(positive(size));
    return mText.data();
}

void CString::ReleaseBuffer(int length) {
    mText.resize(length < 0 ? wcslen(mText.c_str()) : std::min(positive(length), mText.size()));
}

void CString::FormatRaw(LPCTSTR format, ...) {
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void CString::FormatV(LPCTSTR format, va_list args) {
    mText = acFormatV(format, args);
}

void CString::Append(LPCTSTR text) {
    mText += safe(text);
}

CString& CString::operator+=(LPCTSTR text) {
    mText += safe(text);
    return *this;
}
CString& CString::operator+=(wchar_t c) {
    mText += c;
    return *this;
}
CString operator+(const CString& a, const CString& b) {
    return a.mText + b.mText;
}
CString operator+(const CString& a, LPCTSTR b) {
    return a.mText + safe(b);
}
CString operator+(LPCTSTR a, const CString& b) {
    return safe(a) + b.mText;
}
CString operator+(const CString& a, wchar_t b) {
    return a.mText + b;
}
