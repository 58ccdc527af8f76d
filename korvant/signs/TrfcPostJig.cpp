// Places a post.
#include "TrfcPostJig.h"

#include "AcUtText.h"
#include "AfxApp.h"
#include "Resource.h"
#include "TrfcDocSettings.h"
#include "TrfcPostDialogs.h"

#include <utility>

namespace {
// The last sampled point, of whatever stage: the cursor at rest there needs no redraw.
AcGePoint3d& lastSampledPoint() {
    static AcGePoint3d point;
    return point;
}
} // namespace

AcEdJig::DragStatus TrfcPostJig::run(std::unique_ptr<TrfcPost> post) {
    mPost = post.get();
    const DragStatus status = place();
    if (mAppended)
        post.release(); // the drawing's now
    mPost = nullptr;
    return status;
}

AcEdJig::DragStatus TrfcPostJig::place() {
    if (!takeFoot())
        return kCancel;
    constexpr std::pair<Stage, UINT> kStages[] = {{kPointA, IDS_PROMPT_POINT_A}, {kPointB, IDS_PROMPT_POINT_B}, {kPointD, IDS_PROMPT_POINT_D}};
    DragStatus status = kNormal;
    for (const auto& [stage, prompt] : kStages) {
        mStage = stage;
        setDispPrompt(L"%s", AfxResourceString(prompt).c_str());
        setKeywordList(L"");
        status = drag();
        if (status != kNormal)
            return status;
    }
    mStage = kDone;
    if (mPost->editProperties(kPostPageTables)) {
        mPost->setPlacementPhase(5);
        mAppended = !append().isNull();
    }
    return status;
}

bool TrfcPostJig::takeFoot() {
    const S_BLOCK_DESCRIPTOR foot =
        loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_POSTS_BASE_PATH), TrfcDocSettings::getDocString(DOC_POST_DEFAULT_DWG));
    mPost->baseBlock().init(foot, AcGePoint3d::kOrigin, 0.0, TrfcDocSettings::getDocDoubleIn(DOC_BASEPOINTD, L"wcs"));
    if (!mPost->baseBlock().hasMTextAttribute())
        return true;
    acutPrintf(L"Többsoros attribútumdefiníciót tartalmazó blokkot nem lehet beszúrni!\n");
    return false;
}

AcGePoint3d& TrfcPostJig::acquired() {
    return mStage == kPointA ? mAcquiredA : mStage == kPointB ? mAcquiredB : mAcquiredD;
}

AcEdJig::DragStatus TrfcPostJig::sampler() {
    setUserInputControls(static_cast<UserInputControls>(0));
    setSpecialCursorType(kCrosshair);
    const DragStatus status = acquirePoint(acquired());
    if (!(acquired() == lastSampledPoint())) {
        lastSampledPoint() = acquired();
        return status;
    }
    return status == kNormal ? kNoChange : status;
}

bool TrfcPostJig::update() {
    switch (mStage) {
    case kPointA:
        mPost->setPointA(mAcquiredA);
        break;
    case kPointB:
        mPost->setPointB(mAcquiredB);
        break;
    case kPointD:
        mPost->setPointD(mAcquiredD, true);
        mPost->resetAnnotation();
        break;
    case kDone:
        break;
    }
    mDimData.removeAll();
    return true;
}

AcDbDimDataPtrArray* TrfcPostJig::dimData(double) {
    return nullptr;
}

Acad::ErrorStatus TrfcPostJig::setDimValue(const AcEdDimData*, double) {
    return Acad::eOk;
}
