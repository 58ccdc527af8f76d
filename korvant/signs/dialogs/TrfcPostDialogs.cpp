#include "TrfcPostDialogs.h"

#include "CBlockPropertiesDlg.h"
#include "CPostPropertiesDlg.h"

bool editPostProperties(TrfcPost& clone, int page) { return CPostPropertiesDlg(clone, page).DoModal() == IDOK; }

bool editBlockEntProperties(TrfcBlockEnt& clone) { return CBlockPropertiesDlg(clone).DoModal() == IDOK; }
