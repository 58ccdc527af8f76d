#include "DbLinetypeFile.h"

#include "AcDbDatabase.h"
#include "DbObjectAccess.h"

#include "AcPath.h"
#include "AcUtText.h"

#include <cstdio>
#include <memory>

namespace {
std::wstring trimmed(const std::wstring& text) {
    const std::size_t first = text.find_first_not_of(L" \t\r");
    if (first == std::wstring::npos)
        return {};
    return text.substr(first, text.find_last_not_of(L" \t\r") - first + 1);
}
std::vector<std::wstring> split(const std::wstring& text, ACHAR at) {
    std::vector<std::wstring> parts;
    std::size_t from = 0;
    for (std::size_t end = text.find(at); end != std::wstring::npos; end = text.find(at, from)) {
        parts.push_back(trimmed(text.substr(from, end - from)));
        from = end + 1;
    }
    parts.push_back(trimmed(text.substr(from)));
    return parts;
}
bool isNumber(const std::wstring& text) {
    bool digit = false;
    for (const ACHAR c : text) {
        digit = digit || (c >= L'0' && c <= L'9');
        if ((c < L'0' || c > L'9') && std::wstring_view(L"+-.eE").find(c) == std::wstring_view::npos)
            return false;
    }
    return digit;
}
// "A,0.5,-0.25": aligned, then the lengths. Twelve are the most a file may hold.
bool parsePattern(const std::wstring& line, std::vector<double>& dashes) {
    const std::vector<std::wstring> parts = split(line, L',');
    constexpr std::size_t kMostDashes = 12;
    if (parts.size() < 2 || parts.size() > kMostDashes + 1 || acutWcsicmp(parts[0].c_str(), L"A") != 0)
        return false;
    for (std::size_t i = 1; i < parts.size(); ++i) {
        if (!isNumber(parts[i]))
            return false;
        dashes.push_back(acWtof(parts[i].c_str()));
    }
    return true;
}
bool readAll(const std::string& path, std::string& bytes) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), std::fclose);
    if (file == nullptr)
        return false;
    char block[4096];
    for (std::size_t n; (n = std::fread(block, 1, sizeof block, file.get())) > 0;)
        bytes.append(block, n);
    return std::ferror(file.get()) == 0;
}
// Files of today are UTF-8, those of old in the system's code page.
std::wstring decoded(const std::string& bytes) {
    std::wstring text = acFromUtf8(bytes);
    return text.find(static_cast<ACHAR>(0xFFFD)) == std::wstring::npos ? text : acFromAnsi(bytes);
}
} // namespace

std::vector<DbLinetypeDefinition> dbParseLinetypes(const std::wstring& text) {
    std::vector<DbLinetypeDefinition> definitions;
    DbLinetypeDefinition pending;
    for (const std::wstring& line : split(text, L'\n')) {
        if (line.empty() || line[0] == L';')
            continue;
        if (line[0] == L'*') {
            const std::size_t comma = line.find(L',');
            pending = {};
            pending.name = trimmed(line.substr(1, comma == std::wstring::npos ? comma : comma - 1));
            pending.description = comma == std::wstring::npos ? std::wstring() : trimmed(line.substr(comma + 1));
        } else if (!pending.name.empty()) {
            if (parsePattern(line, pending.dashes))
                definitions.push_back(pending);
            pending = {};
        }
    }
    return definitions;
}

Acad::ErrorStatus AcDbDatabase::loadLineTypeFile(const ACHAR* name, const ACHAR* file) {
    if (name == nullptr || *name == 0)
        return Acad::eInvalidInput;
    std::wstring path;
    std::string bytes;
    if (acdbHostApplicationServices()->findFile(path, file, this) != Acad::eOk || !readAll(acFileSystemPath(path), bytes))
        return Acad::eFileNotFound;
    const bool all = std::wstring_view(name) == L"*";
    bool found = false;
    AcDbObjectPointer<AcDbLinetypeTable> table(linetypeTableId(), AcDb::kForWrite);
    if (!table)
        return table.openStatus();
    for (const DbLinetypeDefinition& definition : dbParseLinetypes(decoded(bytes))) {
        if (!all && acutWcsicmp(definition.name.c_str(), name) != 0)
            continue;
        found = true;
        if (table->has(definition.name.c_str())) // the drawing keeps its own
            continue;
        auto* const record = new AcDbLinetypeTableRecord;
        record->setName(definition.name.c_str());
        record->setComments(definition.description.c_str());
        record->setDashes(definition.dashes);
        const Acad::ErrorStatus es = table->add(record);
        if (es != Acad::eOk) {
            delete record;
            return es;
        }
        record->close();
    }
    return found || all ? Acad::eOk : Acad::eUndefinedLineType;
}
