// The grips of a symbol that stands in the drawing by itself: move, turn, edit.
#include "AcUtText.h"
#include "TrfcBlock.h"
#include "TrfcDrawingUtils.h"
#include "TrfcEntityFamily.h"
#include "TrfcGripTable.h"

std::span<const TrfcGripGroup<TrfcBlock>> TrfcBlock::gripGroups() {
    using Place = TrfcGripPlace;
    using Data = TrfcGripAppData;
    using Vector = AcGeVector3d;
    static const TrfcGripRow<TrfcBlock> kRows[] = {
        {.name = L"grip1", .place = [](const TrfcBlock& b, int) { return Place{b.position()}; },
         .drag = [](TrfcBlock& b, const Data&, const Vector& v) { b.offset(v); }},
        {.name = L"grip2", .place = [](const TrfcBlock& b, int) { return Place{b.topPoint(), -b.upVector()}; }, .glyph = gripGlyph<drawGripArrowBent>,
         .drag = [](TrfcBlock& b, const Data&, const Vector& v) { b.turnTop(v); }},
        {.name = L"grip3", .place = [](const TrfcBlock& b, int) { return Place{b.position() + (b.topPoint() - b.position()) / 2.0}; },
         .parts = kGripNoRubberBand, .glyph = gripGlyph<drawGripBar>, .click = [](TrfcBlock& b, const Data&) { editOnClone(b, 0); }},
    };
    static const TrfcGripGroup<TrfcBlock> kGroups[] = {{kRows}};
    return kGroups;
}

// The top follows the drag about the insertion point, on which it has no direction.
void TrfcBlock::turnTop(const AcGeVector3d& vector) {
    const AcGePoint3d top = mTopPoint + vector;
    if (!top.isEqualTo(position()))
        rotateBy(mUpVector.angleTo(top - position(), AcGeVector3d::kZAxis));
}

Acad::ErrorStatus TrfcBlock::subGetGripPoints(AcDbGripDataPtrArray& grips, double, int, const AcGeVector3d&, int) const {
    assertReadEnabled();
    TrfcGripTable<TrfcBlock>::append(*this, grips);
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlock::subMoveGripPointsAt(const AcDbVoidPtrArray& gripAppData, const AcGeVector3d& vector, int) {
    assertWriteEnabled();
    TrfcGripTable<TrfcBlock>::move(*this, gripAppData, vector);
    return Acad::eOk;
}
