// XRECORD: Open Design description of DWG, chapter "XRECORD (79)", R2000 form.
#include "DwgChains.h"
#include "DwgClassRow.h"

template <> struct DbObjectAccess::DwgFields<AcDbXrecord> {
    static void file(DwgIn& s, AcDbXrecord& record) {
        const std::size_t size = s.data().count(s.data().BL(), 8);
        DwgBitReader values = s.data();
        values.setEnd(values.position() + size * 8);
        if (!dwgReadXrecordData(values, s.ids(), record.mChain))
            s.fail();
        s.data().setPosition(s.data().position() + size * 8);
        s.enumBS(record.mMergeStyle, AcDb::kDrcUnmangleName);
        while (s.handles().left() >= 8 && !s.failed())
            s.H(); // repeats ids of the data in files of other versions
    }
    static void file(DwgOut& s, AcDbXrecord& record) {
        DwgBitWriter values(s.data().text());
        dwgWriteXrecordData(values, record.mChain);
        const std::vector<Adesk::UInt8>& bytes = values.finish();
        s.BL(bytes.size());
        s.data().bytes(bytes.data(), bytes.size());
        s.enumBS(record.mMergeStyle, AcDb::kDrcUnmangleName);
    }
};
extern const DwgClassRow kDwgXrecord = dwgClassRow<AcDbXrecord>(0x4F);
