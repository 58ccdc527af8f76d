// What every symbol table record begins with.
#pragma once

#include "DwgClassRow.h"

// Open Design description of DWG, chapters of the table records: name, the "64" flag (referenced), index of
// the external reference plus one, and whether the record depends on one. The index and the
// flags of an external reference are worked out anew by whoever attaches it.
struct DwgRecordName {
    bool referenced = true, dependent = false;
    Adesk::Int16 xrefIndex = 0;
    template <class Stream> void file(Stream& s, std::wstring& name) {
        s.TV(name);
        s.B(referenced);
        s.BS(xrefIndex);
        s.B(dependent);
    }
};
