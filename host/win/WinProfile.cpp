#include "WinProfile.h"

#include "AcUtText.h"
#include "WinTextFile.h"

#include <algorithm>
#include <vector>

namespace {
std::wstring trimmed(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L" \t");
    return first == std::wstring::npos ? L"" : text.substr(first, text.find_last_not_of(L" \t") - first + 1);
}

bool same(const std::wstring& a, LPCWSTR b) {
    return b != nullptr && acutWcsicmp(a.c_str(), b) == 0;
}

// The file as lines, with what a search found in it; lines not understood are kept.
struct Profile {
    std::vector<std::wstring> lines;
    std::size_t sectionBegin = 0, sectionEnd = 0; // behind the heading, up to the next one
    bool hasSection = false;

    explicit Profile(LPCWSTR file) {
        WinTextFile text;
        std::wstring line;
        if (text.open(file, L"r,ccs=UTF-8"))
            while (text.getLine(line))
                lines.push_back(line);
    }
    void findSection(LPCWSTR section) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::wstring line = trimmed(lines[i]);
            if (line.size() < 2 || line.front() != L'[' || line.back() != L']')
                continue;
            if (hasSection) {
                sectionEnd = i;
                return;
            }
            hasSection = same(trimmed(line.substr(1, line.size() - 2)), section);
            sectionBegin = i + 1;
        }
        sectionEnd = lines.size();
    }
    // The line of the key, or sectionEnd.
    std::size_t findKey(LPCWSTR key) const {
        if (hasSection)
            for (std::size_t i = sectionBegin; i < sectionEnd; ++i) {
                const std::size_t equals = lines[i].find(L'=');
                if (equals != std::wstring::npos && same(trimmed(lines[i].substr(0, equals)), key))
                    return i;
            }
        return sectionEnd;
    }
    bool save(LPCWSTR file) const {
        WinTextFile text;
        if (!text.open(file, L"w,ccs=UTF-8"))
            return false;
        for (const std::wstring& line : lines)
            text.puts(line + L"\n");
        return text.close();
    }
    auto at(std::size_t index) { return lines.begin() + static_cast<std::ptrdiff_t>(index); }
};

std::wstring oneLine(std::wstring text) {
    std::replace_if(text.begin(), text.end(), [](wchar_t c) { return c == L'\n' || c == L'\r'; }, L' ');
    return text;
}
} // namespace

std::wstring winProfileString(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue, LPCWSTR file) {
    Profile profile(file);
    profile.findSection(section);
    const std::size_t line = profile.findKey(key);
    if (line == profile.sectionEnd)
        return defaultValue == nullptr ? L"" : defaultValue;
    return trimmed(profile.lines[line].substr(profile.lines[line].find(L'=') + 1));
}

DWORD GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultValue, LPWSTR buffer, DWORD size, LPCWSTR file) {
    if (buffer == nullptr || size == 0)
        return 0;
    const std::wstring value = winProfileString(section, key, defaultValue, file);
    const std::size_t length = std::min<std::size_t>(value.size(), size - 1);
    value.copy(buffer, length);
    buffer[length] = 0;
    return static_cast<DWORD>(length);
}

UINT GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, int defaultValue, LPCWSTR file) {
    const std::wstring value = winProfileString(section, key, L"", file);
    return static_cast<UINT>(value.empty() ? defaultValue : acWtoi(value.c_str()));
}

BOOL WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR file) {
    if (section == nullptr)
        return FALSE;
    Profile profile(file);
    profile.findSection(section);
    if (key == nullptr) {
        if (profile.hasSection)
            profile.lines.erase(profile.at(profile.sectionBegin - 1), profile.at(profile.sectionEnd));
        return profile.save(file) ? TRUE : FALSE;
    }
    const std::size_t line = profile.findKey(key);
    const bool isPresent = line != profile.sectionEnd;
    if (value == nullptr) {
        if (isPresent)
            profile.lines.erase(profile.at(line));
        return profile.save(file) ? TRUE : FALSE;
    }
    const std::wstring text = std::wstring(key) + L"=" + oneLine(value);
    if (isPresent) {
        profile.lines[line] = text;
    } else {
        if (!profile.hasSection)
            profile.lines.push_back(std::wstring(L"[") + section + L"]");
        profile.lines.insert(profile.at(profile.hasSection ? profile.sectionEnd : profile.lines.size()), text);
    }
    return profile.save(file) ? TRUE : FALSE;
}
