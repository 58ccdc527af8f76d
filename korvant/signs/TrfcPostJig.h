// Places a post: asks for A, B and D, then opens the sign dialog.
#pragma once

#include "AcEdJig.h"
#include "TrfcPost.h"

#include <memory>

class TrfcPostJig : public AcEdJig {
public:
    TrfcPostJig() = default;
    // kNormal when the prompts were answered, whether or not the dialog was confirmed; otherwise what
    // ended the drag. kCancel when the foot's block has a multiline attribute. The post is the
    // drawing's when it was appended, and released otherwise.
    DragStatus run(std::unique_ptr<TrfcPost> post);
    bool appended() const { return mAppended; }

    DragStatus sampler() override;
    bool update() override;
    AcDbEntity* entity() const override { return mPost; }
    AcDbDimDataPtrArray* dimData(double dimScale) override;
    Acad::ErrorStatus setDimValue(const AcEdDimData* data, double value) override;

private:
    enum Stage : Adesk::Int32 { kPointA = 0, kPointB = 1, kPointD = 2, kDone = 3 };
    DragStatus place();
    bool takeFoot();
    AcGePoint3d& acquired();

    Stage mStage = kPointA;
    AcDbDimDataPtrArray mDimData; // stays empty: the prompts show no dimensions
    AcGePoint3d mAcquiredA, mAcquiredB, mAcquiredD;
    TrfcPost* mPost = nullptr;
    bool mAppended = false;
};
