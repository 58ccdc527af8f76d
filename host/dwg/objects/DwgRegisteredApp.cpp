// APPID: Open Design description of DWG, chapter "APPID (67)".
#include "DwgRecordName.h"

template <> struct DbObjectAccess::DwgFields<AcDbRegAppTableRecord> {
    template <class Stream> static void file(Stream& s, AcDbRegAppTableRecord& app) {
        DwgRecordName head;
        head.file(s, DbObjectAccess::name(app));
        unsigned unknown = 0; // 0 in the drawings seen
        s.RC(unknown);
        AcDbObjectId external;
        s.H(5, external);
    }
};
extern const DwgClassRow kDwgRegisteredApp = dwgClassRow<AcDbRegAppTableRecord>(0x43);
