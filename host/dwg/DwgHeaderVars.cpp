// Walks the table once for reading and once for writing.
#include "DwgHeaderVars.h"

#include <cmath>

namespace {
constexpr double kMillisecondsADay = 86400000.0;

const std::unordered_map<std::wstring, int>& index() {
    static const std::unordered_map<std::wstring, int> map = [] {
        std::unordered_map<std::wstring, int> made;
        int row = 0;
        for (const DwgVarRow& r : DwgHeaderVars::rows())
            made.emplace(r.name, row++);
        return made;
    }();
    return map;
}

void writeTime(DwgBitWriter& out, double time) {
    double days = std::floor(time);
    double rest = std::round((time - days) * kMillisecondsADay);
    if (rest >= kMillisecondsADay) {
        days += 1.0;
        rest = 0.0;
    }
    const bool sane = days >= 0.0 && days < 2.0e9;
    out.BL(sane ? static_cast<Adesk::Int32>(days) : 0);
    out.BL(sane ? static_cast<Adesk::Int32>(rest) : 0);
}
double readTime(DwgBitReader& in) {
    const double days = in.BL();
    return days + in.BL() / kMillisecondsADay;
}
} // namespace

DwgHeaderVars::DwgHeaderVars() : mValues(rows().size()) {
    for (std::size_t i = 0; i < mValues.size(); ++i) {
        mValues[i].real = rows()[i].standard;
        mValues[i].integer = std::abs(rows()[i].standard) < 1.0e9 ? static_cast<Adesk::Int32>(rows()[i].standard) : 0;
    }
    for (const wchar_t* axis : {L"UCSXDIR", L"PUCSXDIR"})
        (*this)[axis].point.x = 1.0;
    for (const wchar_t* axis : {L"UCSYDIR", L"PUCSYDIR"})
        (*this)[axis].point.y = 1.0;
    // Extents of an empty drawing: the lower corner above the upper one.
    for (const wchar_t* corner : {L"EXTMIN", L"PEXTMIN"})
        (*this)[corner].point.set(1.0e20, 1.0e20, 1.0e20);
    for (const wchar_t* corner : {L"EXTMAX", L"PEXTMAX"})
        (*this)[corner].point.set(-1.0e20, -1.0e20, -1.0e20);
    for (const wchar_t* corner : {L"LIMMAX", L"PLIMMAX"})
        (*this)[corner].point.set(420.0, 297.0, 0.0);
    (*this)[L"MENUNAME"].text = L".";
}

int DwgHeaderVars::rowOf(const std::wstring& name) {
    const auto found = index().find(name);
    return found == index().end() ? -1 : found->second;
}

bool DwgHeaderVars::read(const DwgFile& file, const DwgTextCodec& text, DwgError& error) {
    std::optional<DwgBitReader> section = file.guardedSection(kDwgHeaderVars, &text, L"the header variables' section", error);
    if (!section)
        return false;
    read(*section);
    if (section->failed())
        return error.set(Acad::eFilerError, L"The drawing file is damaged: the header variables cannot be understood.");
    return true;
}

void DwgHeaderVars::read(DwgBitReader& in) {
    const int penType = rowOf(L"CEPSNTYPE");
    for (std::size_t i = 0; i < mValues.size(); ++i) {
        DwgVarValue& v = mValues[i];
        switch (rows()[i].type) {
        case DwgVarType::kBit: v.integer = in.B() ? 1 : 0; break;
        case DwgVarType::kShort:
        case DwgVarType::kColor: v.integer = in.BS(); break;
        case DwgVarType::kLong:
        case DwgVarType::kFlags: v.integer = in.BL(); break;
        case DwgVarType::kReal: v.real = in.BD(); break;
        case DwgVarType::kPoint: v.point = in.BD3(); break;
        case DwgVarType::kPoint2: {
            const AcGePoint2d p = in.RD2();
            v.point.set(p.x, p.y, 0.0);
            break;
        }
        case DwgVarType::kText: v.text = in.TV(); break;
        case DwgVarType::kTime: v.real = readTime(in); break;
        case DwgVarType::kSeed:
        case DwgVarType::kOwner:
        case DwgVarType::kPointer: v.handle = in.H().absolute(0); break;
        case DwgVarType::kPlotStyle:
            if (at(penType).integer == 3)
                v.handle = in.H().absolute(0);
            break;
        }
    }
}

void DwgHeaderVars::write(DwgBitWriter& out) const {
    for (std::size_t row = 0; row < mValues.size(); ++row)
        writeRow(out, row);
}

void DwgHeaderVars::writeRows(DwgBitWriter& out, const wchar_t* first, const wchar_t* last) const {
    for (int row = rowOf(first); row <= rowOf(last); ++row)
        writeRow(out, static_cast<std::size_t>(row));
}

void DwgHeaderVars::writeRow(DwgBitWriter& out, std::size_t row) const {
    const DwgVarValue& v = mValues[row];
    switch (rows()[row].type) {
    case DwgVarType::kBit: out.B(v.integer != 0); break;
    case DwgVarType::kShort:
    case DwgVarType::kColor: out.BS(static_cast<Adesk::Int16>(v.integer)); break;
    case DwgVarType::kLong:
    case DwgVarType::kFlags: out.BL(v.integer); break;
    case DwgVarType::kReal: out.BD(v.real); break;
    case DwgVarType::kPoint: out.BD3(v.point); break;
    case DwgVarType::kPoint2: out.RD2({v.point.x, v.point.y}); break;
    case DwgVarType::kText: out.TV(v.text); break;
    case DwgVarType::kTime: writeTime(out, v.real); break;
    case DwgVarType::kSeed: out.H(0, v.handle); break;
    case DwgVarType::kOwner: out.H(3, v.handle); break;
    case DwgVarType::kPointer: out.H(5, v.handle); break;
    case DwgVarType::kPlotStyle:
        if (at(rowOf(L"CEPSNTYPE")).integer == 3)
            out.H(5, v.handle);
        break;
    }
}
