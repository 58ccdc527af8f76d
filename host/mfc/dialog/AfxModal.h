// The stack of windows that are open, and the run of a modal one.
#pragma once

#include "CDialog.h"
#include "resource/RcScript.h"

// The run of one modal dialog: ends when its result is set.
struct AfxModalRun {
    CDialog* dialog = nullptr;
    bool hasEnded = false;
    INT_PTR result = -1;
};
// Shows the dialog and takes lines, or runs an event loop, until the run has ended.
void afxRunModal(AfxModalRun& run);
// The topmost modal dialog, null where there is none.
CDialog* afxTopModal();
// The topmost window that lines act on: modal, else the last modeless one that is visible.
CDialog* afxTopDialog();
void afxModelessOpened(CDialog& dialog);
void afxModelessClosed(CDialog& dialog);
// Runs a dialog from a template in memory; for the windows that the host makes itself.
INT_PTR afxRunTemplate(CDialog& dialog, const RcDialog& source, CWnd* parent);

// CDialog's doors for the host.
struct AfxDialogRun {
    static void cancel(CDialog& dialog) { dialog.OnCancel(); }
    static INT_PTR run(CDialog& dialog, const RcDialog& source, CWnd* parent);
    static BOOL open(CDialog& dialog, const RcDialog& source, CWnd* parent);
    static void begin(CDialog& dialog);
    static bool isModal(const CDialog& dialog);
    static bool hasEnded(const CDialog& dialog);
};
