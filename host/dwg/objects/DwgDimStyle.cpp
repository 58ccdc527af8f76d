// DIMSTYLE: kept as it came, but for its name. A new one takes its values from the header variables'
// table, whose dimension rows stand in the same order (Open Design description of DWG, "DIMSTYLE (69)").
#include "DwgHeaderVars.h"
#include "DwgKept.h"

template <> struct DbObjectAccess::DwgFields<AcDbDimStyleTableRecord> {
    static void file(DwgIn& s, AcDbDimStyleTableRecord& style) {
        s.TV(DbObjectAccess::name(style));
        dwgPassKept(s);
    }
    static void file(DwgOut& s, AcDbDimStyleTableRecord& style) {
        DwgKeptRest rest(style);
        s.TV(DbObjectAccess::name(style));
        rest.fields().TV();
        if (!rest.write(s))
            writeNew(s);
    }
    static void writeNew(DwgOut& s) {
        s.B(true); // referenced
        s.BS(0);
        s.B(false);
        const DwgHeaderVars standard;
        standard.writeRows(s.data(), L"DIMPOST", L"DIMATFIT");
        standard.writeRows(s.data(), L"DIMLWD", L"DIMLWE");
        s.B(false);
        s.H(5, AcDbObjectId()); // external reference block
        s.H(5, s.context().database->textStyleStandard());
        for (int arrow = 0; arrow < 4; ++arrow) // leader, both, first, second: the usual one
            s.H(5, AcDbObjectId());
    }
};
extern const DwgClassRow kDwgDimStyle = dwgKeptRow(dwgClassRow<AcDbDimStyleTableRecord>(0x45));
