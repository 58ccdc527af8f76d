#include "EdHatchPattern.h"

#include "AcDbDatabase.h"
#include "AcPath.h"
#include "AcUtText.h"
#include "core/EdDocuments.h"
#include "input/EdParse.h"

#include <fstream>
#include <iterator>

namespace {
constexpr const wchar_t* kFile = L"ACADISO.PAT";

// angle, x, y, dx, dy[, dash ...]
std::optional<AcDbHatch::PatternLine> readLine(const std::wstring& text) {
    std::vector<double> numbers;
    for (const std::wstring& part : edSplitAt(text, L',')) {
        const auto number = edParseReal(edTrim(part));
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
    }
    if (numbers.size() < 5)
        return std::nullopt;
    AcDbHatch::PatternLine line;
    line.angle = numbers[0] * kPi / 180.0;
    line.base = {numbers[1], numbers[2]};
    line.offset = {numbers[3], numbers[4]};
    line.dashes.assign(numbers.begin() + 5, numbers.end());
    return line;
}
AcGeVector2d turned(const AcGeVector2d& v, double angle) {
    return {v.x * std::cos(angle) - v.y * std::sin(angle), v.x * std::sin(angle) + v.y * std::cos(angle)};
}
std::vector<EdHatchPattern> readFile() {
    std::wstring path;
    if (acdbHostApplicationServices()->findFile(path, kFile, edDatabase()) != Acad::eOk)
        return {};
    std::ifstream in(acFileSystemPath(path), std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return edReadHatchPatterns(acFromUtf8(bytes));
}
} // namespace

std::vector<EdHatchPattern> edReadHatchPatterns(std::wstring_view text) {
    std::vector<EdHatchPattern> patterns;
    bool whole = false; // the pattern that is being read has had good lines alone
    for (const std::wstring& raw : edSplitAt(text, L'\n')) {
        const std::wstring line = edTrim(raw.substr(0, raw.find(L';')));
        if (line.empty())
            continue;
        if (line.front() == L'*') {
            const std::size_t comma = line.find(L',');
            EdHatchPattern pattern;
            pattern.name = edUpper(edTrim(std::wstring_view(line).substr(1, comma == std::wstring::npos ? comma : comma - 1)));
            pattern.comment = comma == std::wstring::npos ? L"" : edTrim(std::wstring_view(line).substr(comma + 1));
            whole = !pattern.name.empty();
            if (whole)
                patterns.push_back(std::move(pattern));
        } else if (whole) {
            const auto read = readLine(line);
            if (read)
                patterns.back().lines.push_back(*read);
            else {
                patterns.pop_back();
                whole = false;
            }
        }
    }
    return patterns;
}
std::optional<EdHatchPattern> edFindHatchPattern(const std::wstring& name) {
    for (EdHatchPattern& pattern : readFile())
        if (edSameWord(pattern.name, name) && !pattern.lines.empty())
            return std::move(pattern);
    return std::nullopt;
}
std::vector<std::wstring> edHatchPatternNames() {
    std::vector<std::wstring> names;
    for (const EdHatchPattern& pattern : readFile())
        names.push_back(pattern.comment.empty() ? pattern.name : pattern.name + L" - " + pattern.comment);
    return names;
}
std::vector<AcDbHatch::PatternLine> edScaledLines(const EdHatchPattern& pattern, double scale, double angle) {
    std::vector<AcDbHatch::PatternLine> lines = pattern.lines;
    for (AcDbHatch::PatternLine& line : lines) {
        const AcGeVector2d base = turned(AcGeVector2d(line.base.x, line.base.y) * scale, angle);
        line.base = {base.x, base.y};
        line.angle += angle;
        line.offset = turned(line.offset * scale, line.angle);
        for (double& dash : line.dashes)
            dash *= scale;
    }
    return lines;
}
