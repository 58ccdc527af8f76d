// Places a road marking: asks for point and turn, then opens the dialog that chooses the symbol.
#pragma once

#include "AcEdJig.h"
#include "TrfcBlockEnt.h"

#include <memory>

class TrfcBlockJig : public AcEdJig {
public:
    TrfcBlockJig() = default;
    // As TrfcPostJig::run. The turn of the last placed marking is the default of the next.
    DragStatus run(std::unique_ptr<TrfcBlockEnt> block);
    bool appended() const { return mAppended; }

    DragStatus sampler() override;
    bool update() override;
    AcDbEntity* entity() const override { return mBlock; }

private:
    enum Stage : Adesk::Int32 { kPoint = 0, kAngle = 1, kDone = 2 };
    DragStatus place();
    DragStatus samplePoint();
    DragStatus sampleAngle();

    TrfcBlockEnt* mBlock = nullptr;
    AcGePoint3d mAcquiredPoint;
    double mAcquiredAngle = 0.0;
    Stage mStage = kPoint;
    bool mAppended = false;
};
