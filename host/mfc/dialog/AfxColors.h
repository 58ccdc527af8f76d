// Asks a dialog for the colours of its controls (WM_CTLCOLOR) and applies them.
#pragma once

#include "CDialog.h"

void afxApplyColors(CDialog& dialog);
