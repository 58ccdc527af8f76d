// One value of a field: the tag m_dwType says which member holds it.
#pragma once

#include "CString.h"
#include "OdbcTypes.h"

#include <vector>

constexpr DWORD DBVT_NULL = 0, DBVT_BOOL = 1, DBVT_UCHAR = 2, DBVT_SHORT = 3, DBVT_LONG = 4, DBVT_SINGLE = 5,
                DBVT_DOUBLE = 6, DBVT_DATE = 7, DBVT_STRING = 8, DBVT_BINARY = 9, DBVT_ASTRING = 10, DBVT_WSTRING = 11;

struct CLongBinary {
    std::vector<BYTE> m_data;
    std::size_t m_dwDataLength = 0; // the size of m_data
};

// Owns what its pointer members point to. CRecordset gives text always as DBVT_WSTRING: m_pstringW,
// which m_pstring reads as well, both being wide here.
class CDBVariant {
public:
    CDBVariant() : m_pstringW(nullptr) {}
    CDBVariant(const CDBVariant& other);
    CDBVariant& operator=(const CDBVariant& other);
    ~CDBVariant() { Clear(); }
    void Clear(); // becomes DBVT_NULL

    DWORD m_dwType = DBVT_NULL;
    union {
        BOOL m_boolVal;          // DBVT_BOOL
        unsigned char m_chVal;   // DBVT_UCHAR
        std::int16_t m_iVal;     // DBVT_SHORT
        LONG m_lVal;             // DBVT_LONG
        float m_fltVal;          // DBVT_SINGLE
        double m_dblVal;         // DBVT_DOUBLE
        TIMESTAMP_STRUCT* m_pdate; // DBVT_DATE
        CString* m_pstring;      // DBVT_STRING, DBVT_WSTRING
        CStringW* m_pstringW;    // DBVT_WSTRING
        CLongBinary* m_pbinary;  // DBVT_BINARY
    };
};
