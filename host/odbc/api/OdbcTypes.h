// The type codes and records of ODBC that the database classes speak.
#pragma once

#include "WinTypes.h"

using RETCODE = std::int16_t;
using SWORD = std::int16_t;
using UWORD = std::uint16_t;
using UDWORD = std::uint32_t;

constexpr RETCODE SQL_SUCCESS = 0;
constexpr RETCODE SQL_ERROR = -1;

// Column types. Dates and times carry the codes of ODBC 2 (9, 10, 11), as the database classes do.
constexpr SWORD SQL_UNKNOWN_TYPE = 0;
constexpr SWORD SQL_CHAR = 1, SQL_NUMERIC = 2, SQL_DECIMAL = 3, SQL_INTEGER = 4, SQL_SMALLINT = 5, SQL_FLOAT = 6,
                SQL_REAL = 7, SQL_DOUBLE = 8, SQL_DATE = 9, SQL_TIME = 10, SQL_TIMESTAMP = 11, SQL_VARCHAR = 12;
constexpr SWORD SQL_LONGVARCHAR = -1, SQL_BINARY = -2, SQL_VARBINARY = -3, SQL_LONGVARBINARY = -4, SQL_BIGINT = -5,
                SQL_TINYINT = -6, SQL_BIT = -7, SQL_WCHAR = -8, SQL_WVARCHAR = -9, SQL_WLONGVARCHAR = -10,
                SQL_GUID = -11;

constexpr SWORD SQL_NO_NULLS = 0, SQL_NULLABLE = 1, SQL_NULLABLE_UNKNOWN = 2;

struct TIMESTAMP_STRUCT {
    SWORD year = 0;
    UWORD month = 0, day = 0, hour = 0, minute = 0, second = 0;
    UDWORD fraction = 0; // billionths of a second
};
