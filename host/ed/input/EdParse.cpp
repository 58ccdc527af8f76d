#include "EdParse.h"

#include "AcUtText.h"

#include <charconv>
#include <cmath>

namespace {
bool isBlank(wchar_t c) {
    return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n';
}
bool isCapital(wchar_t c) {
    return (c >= L'A' && c <= L'Z') || acFoldCase(c) != c;
}
template <class T> std::optional<T> parseNumber(std::wstring_view text) {
    if (!text.empty() && text.front() == L'+')
        text.remove_prefix(1);
    if (text.empty() || text.size() > 64 || text.front() == L'+')
        return std::nullopt;
    char narrow[64];
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] > 0x7E)
            return std::nullopt;
        narrow[i] = static_cast<char>(text[i]);
    }
    T value{};
    const auto [end, error] = std::from_chars(narrow, narrow + text.size(), value);
    if (error != std::errc() || end != narrow + text.size())
        return std::nullopt;
    return value;
}
std::optional<AcGeVector3d> parsePolar(std::wstring_view text, std::size_t at) {
    const auto distance = edParseReal(edTrim(text.substr(0, at)));
    const auto degrees = edParseReal(edTrim(text.substr(at + 1)));
    if (!distance || !degrees)
        return std::nullopt;
    const double angle = *degrees * kPi / 180.0;
    return AcGeVector3d(*distance * std::cos(angle), *distance * std::sin(angle), 0.0);
}
std::optional<AcGeVector3d> parseCoordinates(std::wstring_view text) {
    const auto parts = edSplitAt(text, L',');
    if (parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    double xyz[3] = {0.0, 0.0, 0.0};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const auto value = edParseReal(edTrim(parts[i]));
        if (!value)
            return std::nullopt;
        xyz[i] = *value;
    }
    return AcGeVector3d(xyz[0], xyz[1], xyz[2]);
}
bool startsWithFolded(std::wstring_view text, std::wstring_view head) {
    return text.size() >= head.size() && edSameWord(text.substr(0, head.size()), head);
}
bool matchesWord(const std::wstring& word, std::wstring_view text) {
    std::wstring capitals;
    std::size_t lastCapital = 0;
    for (std::size_t i = 0; i < word.size(); ++i)
        if (isCapital(word[i]) || (word[i] >= L'0' && word[i] <= L'9')) {
            capitals += word[i];
            lastCapital = i + 1;
        }
    if (capitals.empty())
        return edSameWord(word, text);
    if (edSameWord(text, capitals) || edSameWord(text, word))
        return true;
    return text.size() >= lastCapital && startsWithFolded(word, text);
}
bool matchesOne(std::wstring_view text, std::wstring_view pattern) {
    // Iterative, so that a long pattern of stars costs no more than the product of the lengths.
    std::size_t t = 0, p = 0, star = std::wstring_view::npos, mark = 0;
    while (t < text.size()) {
        if (p < pattern.size() && (pattern[p] == L'?' || acFoldCase(pattern[p]) == acFoldCase(text[t])) && pattern[p] != L'*') {
            ++t, ++p;
        } else if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            mark = t;
        } else if (star != std::wstring_view::npos) {
            p = star + 1;
            t = ++mark;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == L'*')
        ++p;
    return p == pattern.size();
}
// Reads a quoted text from `at` (on the quote); `at` ends behind the closing quote.
std::optional<std::wstring> readQuoted(std::wstring_view text, std::size_t& at) {
    std::wstring out;
    for (++at; at < text.size(); ++at) {
        if (text[at] == L'"') {
            ++at;
            return out;
        }
        if (text[at] == L'\\' && at + 1 < text.size()) {
            const wchar_t next = text[++at];
            out += next == L'n' ? L'\n' : next == L't' ? L'\t' : next;
        } else {
            out += text[at];
        }
    }
    return std::nullopt;
}
} // namespace

std::optional<double> edParseReal(std::wstring_view text) {
    const auto value = parseNumber<double>(text);
    return value && std::isfinite(*value) ? value : std::nullopt;
}
std::optional<int> edParseInt(std::wstring_view text) {
    return parseNumber<int>(text);
}

std::optional<AcGePoint3d> edParsePoint(std::wstring_view text, const AcGePoint3d& last) {
    const bool relative = !text.empty() && text.front() == L'@';
    if (relative)
        text.remove_prefix(1);
    if (relative && text.empty())
        return last;
    const std::size_t polar = text.find(L'<');
    const auto vector = polar != std::wstring_view::npos ? parsePolar(text, polar) : parseCoordinates(text);
    if (!vector)
        return std::nullopt;
    return relative ? last + *vector : AcGePoint3d::kOrigin + *vector;
}

