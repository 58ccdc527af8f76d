// The words of a dialog line.
#pragma once

#include <string>
#include <vector>

struct AfxWord {
    std::wstring text;
    bool isQuoted = false;
    bool isNumber() const; // decimal, with an optional sign
};
// The words of a line; a text in quotes is one word, "" in it is a quote. False where a quote is not closed.
bool afxSplitLine(const std::wstring& line, std::vector<AfxWord>& words);
