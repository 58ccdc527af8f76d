// The written note beside a post: a text on a shelf at E, tied to the foot's rim by a leader.
#include "TrfcPost.h"

#include "TrfcDocSettings.h"
#include "TrfcDrawingUtils.h"

using TrfcDocSettings::getDocDoubleIn;
using TrfcDocSettings::getDocInt;
using TrfcDocSettings::getDocString;

// ---- geometry ---------------------------------------------------------------------------------

bool TrfcPost::isRight(const AcGeVector3d& vector) const {
    return mVectorAB.angleTo(vector, AcGeVector3d::kZAxis) > kPi;
}

bool TrfcPost::isTextRight() const {
    return isRight(mPointE - mPointA);
}

bool TrfcPost::isArmRight() const {
    return isRight(mPointD - mPointB);
}

AcGePoint3d TrfcPost::rimTowards(const AcGePoint3d& point) const {
    return mPointA + (point - mPointA).normal() * radius();
}

AcGePoint3d TrfcPost::leaderStart() const {
    return rimTowards(mPointE);
}

double TrfcPost::textWidth() const {
    const auto text = annotationText(mPointE, 0.0);
    AcDbExtents extents;
    if (text->getGeomExtents(extents) != Acad::eOk)
        return 0.0;
    return extents.maxPoint().x - extents.minPoint().x;
}

AcGeVector3d TrfcPost::textVector() const {
    AcGeVector3d shelf = unitAB();
    shelf.rotateBy(isTextRight() ? -kHalfPi : kHalfPi, AcGeVector3d::kZAxis);
    return shelf * textWidth();
}

// Above the shelf, at the end of it that comes first in reading.
AcGePoint3d TrfcPost::textPosition(const AcGeVector3d& shelf) const {
    const AcGePoint3d above = mPointE + unitAB() * (mBasePointD / 4.0);
    return isTextRight() ? above : above + shelf;
}

AcGePoint3d TrfcPost::textPosition() const {
    return textPosition(textVector());
}

void TrfcPost::setPointE(const AcGePoint3d& point) {
    assertWriteEnabled();
    mPointE = point.distanceTo(mPointA) < radius() ? rimTowards(point) : point;
}

void TrfcPost::resetAnnotation() {
    assertWriteEnabled();
    AcGeVector3d side = unitAB();
    side.rotateBy(isArmRight() ? -kHalfPi : kHalfPi, AcGeVector3d::kZAxis);
    mPointE = mPointA + side * (radius() * (getDocDoubleIn(DOC_ANNO_MIN_DIST, L"wcs") + 1.0));
}

// ---- picture ------------------------------------------------------------------------------------

std::unique_ptr<AcDbText> TrfcPost::annotationText(const AcGePoint3d& position, double rotation) const {
    AcDbObjectId style;
    textStyleId(getDocString(DOC_ANNO_TYPE).c_str(), style);
    return std::make_unique<AcDbText>(position, mPostText.text.c_str(), style, mAnnoHeight, rotation);
}

namespace {
AcDb::LineWeight lineWeightSetting() {
    return static_cast<AcDb::LineWeight>(getDocInt(DOC_ANNO_LINE_WEIGHT));
}

AcDbObjectId lineTypeSetting() {
    AcDbObjectId id;
    linetypeId(getDocString(DOC_ANNO_LINE_TYPE).c_str(), id);
    return id;
}

Adesk::UInt16 colorSetting(const ACHAR* key) {
    return static_cast<Adesk::UInt16>(getDocInt(key));
}
} // namespace

// The caller has saved the traits.
void TrfcPost::drawAnnotation(AcGiWorldDraw* worldDraw) const {
    AcGiSubEntityTraits& traits = worldDraw->subEntityTraits();
    traits.setColor(colorSetting(DOC_ANNO_LINE_COLOR));
    traits.setLineWeight(lineWeightSetting());
    traits.setLineType(lineTypeSetting());
    const AcGeVector3d shelf = textVector();
    const AcGePoint3d leader[] = {leaderStart(), mPointE}, shelfLine[] = {mPointE, mPointE + shelf};
    worldDraw->geometry().polyline(2, leader);
    worldDraw->geometry().polyline(2, shelfLine);
    const auto text = annotationText(textPosition(shelf), mRotation);
    text->setColorIndex(colorSetting(DOC_ANNO_COLOR));
    applyEntityToTraits(text.get(), worldDraw);
    text->worldDraw(worldDraw);
    restoreTraits(worldDraw);
}

void TrfcPost::explodeAnnotation(AcDbVoidPtrArray& entities) const {
    const AcGeVector3d shelf = textVector();
    const AcDbObjectId lineType = lineTypeSetting();
    for (auto* line : {new AcDbLine(leaderStart(), mPointE), new AcDbLine(mPointE, mPointE + shelf)}) {
        copyDisplayProperties(this, line);
        line->setColorIndex(colorSetting(DOC_ANNO_LINE_COLOR));
        line->setLineWeight(lineWeightSetting());
        line->setLinetype(lineType);
        entities.append(line);
    }
    auto text = annotationText(textPosition(shelf), mRotation);
    text->setColorIndex(colorSetting(DOC_ANNO_COLOR));
    entities.append(text.release());
}
