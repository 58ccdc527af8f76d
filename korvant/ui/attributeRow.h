// One row of a property grid: a named value of a block or a post that is edited in place.
#pragma once

#include "AcAdesk.h"

#include <string>

struct attributeRow {
    enum Kind : Adesk::Int32 { kText = 0, kDropDown = 1 };
    // What the value belongs to, so that a page knows where an edit is to be written.
    enum Source { kPageField, kBlockAttribute, kUserParameter };

    Adesk::Int32 kind = kText;
    std::wstring name;
    std::wstring value;
    std::wstring valueList; // choices of a drop-down joined by ";"; empty: any text may be typed
    bool readOnly = false;  // shown, never edited
    Source source = kPageField;
};
