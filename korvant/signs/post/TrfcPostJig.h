// Places a post: asks for A, B and D, then opens the sign dialog.
#pragma once

#include "TrfcPlacementJig.h"
#include "TrfcPost.h"

class TrfcPostJig : public TrfcPlacementJig<TrfcPost> {
protected:
    std::span<const TrfcPlacementStage<TrfcPost>> stages() const override;
    bool takeSymbol(TrfcPost& post) override; // the foot; refused when it has a multiline attribute
    bool confirm(TrfcPost& post) override;
};
