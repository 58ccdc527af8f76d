// The format codes of paragraph texts.
#include "MTextLayout.h"

namespace {
constexpr wchar_t kSoftBlank = 0x00A0;

class CodeReader {
public:
    explicit CodeReader(const std::wstring& contents) : mText(contents) {}
    std::vector<std::wstring> read() {
        mLines.emplace_back();
        while (mAt < mText.size())
            step();
        for (std::wstring& line : mLines)
            line = giExpandControlCodes(line);
        return std::move(mLines);
    }

private:
    void step() {
        const wchar_t c = mText[mAt++];
        switch (c) {
        case L'{':
        case L'}':
        case L'\r': break;
        case L'\n': mLines.emplace_back(); break;
        case L'\t': put(L' '); break;
        case L'^': caret(); break;
        case L'\\':
            if (mAt < mText.size())
                code(mText[mAt++]);
            break;
        default: put(c); break;
        }
    }
    void put(wchar_t c) { mLines.back() += c; }

    // Control characters as files write them: ^I a tabulator, ^J a new line, "^ " the caret itself.
    void caret() {
        const wchar_t next = mAt < mText.size() ? mText[mAt] : L'\0';
        if (next == L'\0') {
            put(L'^');
            return;
        }
        ++mAt;
        if (next == L'I')
            put(L' ');
        else if (next == L'J')
            mLines.emplace_back();
        else if (next == L' ')
            put(L'^');
        else if (next != L'M') {
            put(L'^');
            --mAt;
        }
    }

    void code(wchar_t c) {
        switch (c) {
        case L'P':
        case L'X':
        case L'N': mLines.emplace_back(); break;
        case L'~': put(kSoftBlank); break;
        case L'L':
        case L'l':
        case L'O':
        case L'o':
        case L'K':
        case L'k': break; // lines under, over and through the text are not drawn
        case L'A':
        case L'C':
        case L'c':
        case L'F':
        case L'f':
        case L'H':
        case L'p':
        case L'Q':
        case L'T':
        case L'W': argument(); break;
        case L'S': stack(argument()); break;
        case L'U': numbered(); break;
        case L'\\':
        case L'{':
        case L'}': put(c); break;
        default: // no code: it stands for itself
            put(L'\\');
            put(c);
            break;
        }
    }
    // What stands up to the semicolon.
    std::wstring argument() {
        std::wstring value;
        while (mAt < mText.size() && mText[mAt] != L';') {
            if (mText[mAt] == L'\\' && mAt + 1 < mText.size())
                ++mAt;
            value += mText[mAt++];
        }
        ++mAt;
        return value;
    }
    // A fraction or a tolerance on one line; a part that is empty leaves the other alone.
    void stack(const std::wstring& value) {
        const std::size_t split = value.find_first_of(L"/#^");
        if (split == std::wstring::npos) {
            mLines.back() += value;
            return;
        }
        const std::wstring over = trimmed(value.substr(0, split)), under = trimmed(value.substr(split + 1));
        mLines.back() += over;
        if (!over.empty() && !under.empty())
            put(L'/');
        mLines.back() += under;
    }
    static std::wstring trimmed(const std::wstring& text) {
        const std::size_t first = text.find_first_not_of(L' ');
        return first == std::wstring::npos ? L"" : text.substr(first, text.find_last_not_of(L' ') - first + 1);
    }
    // \U+XXXX; anything else after \U stands for itself.
    void numbered() {
        wchar_t value = 0;
        bool whole = mAt + 4 < mText.size() && mText[mAt] == L'+';
        for (std::size_t i = mAt + 1; whole && i <= mAt + 4; ++i) {
            const int digit = hexDigit(mText[i]);
            whole = digit >= 0;
            value = static_cast<wchar_t>(value * 16 + digit);
        }
        if (!whole || value == 0) {
            mLines.back() += L"\\U";
            return;
        }
        put(value);
        mAt += 5;
    }
    static int hexDigit(wchar_t c) {
        if (c >= L'0' && c <= L'9')
            return c - L'0';
        const wchar_t lower = c | 0x20;
        return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : -1;
    }

    const std::wstring& mText;
    std::size_t mAt = 0;
    std::vector<std::wstring> mLines;
};
} // namespace

std::vector<std::wstring> dbMTextParagraphs(const std::wstring& contents) {
    return CodeReader(contents).read();
}
