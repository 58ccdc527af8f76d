#include "resource/RcLexer.h"

#include "AcUtText.h"

#include <cwctype>

namespace {
constexpr long kGreatestNumber = 0xFFFFFFFFl;

bool isWordStart(wchar_t c) {
    return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_';
}
bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}
bool isWordPart(wchar_t c) {
    return isWordStart(c) || isDigit(c) || c == L'.';
}
int hexDigit(wchar_t c) {
    if (isDigit(c))
        return c - L'0';
    const wchar_t low = c | 0x20;
    return low >= L'a' && low <= L'f' ? low - L'a' + 10 : -1;
}
RcToken junk(RcToken token, const wchar_t* why) {
    token.kind = RcToken::kJunk;
    token.text = why;
    return token;
}
} // namespace

bool RcToken::is(const wchar_t* word) const {
    return (kind == kWord || kind == kSign) && acutWcsicmp(text.c_str(), word) == 0;
}

void RcLexer::step() {
    if (at() == L'\n') {
        ++mLine;
        mAtLineStart = true;
    } else if (at() != L' ' && at() != L'\t') {
        mAtLineStart = false;
    }
    ++mAt;
}

bool RcLexer::skipBlanks() {
    while (mAt < mText.size()) {
        if (at() == L' ' || at() == L'\t' || at() == L'\r' || at() == L'\n' || at() == 0xFEFF) {
            const bool wasLineStart = mAtLineStart;
            step();
            mAtLineStart = mAtLineStart || wasLineStart;
        } else if (at() == L'/' && at(1) == L'/') {
            while (mAt < mText.size() && at() != L'\n')
                step();
        } else if (at() == L'/' && at(1) == L'*') {
            const bool wasLineStart = mAtLineStart;
            const int line = mLine;
            step(), step();
            while (mAt < mText.size() && !(at() == L'*' && at(1) == L'/'))
                step();
            if (mAt >= mText.size())
                return false;
            step(), step();
            mAtLineStart = wasLineStart || mLine != line; // a directive may follow a comment
        } else {
            break;
        }
    }
    return true;
}

RcToken RcLexer::next() {
    RcToken token;
    token.line = mLine;
    if (!skipBlanks())
        return junk(token, L"a comment does not end");
    token.line = mLine;
    if (mAt >= mText.size())
        return token;
    const wchar_t c = at();
    if (c == L'#' && mAtLineStart)
        return directive(token);
    if (isWordStart(c))
        return word(token);
    if (isDigit(c))
        return number(token);
    if (c == L'"')
        return text(token);
    if (std::wstring_view(L",|{}-+()~").find(c) != std::wstring_view::npos) {
        step();
        token.kind = RcToken::kSign;
        token.text.assign(1, c);
        return token;
    }
    step();
    return junk(token, L"a character that has no meaning here");
}

RcToken RcLexer::word(RcToken token) {
    token.kind = RcToken::kWord;
    while (isWordPart(at())) {
        token.text += at();
        step();
    }
    return token;
}

RcToken RcLexer::number(RcToken token) {
    token.kind = RcToken::kNumber;
    const bool isHex = at() == L'0' && (at(1) | 0x20) == L'x';
    if (isHex)
        step(), step();
    bool hasDigits = false;
    for (int digit = hexDigit(at()); digit >= 0 && (isHex || digit < 10); digit = hexDigit(at())) {
        token.number = token.number * (isHex ? 16 : 10) + digit;
        if (token.number > kGreatestNumber)
            return junk(token, L"a number is too large");
        hasDigits = true;
        step();
    }
    while ((at() | 0x20) == L'l' || (at() | 0x20) == L'u') // suffixes of C
        step();
    return !hasDigits || isWordPart(at()) ? junk(token, L"a number is malformed") : token;
}

RcToken RcLexer::text(RcToken token) {
    token.kind = RcToken::kText;
    step();
    for (;;) {
        const wchar_t c = at();
        if (mAt >= mText.size() || c == L'\n')
            return junk(token, L"a text is not closed");
        step();
        if (c == L'"') {
            if (at() != L'"')
                return token;
            step();
            token.text += L'"';
        } else if (c == L'\\') {
            const wchar_t escape = at();
            if (mAt >= mText.size() || escape == L'\n')
                return junk(token, L"a text is not closed");
            step();
            token.text += escape == L'n' ? L'\n' : escape == L'r' ? L'\r' : escape == L't' ? L'\t' : escape;
        } else if (c != L'\r') {
            token.text += c;
        }
    }
}

RcToken RcLexer::directive(RcToken token) {
    token.kind = RcToken::kDirective;
    step();
    while (mAt < mText.size() && at() != L'\n') {
        if (at() == L'/' && (at(1) == L'/' || at(1) == L'*'))
            break; // a comment ends it; a long one is skipped as any other
        token.text += at() == L'\r' ? L' ' : at();
        step();
    }
    return token;
}
