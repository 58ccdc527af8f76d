#include "driver/AfxLines.h"

#include <algorithm>

namespace {
bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

// Reads the text behind an opening quote; false where it does not close.
bool readQuoted(const std::wstring& line, std::size_t& at, AfxWord& word) {
    word.isQuoted = true;
    for (++at; at < line.size(); ++at) {
        if (line[at] != L'"') {
            word.text += line[at];
        } else if (at + 1 < line.size() && line[at + 1] == L'"') {
            word.text += L'"';
            ++at;
        } else {
            ++at;
            return true;
        }
    }
    return false;
}
} // namespace

bool AfxWord::isNumber() const {
    const std::size_t first = !text.empty() && text[0] == L'-' ? 1 : 0;
    return !isQuoted && text.size() > first && text.size() < 9 &&
           std::all_of(text.begin() + static_cast<std::ptrdiff_t>(first), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

bool afxSplitLine(const std::wstring& line, std::vector<AfxWord>& words) {
    std::size_t at = 0;
    while (at < line.size()) {
        if (isBlank(line[at])) {
            ++at;
            continue;
        }
        AfxWord word;
        if (line[at] == L'"') {
            if (!readQuoted(line, at, word))
                return false;
        } else {
            while (at < line.size() && !isBlank(line[at]) && line[at] != L'"')
                word.text += line[at++];
        }
        words.push_back(std::move(word));
    }
    return true;
}
