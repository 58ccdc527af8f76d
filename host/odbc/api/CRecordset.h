// The rows that a SELECT gives, kept as they were when it ran. Faults are thrown as CDBException*.
#pragma once

#include "CDBVariant.h"
#include "CDatabase.h"

#include <memory>
#include <string>

namespace odbc {
class ResultSet;
struct StoreCell;
}

struct CODBCFieldInfo {
    CString m_strName;
    SWORD m_nSQLType = SQL_UNKNOWN_TYPE;
    UDWORD m_nPrecision = 0; // characters of a text, digits of a number
    SWORD m_nScale = 0;
    SWORD m_nNullability = SQL_NULLABLE_UNKNOWN;
};

constexpr UINT AFX_DB_USE_DEFAULT_TYPE = 0xFFFFFFFFu; // a snapshot
constexpr SWORD DEFAULT_FIELD_TYPE = 0x1FFF;

class CRecordset {
public:
    enum OpenType : UINT { forwardOnly = 0, dynaset = 1, snapshot = 2, dynamic = 3 };
    enum OpenOptions : DWORD { none = 0, readOnly = 4 };

    // The database must be open when Open is called, and outlives the rows or closes them.
    explicit CRecordset(CDatabase* pDatabase = nullptr);
    CRecordset(const CRecordset&) = delete;
    CRecordset& operator=(const CRecordset&) = delete;
    virtual ~CRecordset();

    // Runs the SELECT and stands on its first row. Only rows that stay as they are can be had
    // (snapshot, forwardOnly): the other types throw, and so does a statement that is no SELECT.
    virtual BOOL Open(UINT nOpenType = AFX_DB_USE_DEFAULT_TYPE, LPCTSTR lpszSQL = nullptr, DWORD dwOptions = none);
    virtual void Close();
    BOOL IsOpen() const { return mRows != nullptr; }

    // Both TRUE where there are no rows. Closed sets count as empty.
    BOOL IsBOF() const;
    BOOL IsEOF() const;
    // From the last row to the end; throws at the end. MovePrev likewise at the beginning.
    virtual void MoveNext();
    void MovePrev();
    // Throw where there are no rows.
    void MoveFirst();
    void MoveLast();

    short GetODBCFieldCount() const;
    // By name (without regard to case) or number from 0; throws where there is no such field.
    void GetODBCFieldInfo(LPCTSTR lpszName, CODBCFieldInfo& fieldinfo) const;
    void GetODBCFieldInfo(short nIndex, CODBCFieldInfo& fieldinfo) const;

    // A field of the current row; throws before the first and behind the last one. An empty field is
    // DBVT_NULL. Otherwise the field's SQL type decides: BIT is DBVT_BOOL, TINYINT DBVT_UCHAR, SMALLINT
    // DBVT_SHORT, INTEGER (and count) DBVT_LONG, REAL DBVT_SINGLE, FLOAT and DOUBLE (a NUMBER of Access)
    // DBVT_DOUBLE, dates and times DBVT_DATE, bytes DBVT_BINARY, everything else DBVT_WSTRING. A field
    // type other than the default is not known here and throws.
    void GetFieldValue(LPCTSTR lpszName, CDBVariant& varValue, SWORD nFieldType = DEFAULT_FIELD_TYPE) const;
    void GetFieldValue(short nIndex, CDBVariant& varValue, SWORD nFieldType = DEFAULT_FIELD_TYPE) const;
    // As text: numbers in the fewest digits that give the same number again, with a point; dates as
    // "2001-02-03 04:05:06", yes/no as 1 and 0, bytes in hexadecimal, an empty field as empty text.
    void GetFieldValue(LPCTSTR lpszName, CString& strValue) const;
    void GetFieldValue(short nIndex, CString& strValue) const;
    const CString& GetSQL() const { return mSql; }

    CDatabase* m_pDatabase;

private:
    friend class CDatabase;
    short fieldIndex(LPCTSTR name) const;
    odbc::StoreCell current(short index) const;
    void requireRows() const;
    void release();
    CString mSql;
    std::unique_ptr<odbc::ResultSet> mRows;
    std::ptrdiff_t mRow = 0; // -1: before the first; the number of rows: at the end
};
