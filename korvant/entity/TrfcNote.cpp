// The written note beside a foot.
#include "TrfcNote.h"

#include "TrfcDocSettings.h"
#include "TrfcDrawingUtils.h"

using TrfcDocSettings::getDocDoubleIn;
using TrfcDocSettings::getDocInt;
using TrfcDocSettings::getDocString;

// ---- geometry ---------------------------------------------------------------------------------

bool isRightOf(const AcGeVector3d& direction, const AcGeVector3d& vector) {
    return direction.angleTo(vector, AcGeVector3d::kZAxis) > kPi;
}

namespace {
AcGePoint3d rimTowards(const TrfcNoteFrame& frame, const AcGePoint3d& point) {
    return frame.foot + (point - frame.foot).normal() * frame.radius;
}
} // namespace

AcGePoint3d TrfcNote::leaderStart(const TrfcNoteFrame& frame) const {
    return rimTowards(frame, anchor);
}

double TrfcNote::width(const TrfcNoteFrame& frame) const {
    const auto measured = newText(frame, anchor, 0.0);
    AcDbExtents extents;
    if (measured->getGeomExtents(extents) != Acad::eOk)
        return 0.0;
    return extents.maxPoint().x - extents.minPoint().x;
}

AcGeVector3d TrfcNote::shelf(const TrfcNoteFrame& frame) const {
    AcGeVector3d along = frame.up.normal();
    along.rotateBy(isRight(frame) ? -kHalfPi : kHalfPi, AcGeVector3d::kZAxis);
    return along * width(frame);
}

// Above the shelf, at the end of it that comes first in reading.
AcGePoint3d TrfcNote::textPosition(const TrfcNoteFrame& frame, const AcGeVector3d& shelf) const {
    const AcGePoint3d above = anchor + frame.up.normal() * (frame.radius / 2.0);
    return isRight(frame) ? above : above + shelf;
}

AcGePoint3d TrfcNote::textPosition(const TrfcNoteFrame& frame) const {
    return textPosition(frame, shelf(frame));
}

void TrfcNote::setAnchor(const TrfcNoteFrame& frame, const AcGePoint3d& point) {
    anchor = point.distanceTo(frame.foot) < frame.radius ? rimTowards(frame, point) : point;
}

void TrfcNote::resetAnchor(const TrfcNoteFrame& frame, const AcGeVector3d& direction) {
    anchor = frame.foot + direction.normal() * (frame.radius * (getDocDoubleIn(DOC_ANNO_MIN_DIST, L"wcs") + 1.0));
}

// ---- picture ------------------------------------------------------------------------------------

std::unique_ptr<AcDbText> TrfcNote::newText(const TrfcNoteFrame& frame, const AcGePoint3d& position, double rotation) const {
    AcDbObjectId style;
    textStyleId(getDocString(DOC_ANNO_TYPE).c_str(), style);
    return std::make_unique<AcDbText>(position, text.text.c_str(), style, frame.textHeight, rotation);
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

Adesk::UInt16 colorSetting(TrfcIntKey key) {
    return static_cast<Adesk::UInt16>(getDocInt(key));
}
} // namespace

void TrfcNote::draw(AcGiWorldDraw* worldDraw, const TrfcNoteFrame& frame) const {
    AcGiSubEntityTraits& traits = worldDraw->subEntityTraits();
    traits.setColor(colorSetting(DOC_ANNO_LINE_COLOR));
    traits.setLineWeight(lineWeightSetting());
    traits.setLineType(lineTypeSetting());
    const AcGeVector3d along = shelf(frame);
    const AcGePoint3d leader[] = {leaderStart(frame), anchor}, shelfLine[] = {anchor, anchor + along};
    worldDraw->geometry().polyline(2, leader);
    worldDraw->geometry().polyline(2, shelfLine);
    const auto words = newText(frame, textPosition(frame, along), frame.rotation);
    words->setColorIndex(colorSetting(DOC_ANNO_COLOR));
    applyEntityToTraits(words.get(), worldDraw);
    words->worldDraw(worldDraw);
    restoreTraits(worldDraw);
}

void TrfcNote::explode(const AcDbEntity& owner, const TrfcNoteFrame& frame, AcDbVoidPtrArray& entities) const {
    const AcGeVector3d along = shelf(frame);
    const AcDbObjectId lineType = lineTypeSetting();
    for (auto* line : {new AcDbLine(leaderStart(frame), anchor), new AcDbLine(anchor, anchor + along)}) {
        copyDisplayProperties(&owner, line);
        line->setColorIndex(colorSetting(DOC_ANNO_LINE_COLOR));
        line->setLineWeight(lineWeightSetting());
        line->setLinetype(lineType);
        entities.append(line);
    }
    auto words = newText(frame, textPosition(frame, along), frame.rotation);
    words->setColorIndex(colorSetting(DOC_ANNO_COLOR));
    entities.append(words.release());
}
