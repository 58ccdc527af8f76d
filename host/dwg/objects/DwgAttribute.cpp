// ATTRIB: Open Design description of DWG, chapter "ATTRIB (2)". A text with a tag.
#include "DwgTexts.h"

template <> struct DbObjectAccess::DwgFields<AcDbAttribute> {
    template <class Stream> static void file(Stream& s, AcDbAttribute& attribute) {
        DwgFields<AcDbText>::common(s, attribute);
        s.TV(attribute.mTag);
        s.BS(attribute.mFieldLength);
        s.RC(attribute.mFlags);
        s.style(static_cast<AcDbText&>(attribute).mStyle);
    }
};
extern const DwgClassRow kDwgAttribute = dwgClassRow<AcDbAttribute>(0x02);
