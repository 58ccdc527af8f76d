#include "CDBException.h"

#include <algorithm>
#include <cwchar>

CDBException::CDBException(RETCODE code, const CString& error, const CString& origin) : m_nRetCode(code), m_strError(error), m_strStateNativeOrigin(origin) {}

BOOL CDBException::GetErrorMessage(LPTSTR text, UINT size, UINT* helpContext) const {
    CException::GetErrorMessage(text, size, helpContext);
    if (text == nullptr || size == 0 || m_strError.IsEmpty())
        return FALSE;
    const std::size_t length = std::min<std::size_t>(m_strError.text().size(), size - 1);
    std::wmemcpy(text, m_strError.GetString(), length);
    text[length] = 0;
    return TRUE;
}
