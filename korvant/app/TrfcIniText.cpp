#include "TrfcIniText.h"

#include "AcUtText.h"

#include <optional>

namespace {
constexpr std::wstring_view kCodeBegin = L"<U+";
constexpr std::size_t kLongestCode = 6;

bool standsInFile(wchar_t c) {
    return c >= L' ' && (c == L'?' || acToAnsi(std::wstring_view(&c, 1)) != "?");
}

int digitOf(wchar_t c) {
    if (c >= L'0' && c <= L'9')
        return c - L'0';
    return c >= L'A' && c <= L'F' ? c - L'A' + 10 : -1;
}

// The letter whose code begins at that place; "at" is then behind it. A code that no letter has is plain text.
std::optional<wchar_t> takeCode(const std::wstring& text, std::size_t& at) {
    if (text.compare(at, kCodeBegin.size(), kCodeBegin) != 0)
        return std::nullopt;
    const std::size_t first = at + kCodeBegin.size(), end = text.find(L'>', first);
    if (end == std::wstring::npos || end == first || end - first > kLongestCode)
        return std::nullopt;
    unsigned code = 0;
    for (std::size_t i = first; i < end; ++i) {
        const int digit = digitOf(text[i]);
        if (digit < 0)
            return std::nullopt;
        code = code * 16 + static_cast<unsigned>(digit);
    }
    if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
        return std::nullopt;
    at = end + 1;
    return static_cast<wchar_t>(code);
}
} // namespace

std::wstring toIniText(const std::wstring& value) {
    std::wstring text;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool looksCoded = value.compare(i, kCodeBegin.size(), kCodeBegin) == 0;
        const bool isLastBlank = i + 1 == value.size() && value[i] == L' ';
        if (standsInFile(value[i]) && !looksCoded && !isLastBlank)
            text += value[i];
        else
            text += acFormat(L"<U+%04X>", static_cast<unsigned>(value[i]));
    }
    return text;
}

std::wstring fromIniText(const std::wstring& text) {
    std::wstring value;
    for (std::size_t at = 0; at < text.size();) {
        if (const auto letter = takeCode(text, at))
            value += *letter;
        else
            value += text[at++];
    }
    return value;
}
