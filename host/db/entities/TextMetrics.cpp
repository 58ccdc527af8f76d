// Text styles and alignment points.
#include "TextMetrics.h"

#include "AcDbDatabase.h"
#include "ReadAccess.h"

AcDbObjectId dbEffectiveTextStyle(AcDbObjectId style, const AcDbDatabase* database) {
    if (!style.isNull())
        return style;
    const AcDbDatabase* from = database != nullptr ? database : acdbHostApplicationServices()->workingDatabase();
    return from != nullptr ? from->textStyleStandard() : AcDbObjectId::kNull;
}

AcGiTextStyle dbTextStyle(AcDbObjectId style, const AcDbDatabase* database) {
    const DbReadAccess<AcDbTextStyleTableRecord> record(dbEffectiveTextStyle(style, database));
    return record ? record->giStyle() : AcGiTextStyle();
}

namespace {
// Bottom of letters with a tail: the same for every text of a style, so that lines of texts agree.
double descent(const AcGiTextStyle& style) {
    return giTextBox(L"g", style).minPoint.y;
}

double horizontalAnchor(const GiTextOutline& outline, const AcGiTextStyle& style, AcDb::TextHorzMode mode) {
    switch (mode) {
    case AcDb::kTextCenter:
    case AcDb::kTextMid: return (outline.minPoint.x + outline.maxPoint.x) / 2.0;
    case AcDb::kTextRight: return style.backward ? outline.minPoint.x : outline.maxPoint.x;
    case AcDb::kTextLeft:
    case AcDb::kTextAlign:
    case AcDb::kTextFit: break;
    }
    return 0.0;
}

double verticalAnchor(const AcGiTextStyle& style, AcDb::TextVertMode mode) {
    const double top = style.upsideDown ? -style.height : style.height;
    switch (mode) {
    case AcDb::kTextBottom: {
        AcGiTextStyle upright = style;
        upright.upsideDown = false;
        return style.upsideDown ? -descent(upright) : descent(upright);
    }
    case AcDb::kTextVertMid: return top / 2.0;
    case AcDb::kTextTop: return top;
    case AcDb::kTextBase: break;
    }
    return 0.0;
}
} // namespace

AcGePoint2d dbAnchorOf(const std::wstring& text, const AcGiTextStyle& style, AcDb::TextHorzMode horizontal,
                       AcDb::TextVertMode vertical) {
    const GiTextOutline outline = giTextBox(text, style);
    const double x = horizontalAnchor(outline, style, horizontal);
    if (horizontal == AcDb::kTextMid) // the middle of the ink, whatever the vertical mode
        return {x, (outline.minPoint.y + outline.maxPoint.y) / 2.0};
    return {x, verticalAnchor(style, vertical)};
}
