// Places a road marking.
#include "TrfcBlockJig.h"

#include "AcUtText.h"
#include "Resource.h"
#include "TrfcAppSettings.h"

namespace {
enum Stage : std::size_t { kPoint = 0, kTurn = 1 };

// Kept between the runs: the last sample, and the turn that is the next one's default.
struct LastPlacement {
    double angle = 0.0;
    double rotation = 0.0;
};
LastPlacement& last() {
    static LastPlacement placement;
    return placement;
}

constexpr const ACHAR* kDefaultSymbol = L"TrfcBlockDefault.dwg";
} // namespace

std::span<const TrfcPlacementStage<TrfcBlockEnt>> TrfcBlockJig::stages() const {
    using Answer = TrfcPlacementAnswer;
    static constexpr TrfcPlacementStage<TrfcBlockEnt> kStages[] = {
        {IDS_PROMPT_BLOCK, [](TrfcBlockEnt& marking, const Answer& answer) { marking.setPosition(answer.point); }},
        {IDS_PROMPT_BLOCK_TURN, [](TrfcBlockEnt& marking, const Answer& answer) { marking.setRotation(answer.number - kHalfPi); }},
    };
    return kStages;
}

std::wstring TrfcBlockJig::promptOf(std::size_t stage) const {
    const std::wstring prompt = TrfcPlacementJig::promptOf(stage);
    return stage == kTurn ? acFormat(prompt.c_str(), last().rotation) : prompt;
}

bool TrfcBlockJig::takeSymbol(TrfcBlockEnt& marking) {
    marking.init(loadBlockTemplate(TrfcAppSettings::libraryFolder(APP_SYMBOL_BASE_PATH), kDefaultSymbol), AcGePoint3d::kOrigin, 0.0, 1.0);
    return canBePlaced(marking);
}

AcEdJig::DragStatus TrfcBlockJig::sampler() {
    return stage() == kPoint ? samplePoint(kAccept3dCoordinates) : sampleAngle();
}

// The angle is the direction of the symbol's up axis, which a hanging symbol has below it.
AcEdJig::DragStatus TrfcBlockJig::sampleAngle() {
    setUserInputControls(static_cast<UserInputControls>(kAccept3dCoordinates | kNullResponseAccepted));
    double& angle = answer(kTurn).number;
    DragStatus status = acquireAngle(angle, answer(kPoint).point);
    if (placed().direction() == -1)
        angle += kPi;
    if (status == kNull) {
        angle = last().rotation + kHalfPi;
        status = kNormal;
    }
    if (status == kNormal && angle == last().angle)
        return kNoChange;
    last().angle = angle;
    return status;
}

void TrfcBlockJig::endStage(TrfcBlockEnt&, std::size_t stage) {
    if (stage == kTurn)
        last().rotation = answer(kTurn).number - kHalfPi;
}

// The user chooses the real symbol in the dialog.
bool TrfcBlockJig::confirm(TrfcBlockEnt& marking) {
    return marking.editProperties();
}
