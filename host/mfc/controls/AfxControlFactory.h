// Makes the widget and the wrapper of a control from its line in a template.
#pragma once

#include "core/AfxWindow.h"
#include "resource/RcScript.h"

AfxKind afxKindOf(const RcControl& control);
// The widget, a child of the parent's, with its text, its style and its signals bound. The place is in
// pixels of the parent.
QWidget* afxMakeWidget(const RcControl& control, AfxKind kind, QWidget* parent, const QRect& place);
std::unique_ptr<CWnd> afxMakeWrapper(AfxKind kind);
// Binds widget and wrapper and sets text and style; for templates and for Create of the controls.
void afxBindControl(CWnd& wrapper, QWidget* widget, AfxKind kind, const RcControl& control, CWnd* parent);
// What Create of every control does.
BOOL afxCreateControl(CWnd& wrapper, LPCTSTR className, LPCTSTR text, DWORD style, const CRect& rect, CWnd* parent, UINT id);
