// What a control tells its parent about focus and clicks, by the control's kind.
#pragma once

#include "core/AfxWindow.h"

void afxNotifyFocus(AfxWindow& window, bool gained);
bool afxHasClickNotices(const AfxWindow& window); // lists and trees
void afxNotifyClick(AfxWindow& window, CPoint point, bool right, bool isDouble);
