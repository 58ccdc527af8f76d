#include "CException.h"

BOOL CException::GetErrorMessage(LPTSTR text, UINT size, UINT* helpContext) const {
    if (helpContext != nullptr)
        *helpContext = 0;
    if (text != nullptr && size > 0)
        text[0] = 0;
    return FALSE;
}
