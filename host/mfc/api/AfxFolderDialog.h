// The folder chooser of the shell.
#pragma once

#include "CWnd.h"

// Asks for a folder, starting at startFolder. statusText: the line shown over the tree for the
// folder under the selection (null: the path itself). Returns TRUE and the absolute host path
// without a backslash at its end. Driven by lines it takes @set "Mappa:" "path", @select on its tree, @ok and @cancel.
using AfxFolderStatus = CString (*)(LPCTSTR folder);
BOOL SHBrowseForFolderW(CWnd* owner, LPCTSTR title, LPCTSTR startFolder, AfxFolderStatus statusText, CString& folder);
