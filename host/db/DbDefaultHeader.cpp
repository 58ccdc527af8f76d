#include "DbDefaultHeader.h"

namespace {
struct IntRow { const ACHAR* name; int value; };
struct RealRow { const ACHAR* name; double value; };
struct PointRow { const ACHAR* name; AcGePoint3d value; };

constexpr IntRow kInts[] = {
    {L"DIMASO", 1}, {L"DIMSHO", 1}, {L"PLINEGEN", 0}, {L"ORTHOMODE", 0}, {L"REGENMODE", 1}, {L"FILLMODE", 1},
    {L"QTEXTMODE", 0}, {L"PSLTSCALE", 1}, {L"LIMCHECK", 0}, {L"USRTIMER", 1}, {L"SKPOLY", 0}, {L"ANGDIR", 0},
    {L"SPLFRAME", 0}, {L"MIRRTEXT", 0}, {L"WORLDVIEW", 1}, {L"TILEMODE", 1}, {L"PLIMCHECK", 0}, {L"VISRETAIN", 1},
    {L"DISPSILH", 0}, {L"PELLIPSE", 0}, {L"PROXYGRAPHICS", 1}, {L"TREEDEPTH", 3020}, {L"LUNITS", 2}, {L"LUPREC", 4},
    {L"AUNITS", 0}, {L"AUPREC", 0}, {L"ATTMODE", 1}, {L"PDMODE", 0}, {L"SPLINESEGS", 8}, {L"SURFU", 6},
    {L"SURFV", 6}, {L"SURFTYPE", 6}, {L"SURFTAB1", 6}, {L"SURFTAB2", 6}, {L"SPLINETYPE", 6}, {L"SHADEDGE", 3},
    {L"SHADEDIF", 70}, {L"UNITMODE", 0}, {L"MAXACTVP", 64}, {L"ISOLINES", 4}, {L"CMLJUST", 0}, {L"TEXTQLTY", 50},
    {L"CECOLOR", 256}, {L"CELWEIGHT", AcDb::kLnWtByLayer}, {L"MEASUREMENT", 1}, {L"INSUNITS", 6}, {L"LWDISPLAY", 0},
};
constexpr RealRow kReals[] = {
    {L"LTSCALE", 1.0}, {L"TEXTSIZE", 2.5}, {L"TRACEWID", 1.0}, {L"SKETCHINC", 1.0}, {L"FILLETRAD", 0.0},
    {L"THICKNESS", 0.0}, {L"ANGBASE", 0.0}, {L"PDSIZE", 0.0}, {L"PLINEWID", 0.0}, {L"CHAMFERA", 0.0},
    {L"CHAMFERB", 0.0}, {L"CHAMFERC", 0.0}, {L"CHAMFERD", 0.0}, {L"FACETRES", 0.5}, {L"CMLSCALE", 20.0},
    {L"CELTSCALE", 1.0}, {L"ELEVATION", 0.0}, {L"PELEVATION", 0.0}, {L"PSVPSCALE", 0.0},
};

std::map<std::wstring, DbHeaderValue> build() {
    std::map<std::wstring, DbHeaderValue> header;
    for (const IntRow& row : kInts)
        header[row.name].integer = row.value;
    for (const RealRow& row : kReals) {
        header[row.name].kind = DbHeaderValue::kDouble;
        header[row.name].real = row.value;
    }
    const PointRow points[] = {
        {L"INSBASE", {}}, {L"LIMMIN", {}}, {L"LIMMAX", {420.0, 297.0, 0.0}}, {L"PLIMMIN", {}}, {L"PLIMMAX", {420.0, 297.0, 0.0}},
        {L"UCSORG", {}}, {L"UCSXDIR", {1.0, 0.0, 0.0}}, {L"UCSYDIR", {0.0, 1.0, 0.0}},
    };
    for (const PointRow& row : points) {
        header[row.name].kind = DbHeaderValue::kPoint;
        header[row.name].point = row.value;
    }
    return header;
}
} // namespace

const std::map<std::wstring, DbHeaderValue>& dbDefaultHeader() {
    static const std::map<std::wstring, DbHeaderValue> theHeader = build();
    return theHeader;
}
