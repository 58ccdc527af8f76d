#include "CRecordset.h"

#include "AcUtText.h"
#include "classes/DbFaults.h"
#include "store/Session.h"
#include "store/StoreDates.h"

#include <algorithm>
#include <charconv>

using odbc::StoreCell;

namespace {
std::ptrdiff_t rowCount(const odbc::ResultSet* rows) {
    return rows == nullptr ? 0 : static_cast<std::ptrdiff_t>(rows->rows());
}

std::wstring numberText(auto value) {
    char digits[64];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    return std::wstring(digits, result.ptr);
}

std::wstring hexText(std::string_view bytes) {
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    std::wstring text;
    for (const char c : bytes) {
        text += kDigits[static_cast<unsigned char>(c) >> 4];
        text += kDigits[static_cast<unsigned char>(c) & 15];
    }
    return text;
}

bool isDate(SWORD type) {
    return type == SQL_DATE || type == SQL_TIME || type == SQL_TIMESTAMP;
}

std::wstring cellText(const StoreCell& cell, SWORD type) {
    switch (cell.type) {
    case StoreCell::Type::Null:
        return {};
    case StoreCell::Type::Integer:
        return numberText(cell.integer);
    case StoreCell::Type::Real:
        if (isDate(type))
            return acFromUtf8(odbc::dateText(cell.real));
        return type == SQL_REAL ? numberText(static_cast<float>(cell.real)) : numberText(cell.real);
    case StoreCell::Type::Text:
        return acFromUtf8(cell.bytes);
    case StoreCell::Type::Bytes:
        return hexText(cell.bytes);
    }
    return {};
}

void setText(CDBVariant& value, const std::wstring& text) {
    value.m_pstringW = new CStringW(text);
    value.m_dwType = DBVT_WSTRING;
}

void setInteger(CDBVariant& value, std::int64_t number, SWORD type) {
    switch (type) {
    case SQL_BIT:
        value.m_boolVal = number != 0 ? TRUE : FALSE;
        value.m_dwType = DBVT_BOOL;
        return;
    case SQL_TINYINT:
        value.m_chVal = static_cast<unsigned char>(number);
        value.m_dwType = DBVT_UCHAR;
        return;
    case SQL_SMALLINT:
        value.m_iVal = static_cast<std::int16_t>(number);
        value.m_dwType = DBVT_SHORT;
        return;
    default:
        value.m_lVal = static_cast<LONG>(number);
        value.m_dwType = DBVT_LONG;
        return;
    }
}

void setReal(CDBVariant& value, double number, SWORD type) {
    if (isDate(type)) {
        const std::optional<odbc::DateParts> parts = odbc::datePartsOf(number);
        if (!parts)
            return; // no such date: as an empty field
        value.m_pdate = new TIMESTAMP_STRUCT{static_cast<SWORD>(parts->year), static_cast<UWORD>(parts->month), static_cast<UWORD>(parts->day),
                                             static_cast<UWORD>(parts->hour), static_cast<UWORD>(parts->minute), static_cast<UWORD>(parts->second), 0};
        value.m_dwType = DBVT_DATE;
    } else if (type == SQL_REAL) {
        value.m_fltVal = static_cast<float>(number);
        value.m_dwType = DBVT_SINGLE;
    } else {
        value.m_dblVal = number;
        value.m_dwType = DBVT_DOUBLE;
    }
}

void setValue(CDBVariant& value, const StoreCell& cell, SWORD type) {
    value.Clear();
    switch (cell.type) {
    case StoreCell::Type::Null:
        return;
    case StoreCell::Type::Integer:
        setInteger(value, cell.integer, type);
        return;
    case StoreCell::Type::Real:
        setReal(value, cell.real, type);
        return;
    case StoreCell::Type::Text:
        setText(value, acFromUtf8(cell.bytes));
        return;
    case StoreCell::Type::Bytes:
        value.m_pbinary = new CLongBinary{{cell.bytes.begin(), cell.bytes.end()}, cell.bytes.size()};
        value.m_dwType = DBVT_BINARY;
        return;
    }
}
} // namespace

CRecordset::CRecordset(CDatabase* pDatabase) : m_pDatabase(pDatabase) {}

CRecordset::~CRecordset() {
    release();
}

BOOL CRecordset::Open(UINT nOpenType, LPCTSTR lpszSQL, DWORD) {
    if (nOpenType != AFX_DB_USE_DEFAULT_TYPE && nOpenType != snapshot && nOpenType != forwardOnly)
        odbc::throwDb(AFX_SQL_ERROR_DYNASET_NOT_SUPPORTED, "Csak változatlan sorok olvashatók: pillanatkép vagy csak előre haladó készlet.");
    if (IsOpen())
        odbc::throwDb(AFX_SQL_ERROR, "A rekordkészlet már nyitva van.");
    if (m_pDatabase == nullptr)
        odbc::throwDb(AFX_SQL_ERROR_CONNECT_FAIL, "A rekordkészletnek nincs adatbázisa.");
    odbc::Session& session = m_pDatabase->session();
    try {
        mRows = std::make_unique<odbc::ResultSet>(session.query(lpszSQL == nullptr ? std::wstring_view() : lpszSQL));
    } catch (const std::exception&) {
        odbc::throwCaught(SQL_ERROR);
    }
    m_pDatabase->mRecordsets.push_back(this);
    mSql = lpszSQL;
    mRow = 0;
    return TRUE;
}

