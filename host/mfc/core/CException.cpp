// The message box of an exception; it lies here because the layer of the exceptions shows nothing.
#include "CException.h"

#include "AfxApp.h"

int CException::ReportError(UINT type, UINT messageId) {
    wchar_t text[512];
    if (GetErrorMessage(text, 512) != FALSE)
        return AfxMessageBox(text, type);
    return AfxMessageBox(messageId, type);
}
