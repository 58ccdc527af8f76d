// A fault of a database. Thrown by pointer: `catch (CDBException* e) { ... e->Delete(); }`.
#pragma once

#include "CException.h"
#include "CString.h"
#include "OdbcTypes.h"

// Faults of the classes' own, in m_nRetCode; a fault of a driver has SQL_ERROR there.
constexpr RETCODE AFX_SQL_ERROR = 1000, AFX_SQL_ERROR_CONNECT_FAIL = AFX_SQL_ERROR + 1,
                  AFX_SQL_ERROR_EMPTY_COLUMN_LIST = AFX_SQL_ERROR + 3, AFX_SQL_ERROR_NO_CURRENT_RECORD = AFX_SQL_ERROR + 7,
                  AFX_SQL_ERROR_DYNASET_NOT_SUPPORTED = AFX_SQL_ERROR + 12, AFX_SQL_ERROR_NO_DATA_FOUND = AFX_SQL_ERROR + 16,
                  AFX_SQL_ERROR_FIELD_NOT_FOUND = AFX_SQL_ERROR + 26;

class CDBException : public CException {
public:
    CDBException(RETCODE code, const CString& error, const CString& origin = {});
    BOOL GetErrorMessage(LPTSTR text, UINT size, UINT* helpContext = nullptr) const override;

    RETCODE m_nRetCode = SQL_ERROR;
    CString m_strError;              // one sentence for the user
    CString m_strStateNativeOrigin;  // "State:...,Native:...,Origin:..." of a driver of the machine; empty for the built-in ones
};
