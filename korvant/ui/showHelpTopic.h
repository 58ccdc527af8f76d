// Opens a page of the help file that is installed beside the module.
#pragma once

#include "AcAdesk.h"

class CWnd;

// topic: a page's file name, such as "Welcome.html". The window may be null.
void showHelpTopic(CWnd* window, const ACHAR* topic);