std::vector<EdKeyword> edParseKeywords(std::wstring_view list) {
    std::vector<EdKeyword> words;
    std::vector<std::wstring> global;
    for (const std::wstring& word : edSplitAt(list, L' ')) {
        if (word.empty() || word == L"_")
            continue;
        if (word.front() == L'_' || !global.empty())
            global.push_back(word.front() == L'_' ? word.substr(1) : word);
        else
            words.push_back({word, word});
    }
    for (std::size_t i = 0; i < global.size() && i < words.size(); ++i)
        words[i].answer = global[i];
    return words;
}
std::optional<std::wstring> edMatchKeyword(const std::vector<EdKeyword>& words, std::wstring_view text, int* index) {
    const bool global = !text.empty() && text.front() == L'_';
    if (global)
        text.remove_prefix(1);
    if (text.empty())
        return std::nullopt;
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (!matchesWord(global ? words[i].answer : words[i].shown, text))
            continue;
        if (index != nullptr)
            *index = static_cast<int>(i);
        return words[i].answer;
    }
    return std::nullopt;
}

EdSplitLine edSplitLine(std::wstring_view line) {
    std::size_t at = 0;
    while (at < line.size() && isBlank(line[at]))
        ++at;
    const std::size_t start = at;
    int depth = 0;
    bool quoted = false;
    for (; at < line.size(); ++at) {
        const wchar_t c = line[at];
        if (quoted) {
            if (c == L'\\' && depth > 0)
                ++at; // an escaped character inside a form
            else if (c == L'"')
                quoted = false;
        } else if (c == L'"' && (depth > 0 || at == start)) {
            quoted = true;
        } else if (c == L'(' && (depth > 0 || at == start)) {
            ++depth;
        } else if (c == L')' && depth > 0) {
            --depth;
        } else if (depth == 0 && isBlank(c)) {
            break;
        }
    }
    at = at < line.size() ? at : line.size();
    EdSplitLine out{std::wstring(line.substr(start, at - start)), edTrim(line.substr(at))};
    return out;
}

std::optional<EdForm> edParseForm(std::wstring_view text) {
    const std::wstring trimmed = edTrim(text);
    if (trimmed.size() < 3 || trimmed.front() != L'(' || trimmed.back() != L')')
        return std::nullopt;
    const std::wstring_view body(trimmed.data() + 1, trimmed.size() - 2);
    EdForm form;
    bool first = true;
    for (std::size_t at = 0; at < body.size();) {
        if (isBlank(body[at]) || body[at] == L'\'') {
            ++at;
            continue;
        }
        std::wstring item;
        if (body[at] == L'"') {
            auto quoted = readQuoted(body, at);
            if (!quoted || first)
                return std::nullopt;
            item = std::move(*quoted);
        } else {
            while (at < body.size() && !isBlank(body[at]) && body[at] != L'"') {
                if (body[at] == L'(' || body[at] == L')')
                    return std::nullopt;
                item += body[at++];
            }
        }
        if (first)
            form.head = edUpper(item);
        else
            form.items.push_back(std::move(item));
        first = false;
    }
    return first ? std::nullopt : std::optional<EdForm>(std::move(form));
}

std::wstring edTrim(std::wstring_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return std::wstring(text);
}
std::wstring edUpper(std::wstring_view text) {
    std::wstring out(text);
    for (wchar_t& c : out)
        if (c >= L'a' && c <= L'z')
            c = static_cast<wchar_t>(c - 0x20);
    return out;
}
bool edSameWord(std::wstring_view a, std::wstring_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (acFoldCase(a[i]) != acFoldCase(b[i]))
            return false;
    return true;
}
bool edMatchesPattern(std::wstring_view text, std::wstring_view pattern) {
    for (const std::wstring& one : edSplitAt(pattern, L','))
        if (matchesOne(text, one))
            return true;
    return false;
}
std::vector<std::wstring> edSplitAt(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring> parts;
    for (std::size_t from = 0;;) {
        const std::size_t at = text.find(separator, from);
        parts.emplace_back(text.substr(from, at == std::wstring_view::npos ? at : at - from));
        if (at == std::wstring_view::npos)
            return parts;
        from = at + 1;
    }
}

std::wstring edNumber(double value, int decimals) {
    std::wstring text = acFormat(L"%.*f", decimals, value);
    if (text.find(L'.') != std::wstring::npos) {
        text.erase(text.find_last_not_of(L'0') + 1);
        if (text.back() == L'.')
            text.pop_back();
    }
    return text == L"-0" ? L"0" : text;
}
std::wstring edPointText(const AcGePoint3d& p, int decimals) {
    std::wstring text = edNumber(p.x, decimals) + L"," + edNumber(p.y, decimals);
    if (edNumber(p.z, decimals) != L"0")
        text += L"," + edNumber(p.z, decimals);
    return text;
}
