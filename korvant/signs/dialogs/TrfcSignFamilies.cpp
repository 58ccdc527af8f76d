#include "TrfcSignFamilies.h"

#include "CBlockPropertiesDlg.h"
#include "CPostPropertiesDlg.h"
#include "TrfcBlockEnt.h"
#include "TrfcPost.h"
#include "TrfcPostPages.h"

const TrfcEntityFamily kPostFamily = {
    [](AcDbEntity& clone, int page) { return CPostPropertiesDlg(static_cast<TrfcPost&>(clone), page).DoModal() == IDOK; },
    kPostPageGeneral,
    [](AcDbEntity& entity) { static_cast<TrfcPost&>(entity).stateChanges(); },
};

const TrfcEntityFamily kMarkingFamily = {
    [](AcDbEntity& clone, int) { return CBlockPropertiesDlg(static_cast<TrfcBlockEnt&>(clone)).DoModal() == IDOK; },
    0,
    [](AcDbEntity& entity) { static_cast<TrfcBlockEnt&>(entity).stateChanges(); },
};
