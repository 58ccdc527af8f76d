#include "CDBVariant.h"

#include <utility>

CDBVariant::CDBVariant(const CDBVariant& other) : m_pstringW(nullptr) {
    *this = other;
}

CDBVariant& CDBVariant::operator=(const CDBVariant& other) {
    if (this == &other)
        return *this;
    Clear();
    switch (other.m_dwType) {
    case DBVT_NULL:
        break;
    case DBVT_BOOL:
        m_boolVal = other.m_boolVal;
        break;
    case DBVT_UCHAR:
        m_chVal = other.m_chVal;
        break;
    case DBVT_SHORT:
        m_iVal = other.m_iVal;
        break;
    case DBVT_LONG:
        m_lVal = other.m_lVal;
        break;
    case DBVT_SINGLE:
        m_fltVal = other.m_fltVal;
        break;
    case DBVT_DOUBLE:
        m_dblVal = other.m_dblVal;
        break;
    case DBVT_DATE:
        m_pdate = new TIMESTAMP_STRUCT(*other.m_pdate);
        break;
    case DBVT_BINARY:
        m_pbinary = new CLongBinary(*other.m_pbinary);
        break;
    default: // the texts
        m_pstring = new CString(*other.m_pstring);
        break;
    }
    m_dwType = other.m_dwType;
    return *this;
}

void CDBVariant::Clear() {
    switch (std::exchange(m_dwType, DBVT_NULL)) {
    case DBVT_DATE:
        delete m_pdate;
        break;
    case DBVT_BINARY:
        delete m_pbinary;
        break;
    case DBVT_STRING:
    case DBVT_ASTRING:
    case DBVT_WSTRING:
        delete m_pstring;
        break;
    default: // a number owns nothing
        break;
    }
    m_pstringW = nullptr;
}
