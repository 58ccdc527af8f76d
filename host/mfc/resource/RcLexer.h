// The tokens of a resource script, each with its line.
#pragma once

#include <string>
#include <string_view>

struct RcToken {
    enum Kind { kEnd, kWord, kNumber, kText, kSign, kDirective, kJunk };
    Kind kind = kEnd;
    std::wstring text; // the word, the text without quotes, the sign, the directive's line, or why it is junk
    long number = 0;
    int line = 1;
    bool is(const wchar_t* word) const; // a word or sign, words without regard to case
};

class RcLexer {
public:
    explicit RcLexer(std::wstring_view script) : mText(script) {}
    RcToken next();

private:
    bool skipBlanks(); // false: a comment that does not end
    RcToken word(RcToken token);
    RcToken number(RcToken token);
    RcToken text(RcToken token);
    RcToken directive(RcToken token);
    wchar_t at(std::size_t offset = 0) const { return mAt + offset < mText.size() ? mText[mAt + offset] : L'\0'; }
    void step();

    std::wstring_view mText;
    std::size_t mAt = 0;
    int mLine = 1;
    bool mAtLineStart = true;
};
