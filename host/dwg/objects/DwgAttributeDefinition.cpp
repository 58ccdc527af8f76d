// ATTDEF: Open Design description of DWG, chapter "ATTDEF (3)". An attribute with a prompt.
#include "DwgTexts.h"

template <> struct DbObjectAccess::DwgFields<AcDbAttributeDefinition> {
    template <class Stream> static void file(Stream& s, AcDbAttributeDefinition& definition) {
        DwgFields<AcDbText>::common(s, definition);
        s.TV(definition.mTag);
        s.BS(definition.mFieldLength);
        s.RC(definition.mFlags);
        s.TV(definition.mPrompt);
        s.style(static_cast<AcDbText&>(definition).mStyle);
    }
};
extern const DwgClassRow kDwgAttributeDefinition = dwgClassRow<AcDbAttributeDefinition>(0x03);
