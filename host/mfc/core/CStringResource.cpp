// The strings of a resource script; the rest of CString knows nothing of resources.
#include "CString.h"

#include "AfxApp.h"

std::wstring CString::resourceText(UINT id) {
    return AfxResourceString(id);
}

BOOL CString::LoadString(UINT id) {
    mText = AfxResourceString(id);
    return mText.empty() ? FALSE : TRUE;
}
