// Paragraph texts resolved to lines: format codes, wrapping, places.
#pragma once

#include "AcDbEntities.h"

// The paragraphs of a content with its format codes resolved to plain text; a soft blank is U+00A0.
std::vector<std::wstring> dbMTextParagraphs(const std::wstring& contents);
// Breaks a paragraph at blanks so that no line is wider than the width; a longer word stands alone.
std::vector<std::wstring> dbWrapParagraph(const std::wstring& paragraph, const AcGiTextStyle& style, double width);

struct DbMTextLine {
    std::wstring text;
    AcGePoint3d position; // left end of the base line
};
// The lines in place, empty ones left out. `style` carries the text's height.
std::vector<DbMTextLine> dbLayMText(const AcDbMText& text, const AcGiTextStyle& style);
