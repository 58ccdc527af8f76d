// The header variables of AC1015, in file order: one table of names and types drives reading and writing.
#pragma once

#include "DwgContainer.h"

#include <unordered_map>

enum class DwgVarType {
    kBit,
    kShort,
    kLong,
    kReal,
    kPoint,     // 3BD
    kPoint2,    // 2RD
    kText,
    kColor,     // a palette index in this version
    kTime,      // days and milliseconds
    kSeed,      // a handle in the data stream
    kOwner,     // hard owner handle
    kPointer,   // hard pointer handle
    kPlotStyle, // hard pointer handle that is there only where CEPSNTYPE is 3
    kFlags,     // CELWEIGHT and its companions in one number
};
struct DwgVarRow {
    const wchar_t* name;
    DwgVarType type;
    double standard; // number of a new drawing, for what is a number
};
struct DwgVarValue {
    Adesk::Int32 integer = 0;
    double real = 0.0; // a time: days with their fraction
    AcGePoint3d point;
    std::wstring text;
    Adesk::UInt64 handle = 0;
};

// Values by table row. A new object holds the values of a new drawing.
class DwgHeaderVars {
public:
    DwgHeaderVars();
    static const std::vector<DwgVarRow>& rows();
    // The row of a name, or -1.
    static int rowOf(const std::wstring& name);
    DwgVarValue& at(int row) { return mValues[static_cast<std::size_t>(row)]; }
    const DwgVarValue& at(int row) const { return mValues[static_cast<std::size_t>(row)]; }
    // By a name that is in the table.
    DwgVarValue& operator[](const wchar_t* name) { return at(rowOf(name)); }
    const DwgVarValue& operator[](const wchar_t* name) const { return at(rowOf(name)); }

    bool read(const DwgFile& file, const DwgTextCodec& text, DwgError& error);
    void read(DwgBitReader& in);
    void write(DwgBitWriter& out) const;
    // The rows from one name to another, both included.
    void writeRows(DwgBitWriter& out, const wchar_t* first, const wchar_t* last) const;

private:
    void writeRow(DwgBitWriter& out, std::size_t row) const;
    std::vector<DwgVarValue> mValues;
};
