#include "driver/ConnectString.h"

#include "AcUtText.h"

#include <algorithm>

namespace odbc {

namespace {
bool same(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](wchar_t x, wchar_t y) { return acFoldCase(x) == acFoldCase(y); });
}

std::wstring_view trimmed(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L" \t\r\n");
    return first == std::wstring_view::npos ? std::wstring_view() : text.substr(first, text.find_last_not_of(L" \t\r\n") + 1 - first);
}

// The value that begins at `at`, which moves behind its semicolon.
std::wstring takeValue(std::wstring_view text, std::size_t& at) {
    while (at < text.size() && text[at] == L' ')
        ++at;
    std::wstring value;
    if (at < text.size() && text[at] == L'{') {
        for (++at; at < text.size(); ++at) {
            if (text[at] == L'}' && (at + 1 == text.size() || text[at + 1] != L'}'))
                break;
            if (text[at] == L'}')
                ++at;
            value += text[at];
        }
        at = std::min(text.find(L';', at), text.size()) + 1;
        return value;
    }
    const std::size_t end = std::min(text.find(L';', at), text.size());
    value = trimmed(text.substr(at, end - at));
    at = end + 1;
    return value == L"''" ? L"" : value;
}
} // namespace

ConnectString::ConnectString(std::wstring_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = text.find_first_of(L"=;", at);
        if (end == std::wstring_view::npos)
            return;
        const std::wstring_view key = trimmed(text.substr(at, end - at));
        at = end + 1;
        if (text[end] == L'=')
            mPairs.emplace_back(key, takeValue(text, at));
    }
}

std::wstring ConnectString::value(std::wstring_view key) const {
    const auto found = std::find_if(mPairs.begin(), mPairs.end(), [&](const auto& pair) { return same(pair.first, key); });
    return found == mPairs.end() ? std::wstring() : found->second;
}

bool ConnectString::isTrue(std::wstring_view key) const {
    const std::wstring text = value(key);
    return same(text, L"TRUE") || same(text, L"YES") || acWtoi(text.c_str()) != 0;
}

void ConnectString::set(std::wstring_view key, std::wstring_view value) {
    std::erase_if(mPairs, [&](const auto& pair) { return same(pair.first, key); });
    mPairs.insert(mPairs.begin(), {std::wstring(key), std::wstring(value)});
}

std::wstring ConnectString::text() const {
    std::wstring whole;
    for (const auto& [key, value] : mPairs) {
        if (value.empty())
            continue;
        const bool braces = same(key, L"DRIVER") || value.find_first_of(L"{};") != std::wstring::npos;
        std::wstring written;
        for (const wchar_t c : value)
            written.append(braces && c == L'}' ? 2 : 1, c);
        whole += key + L"=" + (braces ? L"{" + written + L"}" : written) + L";";
    }
    return whole;
}

} // namespace odbc
