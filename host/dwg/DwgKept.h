// Records whose known fields stand before bits that are kept as they came.
#pragma once

#include "DwgClassRow.h"
#include "DwgRaw.h"

// Leaves the rest of a record to its kept bits.
inline void dwgPassKept(DwgIn& s) {
    s.data().setPosition(s.data().end());
    s.handles().setPosition(s.handles().end());
}

// The kept bits of a record while it is written: the known fields are read off fields(), then
// the rest is copied.
class DwgKeptRest {
public:
    explicit DwgKeptRest(AcDbObject& object) {
        const AcDbObjectImpData* data = DbObjectAccess::dataIfAny(object);
        if (data == nullptr || !data->raw || !dwgCutRaw(*data->raw, false, mParts))
            return;
        mRaw = &*data->raw;
        mFields = DwgBitReader(mRaw->bytes.data(), mRaw->bytes.size());
        mFields.setEnd(mParts.layout.dataEnd);
        mFields.setPosition(mParts.layout.fields);
    }
    DwgBitReader& fields() { return mFields; }
    // False when the object has no kept bits.
    bool write(DwgOut& s) {
        if (mRaw == nullptr)
            return false;
        s.data().copyBits(mRaw->bytes.data(), mFields.position(), mParts.layout.dataEnd);
        dwgWriteOwnReferences(s.handles(), *mRaw, mParts);
        return true;
    }

private:
    const DbRawRecord* mRaw = nullptr;
    DwgRawParts mParts;
    DwgBitReader mFields;
};

inline DwgClassRow dwgKeptRow(DwgClassRow row) {
    row.keepsBits = true;
    return row;
}
