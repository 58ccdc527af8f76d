// The resources of the loaded module and of the host itself.
#pragma once

#include "resource/RcScript.h"

// Null where there is none.
const RcDialog* afxDialogTemplate(const std::wstring& key);
const RcPicture* afxPictureResource(const std::wstring& key);
// The symbol of an id as the script defines it with that beginning ("IDC_"); empty where none.
std::wstring afxControlSymbol(int id);
// The key of a name or of a number made a pointer by the caller.
std::wstring afxResourceKey(LPCTSTR name);
