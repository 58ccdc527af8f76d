#include "setProductTitle.h"

#include "CWnd.h"

void setProductTitle(CWnd& window) {
    CString title;
    window.GetWindowText(title);
    CString full;
    full.Format(L"%s - %s", L"Korvant", title);
    window.SetWindowText(full);
}
