// Places a post.
#include "TrfcPostJig.h"

#include "Resource.h"
#include "TrfcDocSettings.h"
#include "TrfcPostPages.h"

std::span<const TrfcPlacementStage<TrfcPost>> TrfcPostJig::stages() const {
    using Answer = TrfcPlacementAnswer;
    static constexpr TrfcPlacementStage<TrfcPost> kStages[] = {
        {IDS_PROMPT_POINT_A, [](TrfcPost& post, const Answer& answer) { post.setPointA(answer.point); }},
        {IDS_PROMPT_POINT_B, [](TrfcPost& post, const Answer& answer) { post.setPointB(answer.point); }},
        {IDS_PROMPT_POINT_D,
         [](TrfcPost& post, const Answer& answer) {
             post.setPointD(answer.point, true);
             post.resetAnnotation();
         }},
    };
    return kStages;
}

bool TrfcPostJig::takeSymbol(TrfcPost& post) {
    const S_BLOCK_DESCRIPTOR foot =
        loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_POSTS_BASE_PATH), TrfcDocSettings::getDocString(DOC_POST_DEFAULT_DWG));
    post.baseBlock().init(foot, AcGePoint3d::kOrigin, 0.0, TrfcDocSettings::getDocDoubleIn(DOC_BASEPOINTD, L"wcs"));
    return canBePlaced(post.baseBlock());
}

bool TrfcPostJig::confirm(TrfcPost& post) {
    if (!post.editProperties(kPostPageTables))
        return false;
    post.setPlacementPhase(5);
    return true;
}
