// Patterns of the hatch pattern file (ACADISO.PAT in the support folders).
#pragma once

#include "AcDbEntities.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct EdHatchPattern {
    std::wstring name, comment;
    std::vector<AcDbHatch::PatternLine> lines; // as the file gives them; the offset along and across the line
};
// Patterns of a file's text; lines that cannot be read are left out with their pattern.
std::vector<EdHatchPattern> edReadHatchPatterns(std::wstring_view text);
std::optional<EdHatchPattern> edFindHatchPattern(const std::wstring& name);
// Name and description of each, one a line.
std::vector<std::wstring> edHatchPatternNames();
// The lines as a hatch stores them: scaled, turned, the offset in the plane of the hatch.
std::vector<AcDbHatch::PatternLine> edScaledLines(const EdHatchPattern& pattern, double scale, double angle);
