// Places a road marking.
#include "TrfcBlockJig.h"

#include "AcUtText.h"
#include "AfxApp.h"
#include "Resource.h"
#include "TrfcAppSettings.h"

namespace {
// Kept between the runs: the last samples, and the turn that is the next one's default.
struct LastPlacement {
    AcGePoint3d point;
    double angle = 0.0;
    double rotation = 0.0;
};
LastPlacement& last() {
    static LastPlacement placement;
    return placement;
}

constexpr const ACHAR* kDefaultSymbol = L"TrfcBlockDefault.dwg";
} // namespace

AcEdJig::DragStatus TrfcBlockJig::run(std::unique_ptr<TrfcBlockEnt> block) {
    mBlock = block.get();
    const DragStatus status = place();
    if (mAppended)
        block.release(); // the drawing's now
    mBlock = nullptr;
    return status;
}

AcEdJig::DragStatus TrfcBlockJig::place() {
    mBlock->init(loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_SYMBOL_BASE_PATH), kDefaultSymbol), AcGePoint3d::kOrigin, 0.0, 1.0);
    if (mBlock->hasMTextAttribute()) {
        acutPrintf(L"Többsoros attribútumdefiníciót tartalmazó blokkot nem lehet beszúrni!\n");
        return kCancel;
    }
    mStage = kPoint;
    setDispPrompt(L"%s", AfxResourceString(IDS_PROMPT_BLOCK).c_str());
    setKeywordList(L"");
    DragStatus status = drag();
    if (status != kNormal)
        return status;
    mStage = kAngle;
    setDispPrompt(AfxResourceString(IDS_PROMPT_BLOCK_TURN).c_str(), last().rotation);
    status = drag();
    if (status != kNormal)
        return status;
    last().rotation = mAcquiredAngle - kHalfPi;
    mStage = kDone;
    // The user chooses the real symbol there.
    if (mBlock->editProperties()) {
        mAppended = !append().isNull();
        mBlock->recordGraphicsModified(true);
    }
    return status;
}

AcEdJig::DragStatus TrfcBlockJig::sampler() {
    return mStage == kPoint ? samplePoint() : sampleAngle();
}

AcEdJig::DragStatus TrfcBlockJig::samplePoint() {
    setUserInputControls(kAccept3dCoordinates);
    const DragStatus status = acquirePoint(mAcquiredPoint);
    if (status == kNormal && mAcquiredPoint == last().point)
        return kNoChange;
    last().point = mAcquiredPoint;
    return status;
}

// The angle is the direction of the symbol's up axis, which a hanging symbol has below it.
AcEdJig::DragStatus TrfcBlockJig::sampleAngle() {
    setUserInputControls(static_cast<UserInputControls>(kAccept3dCoordinates | kNullResponseAccepted));
    DragStatus status = acquireAngle(mAcquiredAngle, mAcquiredPoint);
    if (mBlock->direction() == -1)
        mAcquiredAngle += kPi;
    if (status == kNull) {
        mAcquiredAngle = last().rotation + kHalfPi;
        status = kNormal;
    }
    if (status == kNormal && mAcquiredAngle == last().angle)
        return kNoChange;
    last().angle = mAcquiredAngle;
    return status;
}

bool TrfcBlockJig::update() {
    if (mStage == kPoint)
        mBlock->setPosition(mAcquiredPoint);
    else if (mStage == kAngle)
        mBlock->setRotation(mAcquiredAngle - kHalfPi);
    return true;
}
