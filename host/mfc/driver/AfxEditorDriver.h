// Takes dialog lines from the editor's input.
#pragma once

#include "AfxDialogDriver.h"

// Null where no input is in force.
AfxDialogDriver* afxEditorDriver();
