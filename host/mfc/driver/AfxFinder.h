// Finds the control that a line means.
#pragma once

#include "CDialog.h"
#include "driver/AfxLines.h"

#include <vector>

// Every control of the dialog and of the pages in it, in the order made; pages themselves are left out.
std::vector<CWnd*> afxControlsOf(const CDialog& dialog);
// By id, symbol or caption; a label's caption stands for the control behind it unless it is to be
// clicked. Of several, a visible one. Null where there is none.
CWnd* afxFindControl(const CDialog& dialog, const AfxWord& word, bool isClick);
// "button", "edit" and so on.
const wchar_t* afxKindName(const CWnd& control);
// The caption as it is seen, without access marks.
std::wstring afxSeenText(const CWnd& control);
