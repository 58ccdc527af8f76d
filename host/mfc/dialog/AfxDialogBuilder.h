// Makes a dialog's window and controls from a template, laid out so that no text is cut.
#pragma once

#include "CDialog.h"
#include "resource/RcScript.h"

// Binds a new window to the dialog. A template with WS_CHILD becomes a page inside the parent, any
// other a window of its own over the parent's.
void afxBuildDialog(CDialog& dialog, const RcDialog& source, CWnd* parent);
