// The control codes of drawing texts.
#include "AcGiReceivers.h"
#include "AcUtText.h"

#include <cwctype>

namespace {
constexpr wchar_t kDegree = 0x00B0, kPlusMinus = 0x00B1, kDiameter = 0x2300;

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

int hexValue(wchar_t c) {
    if (isDigit(c))
        return c - L'0';
    const wint_t lower = std::towlower(static_cast<wint_t>(c));
    return lower >= L'a' && lower <= L'f' ? static_cast<int>(lower - L'a') + 10 : -1;
}

// What "%%" and the characters at `i` mean; moves i past them. False when it is no code.
bool percentCode(const std::wstring& text, std::size_t& i, std::wstring& result) {
    switch (std::towlower(static_cast<wint_t>(text[i]))) {
    case L'd': result += kDegree; break;
    case L'p': result += kPlusMinus; break;
    case L'c': result += kDiameter; break;
    case L'%': result += L'%'; break;
    case L'u':
    case L'o':
    case L'k': break; // under-, over- and struck-through lines are not drawn
    default: {
        if (i + 2 >= text.size() || !isDigit(text[i]) || !isDigit(text[i + 1]) || !isDigit(text[i + 2]))
            return false;
        const int code = (text[i] - L'0') * 100 + (text[i + 1] - L'0') * 10 + (text[i + 2] - L'0');
        if (code < 1 || code > 255)
            return false;
        result += acFromAnsi(std::string(1, static_cast<char>(code)));
        i += 2;
        break;
    }
    }
    ++i;
    return true;
}

// "\U+XXXX": a character by its number.
bool unicodeCode(const std::wstring& text, std::size_t i, std::wstring& result) {
    if (i + 7 > text.size() || (text[i + 1] != L'U' && text[i + 1] != L'u') || text[i + 2] != L'+')
        return false;
    int code = 0;
    for (std::size_t k = i + 3; k < i + 7; ++k) {
        const int digit = hexValue(text[k]);
        if (digit < 0)
            return false;
        code = code * 16 + digit;
    }
    result += static_cast<wchar_t>(code);
    return true;
}
} // namespace

std::wstring giExpandControlCodes(const std::wstring& text) {
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        if (text[i] == L'%' && i + 2 < text.size() && text[i + 1] == L'%') {
            std::size_t after = i + 2;
            if (percentCode(text, after, result)) {
                i = after;
                continue;
            }
        } else if (text[i] == L'\\' && unicodeCode(text, i, result)) {
            i += 7;
            continue;
        }
        result += text[i++];
    }
    return result;
}
