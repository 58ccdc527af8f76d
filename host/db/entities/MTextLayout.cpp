// Wrapping and places of the lines of a paragraph text.
#include "MTextLayout.h"

#include "CurveMath.h"

namespace {
constexpr double kLinePitch = 5.0 / 3.0; // from base line to base line, in heights

double widthOf(const std::wstring& text, const AcGiTextStyle& style) {
    return text.empty() ? 0.0 : giTextBox(text, style).advance;
}

// Share of its width that a line lies left of the location, and share of the block's height above it.
double leftShare(int attachment) { return ((attachment - 1) % 3) / 2.0; }
double aboveShare(int attachment) { return ((attachment - 1) / 3) / 2.0; }
} // namespace

std::vector<std::wstring> dbWrapParagraph(const std::wstring& paragraph, const AcGiTextStyle& style, double width) {
    if (!(width > 0.0) || widthOf(paragraph, style) <= width)
        return {paragraph};
    std::vector<std::wstring> lines;
    std::wstring line;
    for (std::size_t at = 0; at < paragraph.size();) {
        std::size_t word = paragraph.find_first_not_of(L' ', at);
        word = word == std::wstring::npos ? paragraph.size() : word;
        const std::size_t end = std::min(paragraph.find(L' ', word), paragraph.size());
        const std::wstring longer = line + paragraph.substr(at, end - at);
        if (line.empty() || widthOf(longer, style) <= width) {
            line = longer;
        } else {
            lines.push_back(line);
            line = paragraph.substr(word, end - word); // blanks at a break vanish
        }
        at = end;
    }
    lines.push_back(line);
    return lines;
}

std::vector<DbMTextLine> dbLayMText(const AcDbMText& text, const AcGiTextStyle& style) {
    const std::vector<std::wstring> lines = text.plainLines();
    const int attachment = text.attachment() >= 1 && text.attachment() <= 9 ? text.attachment() : 1;
    const double pitch = style.height * kLinePitch * text.lineSpacingFactor();
    const double block = style.height + pitch * (static_cast<double>(lines.size()) - 1.0);
    const AcGeVector3d right = text.direction().normal();
    const AcGeVector3d up = DbPlane(text.normal()).normal.crossProduct(right);
    const double top = block * aboveShare(attachment);
    std::vector<DbMTextLine> placed;
    placed.reserve(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].empty())
            continue;
        const double share = leftShare(attachment);
        const double left = share > 0.0 ? widthOf(lines[i], style) * share : 0.0;
        const double down = style.height + pitch * static_cast<double>(i) - top;
        placed.push_back({lines[i], text.location() - right * left - up * down});
    }
    return placed;
}
