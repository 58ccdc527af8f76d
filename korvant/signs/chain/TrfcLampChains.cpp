#include "TrfcLampChains.h"

#include "TrfcDrawingUtils.h"
#include "TrfcFields.h"
#include "TrfcGrips.h"

#include <algorithm>

int TrfcLampChains::add(const AcGePoint3d& base, const AcGeVector3d& direction, TRFC_BLOCK_CHAIN_TYPE type) {
    const double angle = direction.angleTo(AcGeVector3d::kYAxis, -AcGeVector3d::kZAxis);
    mChains.push_back(std::make_unique<TrfcBlockChain>(base, angle, type));
    return count() - 1;
}

void TrfcLampChains::offset(const AcGeVector3d& vector) {
    for (const auto& chain : mChains)
        chain->offset(vector);
}

void TrfcLampChains::transformBy(const AcGeMatrix3d& matrix) {
    for (const auto& chain : mChains)
        chain->transformBy(matrix);
}

void TrfcLampChains::stateChanges() {
    for (const auto& chain : mChains)
        chain->stateChanges();
}

void TrfcLampChains::draw(AcGiWorldDraw* worldDraw, const TrfcGripAppData* activeGrip, std::initializer_list<const ACHAR*> gripsOfAll) const {
    const bool all = activeGrip == nullptr ||
                     std::any_of(gripsOfAll.begin(), gripsOfAll.end(), [activeGrip](const ACHAR* name) { return activeGrip->name == name; });
    for (int i = 0; i < count(); ++i)
        if (all || activeGrip->index == i)
            at(i).worldDraw(worldDraw);
}

void TrfcLampChains::explode(AcDbVoidPtrArray& entities) const {
    for (const auto& chain : mChains)
        chain->explode(entities);
}

Acad::ErrorStatus TrfcLampChains::dwgOutFields(AcDbDwgFiler* filer) const {
    filer->writeInt16(static_cast<Adesk::Int16>(mChains.size()));
    for (const auto& chain : mChains)
        trfcWritePart(*filer, *chain, L"TrfcBlockChain");
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcLampChains::dwgInFields(AcDbDwgFiler* filer) {
    mChains.clear();
    Adesk::Int16 length = 0;
    filer->readInt16(&length);
    for (; length > 0 && filer->filerStatus() == Acad::eOk; --length) {
        mChains.push_back(std::make_unique<TrfcBlockChain>());
        const Acad::ErrorStatus es = mChains.back()->dwgInFields(filer);
        if (es != Acad::eOk)
            return es;
    }
    return filer->filerStatus();
}

void drawChainArrow(AcGiWorldDraw* worldDraw, const AcGePoint3d& tip, const AcGeVector3d& direction, double footRadius) {
    AcGiSubEntityTraits& traits = worldDraw->subEntityTraits();
    const AcGiFillType fill = traits.fillType();
    AcGeVector3d leg = direction.normal() * (footRadius * 2.0);
    leg.rotateBy(-kPi / 6.0, AcGeVector3d::kZAxis);
    const AcGePoint3d first = tip - leg;
    leg.rotateBy(kPi / 3.0, AcGeVector3d::kZAxis);
    const AcGePoint3d corners[] = {first, tip, tip - leg};
    traits.setColor(255);
    traits.setFillType(kAcGiFillAlways);
    worldDraw->geometry().polygon(3, corners);
    traits.setFillType(fill);
    restoreTraits(worldDraw);
}
