// INSERT: Open Design description of DWG, chapter "INSERT (7)", R2000 form.
#include "DwgClassRow.h"
#include "DwgPlane.h"

template <> struct DbObjectAccess::DwgFields<AcDbBlockReference> {
    enum ScaleForm { kNone = 0, kFirstIsOne = 1, kUniform = 2, kAllOne = 3 };

    static unsigned scaleForm(const AcGeScale3d& scale) {
        if (scale.sx == 1.0)
            return scale.sy == 1.0 && scale.sz == 1.0 ? kAllOne : kFirstIsOne;
        return scale.sx == scale.sy && scale.sx == scale.sz ? kUniform : kNone;
    }

    template <class Stream> static void file(Stream& s, AcDbBlockReference& reference) {
        AcGePoint3d place = dwgToPlane(reference.mPosition, reference.mNormal);
        s.BD3(place);
        AcGeScale3d& scale = reference.mScale;
        unsigned form = scaleForm(scale);
        s.BB(form);
        if constexpr (Stream::kReading)
            scale = AcGeScale3d();
        if (form == kNone || form == kUniform)
            s.RD(scale.sx);
        if (form == kNone || form == kFirstIsOne) {
            s.DD(scale.sy, scale.sx);
            s.DD(scale.sz, scale.sx);
        } else {
            scale.sy = scale.sz = scale.sx;
        }
        s.BD(reference.mRotation);
        s.BD3(reference.mNormal);
        const std::vector<AcDbObjectId> live = dwgLiveIds(reference.mAttributes);
        bool attributes = !live.empty();
        s.B(attributes);
        s.H(5, reference.mBlock);
        if (attributes)
            attributeLinks(s, reference, live);
        if constexpr (Stream::kReading)
            reference.mPosition = dwgToWorld(place, reference.mNormal);
    }

    // The file names the first and last attribute; those between hang together by their links, which
    // are followed when every record has been read.
    template <class Stream> static void attributeLinks(Stream& s, AcDbBlockReference& reference, const std::vector<AcDbObjectId>& live) {
        AcDbObjectId first, last;
        if constexpr (!Stream::kReading) {
            first = live.front();
            last = live.back();
        }
        s.H(4, first);
        s.H(4, last);
        s.H(3, reference.mSequenceEnd);
        if constexpr (Stream::kReading) {
            reference.mAttributes.removeAll();
            reference.mAttributes.append(first);
            reference.mAttributes.append(last);
        }
    }
};
extern const DwgClassRow kDwgInsert = dwgClassRow<AcDbBlockReference>(0x07);
