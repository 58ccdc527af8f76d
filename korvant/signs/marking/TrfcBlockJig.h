// Places a road marking: asks for point and turn, then opens the dialog that chooses the symbol. The turn of
// the last placed marking is the default of the next.
#pragma once

#include "TrfcBlockEnt.h"
#include "TrfcPlacementJig.h"

class TrfcBlockJig : public TrfcPlacementJig<TrfcBlockEnt> {
public:
    DragStatus sampler() override;

protected:
    std::span<const TrfcPlacementStage<TrfcBlockEnt>> stages() const override;
    std::wstring promptOf(std::size_t stage) const override;
    bool takeSymbol(TrfcBlockEnt& marking) override;
    void endStage(TrfcBlockEnt& marking, std::size_t stage) override;
    bool confirm(TrfcBlockEnt& marking) override;

private:
    DragStatus sampleAngle();
};
