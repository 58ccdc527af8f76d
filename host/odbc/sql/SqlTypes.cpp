#include "sql/SqlTypes.h"

namespace odbc {

namespace {
using enum ColumnKind;
constexpr auto kNone = SqlTypeRow::Sizes::None, kSize = SqlTypeRow::Sizes::Size, kDecimal = SqlTypeRow::Sizes::Decimal;

constexpr SqlTypeRow kTypes[] = {
    {L"NUMBER", Double, kNone, 0, 0},       {L"DOUBLE", Double, kNone, 0, 0},
    {L"FLOAT", Double, kNone, 0, 0},        {L"FLOAT8", Double, kNone, 0, 0},
    {L"IEEEDOUBLE", Double, kNone, 0, 0},   {L"TEXT", Text, kSize, 255, 255},
    {L"VARCHAR", Text, kSize, 255, 255},    {L"CHAR", Text, kSize, 255, 255},
    {L"CHARACTER", Text, kSize, 255, 255},  {L"STRING", Text, kSize, 255, 255},
    {L"ALPHANUMERIC", Text, kSize, 255, 255}, {L"MEMO", Memo, kNone, 0, 0},
    {L"LONGTEXT", Memo, kNone, 0, 0},       {L"LONGCHAR", Memo, kNone, 0, 0},
    {L"NOTE", Memo, kNone, 0, 0},           {L"LONG", Long, kNone, 0, 0},
    {L"INTEGER", Long, kNone, 0, 0},        {L"INT", Long, kNone, 0, 0},
    {L"INTEGER4", Long, kNone, 0, 0},       {L"SHORT", Short, kNone, 0, 0},
    {L"SMALLINT", Short, kNone, 0, 0},      {L"INTEGER2", Short, kNone, 0, 0},
    {L"BYTE", Byte, kNone, 0, 0},           {L"TINYINT", Byte, kNone, 0, 0},
    {L"INTEGER1", Byte, kNone, 0, 0},       {L"REAL", Single, kNone, 0, 0},
    {L"SINGLE", Single, kNone, 0, 0},       {L"FLOAT4", Single, kNone, 0, 0},
    {L"IEEESINGLE", Single, kNone, 0, 0},   {L"CURRENCY", Currency, kNone, 0, 0},
    {L"MONEY", Currency, kNone, 0, 0},      {L"DATETIME", Date, kNone, 0, 0},
    {L"DATE", Date, kNone, 0, 0},           {L"TIME", Date, kNone, 0, 0},
    {L"TIMESTAMP", Date, kNone, 0, 0},      {L"YESNO", Bool, kNone, 0, 0},
    {L"BIT", Bool, kNone, 0, 0},            {L"LOGICAL", Bool, kNone, 0, 0},
    {L"BOOLEAN", Bool, kNone, 0, 0},        {L"GUID", Guid, kNone, 0, 0},
    {L"UNIQUEIDENTIFIER", Guid, kNone, 0, 0}, {L"DECIMAL", Numeric, kDecimal, 18, 28},
    {L"NUMERIC", Numeric, kDecimal, 18, 28}, {L"DEC", Numeric, kDecimal, 18, 28},
    {L"BINARY", Binary, kSize, 255, 255},   {L"VARBINARY", Binary, kSize, 255, 255},
    {L"OLEOBJECT", Ole, kNone, 0, 0},       {L"LONGBINARY", Ole, kNone, 0, 0},
    {L"IMAGE", Ole, kNone, 0, 0},           {L"GENERAL", Ole, kNone, 0, 0},
};
} // namespace

const SqlTypeRow* sqlType(const SqlToken& word) {
    for (const SqlTypeRow& row : kTypes)
        if (isKeyword(word, row.word))
            return &row;
    return nullptr;
}

} // namespace odbc
