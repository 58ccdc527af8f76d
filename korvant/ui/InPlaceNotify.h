// What both editors of a cell tell their list when they end.
#pragma once

#include "CWnd.h"

// text null: the edit was given up.
void notifyCellEdited(CWnd& editor, int row, int column, const CString* text);
