// Keys and mouse events of the toolkit as codes and messages of the API.
#pragma once

#include "AfxMessages.h"

class QMouseEvent;

UINT afxVirtualKey(int toolkitKey); // 0 where there is no code for it
UINT afxMouseMessage(const QMouseEvent& event);
