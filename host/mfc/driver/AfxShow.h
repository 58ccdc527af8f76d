// Prints a dialog's controls: id, kind, state, value, rows.
#pragma once

#include "CDialog.h"

void afxShow(const CDialog& dialog);
