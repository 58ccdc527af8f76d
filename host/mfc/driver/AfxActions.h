// What a line does to a control: the same clicks, keys and choices that a user makes. Each gives an
// empty text, or why it cannot be done.
#pragma once

#include "CDialog.h"
#include "driver/AfxLines.h"

std::wstring afxClick(CWnd& control);
std::wstring afxSetValue(CWnd& control, const std::wstring& text);
std::wstring afxCheck(CWnd& control, const std::wstring& state);
std::wstring afxSelect(CWnd& control, const AfxWord& what);
std::wstring afxEditCell(CWnd& control, int row, int column, const std::wstring& text);
std::wstring afxChooseTab(const CDialog& dialog, const std::wstring& title);
