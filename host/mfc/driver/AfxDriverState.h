// Who answers dialogs now: lines, an event loop, or nobody.
#pragma once

#include "AfxDialogDriver.h"

AfxDialogDriver* afxDriver(); // null where none is set and no input of the editor is in force
bool afxUsesEventLoop();
// Lets everything that waits happen: activation, paints, posted messages, deletions.
void afxSettle();
