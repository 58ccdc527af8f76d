#include "XmlMarkup.h"

#include "AcUtText.h"

#include <algorithm>
#include <libxml/tree.h>

namespace {
bool isCharacter(wchar_t c) {
    const auto code = static_cast<std::uint32_t>(c);
    return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code < 0xD800) || (code >= 0xE000 && code < 0xFFFE) ||
           (code >= 0x10000 && code < 0x110000);
}
std::wstring replaced(std::wstring_view text, std::wstring_view from, std::wstring_view to) {
    std::wstring out(text);
    for (std::size_t at = out.find(from); at != std::wstring::npos; at = out.find(from, at + to.size()))
        out.replace(at, from.size(), to);
    return out;
}
std::string escaped(std::wstring_view text, bool attribute) {
    std::string out;
    for (const char c : acToUtf8(text)) {
        switch (c) {
        case '&': out += "&amp;"; break;
        case '<': out += "&lt;"; break;
        case '>': out += "&gt;"; break;
        case '\r': out += "&#xD;"; break; // a reader makes a line feed of it
        case '"': out += attribute ? "&quot;" : "\""; break;
        case '\n': out += attribute ? "&#xA;" : "\n"; break; // a reader makes blanks of these two in an attribute
        case '\t': out += attribute ? "&#x9;" : "\t"; break;
        default: out += c;
        }
    }
    return out;
}
} // namespace

bool xmlIsName(std::wstring_view name) {
    return xmlIsText(name) && xmlValidateNCName(reinterpret_cast<const xmlChar*>(acToUtf8(name).c_str()), 0) == 0;
}
bool xmlIsText(std::wstring_view text) { return std::all_of(text.begin(), text.end(), isCharacter); }
bool xmlIsWhitespace(std::wstring_view text) { return text.find_first_not_of(L" \t\r\n") == std::wstring_view::npos; }

std::string xmlEscapedText(std::wstring_view text) { return escaped(text, false); }
std::string xmlEscapedAttribute(std::wstring_view value) { return escaped(value, true); }

std::string xmlCommentText(std::wstring_view text) {
    std::wstring out;
    for (const wchar_t c : text) {
        if (c == L'-' && !out.empty() && out.back() == L'-')
            out += L' ';
        out += c;
    }
    if (!out.empty() && out.back() == L'-')
        out += L' ';
    return acToUtf8(out);
}
std::string xmlInstructionText(std::wstring_view text) { return acToUtf8(replaced(text, L"?>", L"? >")); }
std::string xmlCDataText(std::wstring_view text) { return acToUtf8(replaced(text, L"]]>", L"]]]]><![CDATA[>")); }
