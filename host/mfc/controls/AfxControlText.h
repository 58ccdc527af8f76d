// The text and the style bits of a window, by its kind.
#pragma once

#include "core/AfxWindow.h"

#include <QString>

void afxSetText(AfxWindow& window, const std::wstring& text);
std::wstring afxGetText(const AfxWindow& window);
// Makes the widget follow the style bits that may change while it lives.
void afxApplyStyle(AfxWindow& window);
// A caption as it is seen: without the marks of access keys.
QString afxWithoutMarks(const QString& caption);