void CRecordset::Close() {
    release();
}

void CRecordset::release() {
    if (mRows == nullptr)
        return;
    mRows.reset();
    std::erase(m_pDatabase->mRecordsets, this);
}

BOOL CRecordset::IsBOF() const {
    return mRow < 0 || rowCount(mRows.get()) == 0 ? TRUE : FALSE;
}

BOOL CRecordset::IsEOF() const {
    return mRow >= rowCount(mRows.get()) ? TRUE : FALSE;
}

void CRecordset::requireRows() const {
    if (rowCount(mRows.get()) == 0)
        odbc::throwDb(AFX_SQL_ERROR_NO_DATA_FOUND, "A rekordkészletnek nincs sora.");
}

void CRecordset::MoveNext() {
    if (IsEOF() != FALSE)
        odbc::throwDb(AFX_SQL_ERROR_NO_DATA_FOUND, "A rekordkészlet a végén áll.");
    ++mRow;
}

void CRecordset::MovePrev() {
    if (IsBOF() != FALSE)
        odbc::throwDb(AFX_SQL_ERROR_NO_DATA_FOUND, "A rekordkészlet az elején áll.");
    --mRow;
}

void CRecordset::MoveFirst() {
    requireRows();
    mRow = 0;
}

void CRecordset::MoveLast() {
    requireRows();
    mRow = rowCount(mRows.get()) - 1;
}

short CRecordset::GetODBCFieldCount() const {
    return mRows == nullptr ? short{0} : static_cast<short>(mRows->columns.size());
}

short CRecordset::fieldIndex(LPCTSTR name) const {
    const std::string wanted = acToUtf8(name == nullptr ? L"" : name);
    for (short i = 0; i < GetODBCFieldCount(); ++i) {
        const std::string& own = mRows->columns[static_cast<std::size_t>(i)].name;
        if (own == wanted || acutWcsicmp(acFromUtf8(own).c_str(), name == nullptr ? L"" : name) == 0)
            return i;
    }
    odbc::throwDb(AFX_SQL_ERROR_FIELD_NOT_FOUND, ("A soroknak nincs ilyen mezője: " + wanted + ".").c_str());
}

void CRecordset::GetODBCFieldInfo(LPCTSTR lpszName, CODBCFieldInfo& fieldinfo) const {
    GetODBCFieldInfo(fieldIndex(lpszName), fieldinfo);
}

void CRecordset::GetODBCFieldInfo(short nIndex, CODBCFieldInfo& fieldinfo) const {
    if (nIndex < 0 || nIndex >= GetODBCFieldCount())
        odbc::throwDb(AFX_SQL_ERROR_FIELD_NOT_FOUND, "A soroknak nincs ilyen sorszámú mezője.");
    const odbc::ResultColumn& column = mRows->columns[static_cast<std::size_t>(nIndex)];
    fieldinfo = {acFromUtf8(column.name), column.sqlType, column.precision, column.scale, column.nullable};
}

StoreCell CRecordset::current(short index) const {
    if (mRows == nullptr || mRow < 0 || mRow >= rowCount(mRows.get()))
        odbc::throwDb(AFX_SQL_ERROR_NO_CURRENT_RECORD, "Nincs aktuális rekord.");
    if (index < 0 || index >= GetODBCFieldCount())
        odbc::throwDb(AFX_SQL_ERROR_FIELD_NOT_FOUND, "A soroknak nincs ilyen sorszámú mezője.");
    return mRows->cell(static_cast<std::size_t>(mRow), static_cast<std::size_t>(index));
}

void CRecordset::GetFieldValue(LPCTSTR lpszName, CDBVariant& varValue, SWORD nFieldType) const {
    GetFieldValue(fieldIndex(lpszName), varValue, nFieldType);
}

void CRecordset::GetFieldValue(short nIndex, CDBVariant& varValue, SWORD nFieldType) const {
    if (nFieldType != DEFAULT_FIELD_TYPE)
        odbc::throwDb(AFX_SQL_ERROR, "Egy mező csak a saját típusában kérhető.");
    const StoreCell cell = current(nIndex);
    setValue(varValue, cell, mRows->columns[static_cast<std::size_t>(nIndex)].sqlType);
}

void CRecordset::GetFieldValue(LPCTSTR lpszName, CString& strValue) const {
    GetFieldValue(fieldIndex(lpszName), strValue);
}

void CRecordset::GetFieldValue(short nIndex, CString& strValue) const {
    const StoreCell cell = current(nIndex);
    strValue = cellText(cell, mRows->columns[static_cast<std::size_t>(nIndex)].sqlType);
}
