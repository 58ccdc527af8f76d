// A paragraph text, drawn as plain lines.
#include "AcDbEntities.h"

#include "AcUtText.h"
#include "CurveMath.h"
#include "DbFields.h"
#include "Listing.h"
#include "MTextLayout.h"
#include "OsnapMath.h"
#include "TextMetrics.h"

HOST_RX_DEFINE(AcDbMText, AcDbEntity, L"MTEXT")
DB_FILE_FIELDS(AcDbMText, AcDbEntity);

template <class Self, class Archive> void AcDbMText::fields(Self& self, Archive& archive) {
    archive(self.mLocation, self.mDirection, self.mTextHeight, self.mWidth, self.mAttachment, self.mLineSpacing);
    archive(self.mNormal, self.mContents, self.mDrawingDirection, self.mSpacingStyle, self.mExtentsHeight,
            self.mExtentsWidth);
    archive.hardPointer(self.mStyle);
}

namespace {
AcGiTextStyle styleOf(const AcDbMText& text) {
    AcGiTextStyle style = dbTextStyle(text.textStyle());
    if (text.textHeight() > 0.0)
        style.height = text.textHeight();
    return style;
}
} // namespace

ACHAR* AcDbMText::contents() const {
    assertReadEnabled();
    return acutNewString(mContents.c_str());
}

Acad::ErrorStatus AcDbMText::setContents(const ACHAR* contents) {
    assertWriteEnabled();
    mContents = contents != nullptr ? contents : L"";
    return Acad::eOk;
}

std::vector<std::wstring> AcDbMText::plainLines() const {
    assertReadEnabled();
    std::vector<std::wstring> lines;
    const AcGiTextStyle style = mWidth > 0.0 ? styleOf(*this) : AcGiTextStyle();
    for (const std::wstring& paragraph : dbMTextParagraphs(mContents))
        for (std::wstring& line : dbWrapParagraph(paragraph, style, mWidth))
            lines.push_back(std::move(line));
    return lines;
}

AcDbObjectId AcDbMText::textStyle() const {
    assertReadEnabled();
    return dbEffectiveTextStyle(mStyle);
}

Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style) {
    assertWriteEnabled();
    mStyle = style;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setRotation(double angle) {
    assertWriteEnabled();
    mDirection = DbPlane(mNormal).direction(angle);
    return Acad::eOk;
}

double AcDbMText::rotation() const {
    assertReadEnabled();
    return DbPlane(mNormal).angleOf(mDirection);
}

bool AcDbMText::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    const AcGiTextStyle style = styleOf(*this);
    const AcGeVector3d normal = DbPlane(mNormal).normal;
    for (const DbMTextLine& line : dbLayMText(*this, style))
        if (worldDraw->geometry().text(line.position, normal, mDirection, line.text.c_str(), style))
            return false;
    return true;
}

namespace {
// The attachment on the other side, left for right or top for bottom.
int flippedSideways(int attachment) { return attachment + 2 - 2 * ((attachment - 1) % 3); }
int flippedUpright(int attachment) { return attachment + 6 - 6 * ((attachment - 1) / 3); }
} // namespace

// A mirrored paragraph stays legible: its block takes the mirrored place, its letters are not turned round.
Acad::ErrorStatus AcDbMText::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    const DbPlaneMap map = dbPlaneMap(matrix, mNormal);
    if (map.singular)
        return Acad::eCannotScaleNonUniformly;
    const AcGeVector3d before = mDirection.normal(), up = DbPlane(mNormal).normal.crossProduct(before);
    AcGeVector3d right = matrix * before;
    const double widthScale = right.length();
    right.normalize();
    if (map.reversed) {
        const bool sideways = right.dotProduct(before) < 0.0;
        right = sideways ? -right : right;
        mAttachment = sideways ? flippedSideways(mAttachment) : flippedUpright(mAttachment);
    }
    const double heightScale = std::abs((matrix * up).dotProduct(map.normal.crossProduct(right)));
    mTextHeight *= heightScale, mExtentsHeight *= heightScale;
    mWidth *= widthScale, mExtentsWidth *= widthScale;
    mDirection = right;
    mNormal = map.normal;
    mLocation.transformBy(matrix);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t, const AcGePoint3d& pick,
                                               const AcGePoint3d& last, const AcGeMatrix3d&, AcGePoint3dArray& points,
                                               AcIntArray&) const {
    assertReadEnabled();
    dbSnapPoint({mode, pick, last, points}, AcDb::kOsModeIns, mLocation);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subGetGripPoints(AcGePoint3dArray& points, AcIntArray&, AcIntArray&) const {
    assertReadEnabled();
    points.append(mLocation);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    assertWriteEnabled();
    if (indices.contains(0))
        mLocation += offset;
    return Acad::eOk;
}

// A text a line.
Acad::ErrorStatus AcDbMText::subExplode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    const AcGiTextStyle style = styleOf(*this);
    for (const DbMTextLine& line : dbLayMText(*this, style)) {
        auto* text = new AcDbText(line.position, line.text.c_str(), mStyle, style.height, rotation());
        text->setPropertiesFrom(this);
        text->setNormal(mNormal);
        text->setWidthFactor(style.widthFactor);
        text->setOblique(style.obliqueAngle);
        entities.append(static_cast<AcDbEntity*>(text));
    }
    return Acad::eOk;
}

void AcDbMText::subList() const {
    AcDbEntity::subList();
    dbListPoint(L"location", mLocation);
    dbListNumber(L"width", mWidth);
    dbListNumber(L"text height", mTextHeight);
    dbListAngle(L"rotation angle", rotation());
    for (const std::wstring& line : plainLines())
        dbListText(L"contents", line.c_str());
    dbListNormal(mNormal);
}
