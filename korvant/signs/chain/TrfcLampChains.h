// The chains that an entity owns beside its fields: the lamp arms of a post, the stacks on a beam.
#pragma once

#include "TrfcBlockChain.h"

#include <initializer_list>

struct TrfcGripAppData;

class TrfcLampChains {
public:
    int count() const { return static_cast<int>(mChains.size()); }
    TrfcBlockChain& at(int index) const { return *mChains[static_cast<std::size_t>(index)]; } // no range check
    // A chain along the direction away from the base, of the kind; its index.
    int add(const AcGePoint3d& base, const AcGeVector3d& direction, TRFC_BLOCK_CHAIN_TYPE type);
    auto begin() const { return mChains.begin(); }
    auto end() const { return mChains.end(); }

    void offset(const AcGeVector3d& vector);
    void transformBy(const AcGeMatrix3d& matrix);
    void stateChanges();
    // While a grip is dragged only its own chain shows, unless the grip is one that moves them all.
    void draw(AcGiWorldDraw* worldDraw, const TrfcGripAppData* activeGrip, std::initializer_list<const ACHAR*> gripsOfAll) const;
    void explode(AcDbVoidPtrArray& entities) const;

    // A 16-bit count, then each chain.
    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer);

private:
    std::vector<std::unique_ptr<TrfcBlockChain>> mChains;
};

// The filled arrow head that shows, while a new chain is dragged out, where it will hang: its tip at the
// place, pointing along the direction, legs of the foot's diameter. The traits come back to the saved ones.
void drawChainArrow(AcGiWorldDraw* worldDraw, const AcGePoint3d& tip, const AcGeVector3d& direction, double footRadius);
