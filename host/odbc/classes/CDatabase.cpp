#include "CDatabase.h"

#include "AcUtText.h"
#include "CRecordset.h"
#include "classes/DbFaults.h"
#include "driver/DriverList.h"

#include <iostream>

CDatabase::CDatabase() = default;

CDatabase::~CDatabase() {
    try {
        Close();
    } catch (CDBException* error) {
        std::cerr << acToUtf8(error->m_strError.text()) << '\n';
        error->Delete();
    }
}

BOOL CDatabase::Open(LPCTSTR lpszDSN, BOOL bExclusive, BOOL bReadOnly, LPCTSTR lpszConnect, BOOL bUseCursorLib) {
    std::wstring connect = lpszConnect == nullptr ? L"" : lpszConnect;
    if (lpszDSN != nullptr && *lpszDSN != 0) {
        odbc::ConnectString pairs(connect);
        pairs.set(L"DSN", lpszDSN);
        connect = pairs.text();
    }
    const DWORD options = (bExclusive != FALSE ? openExclusive : 0u) | (bReadOnly != FALSE ? openReadOnly : 0u) | (bUseCursorLib != FALSE ? useCursorLib : 0u);
    return OpenEx(connect.c_str(), options);
}

BOOL CDatabase::OpenEx(LPCTSTR lpszConnectString, DWORD dwOptions) {
    if (IsOpen())
        odbc::throwDb(AFX_SQL_ERROR_CONNECT_FAIL, "A kapcsolat már nyitva van.");
    try {
        mSession = odbc::openSession(odbc::ConnectString(lpszConnectString == nullptr ? L"" : lpszConnectString), (dwOptions & openReadOnly) != 0);
    } catch (const std::exception&) {
        odbc::throwCaught(SQL_ERROR);
    }
    if (mSession == nullptr && (dwOptions & noOdbcDialog) != 0)
        odbc::throwDb(AFX_SQL_ERROR_CONNECT_FAIL, "A kapcsolati szöveg sem meghajtót, sem adatforrást nem nevez meg.");
    return mSession != nullptr ? TRUE : FALSE;
}

void CDatabase::Close() {
    while (!mRecordsets.empty())
        mRecordsets.back()->Close();
    const std::unique_ptr<odbc::Session> session = std::move(mSession);
    if (session == nullptr)
        return;
    try {
        session->close();
    } catch (const std::exception&) {
        odbc::throwCaught(SQL_ERROR);
    }
}

odbc::Session& CDatabase::session() const {
    if (mSession == nullptr)
        odbc::throwDb(AFX_SQL_ERROR_CONNECT_FAIL, "Az adatbázis nincs nyitva.");
    return *mSession;
}

void CDatabase::ExecuteSQL(LPCTSTR lpszSQL) {
    odbc::Session& open = session();
    try {
        open.execute(lpszSQL == nullptr ? std::wstring_view() : lpszSQL);
    } catch (const std::exception&) {
        odbc::throwCaught(SQL_ERROR);
    }
}
