// The extents of model space and paper space as a saved drawing tells them: programs zoom by them, and
// sort drawings by them without reading an object.
#pragma once

#include "AcDbDatabase.h"
#include "GiExtentsMeter.h"

#include <unordered_map>

class AcDbBlockReference;

// The box of what each space shows, whatever layers are off or frozen. A drawing that was opened and not
// changed keeps the extents it came with: they are its maker's, who may know objects that nobody here can
// draw. Where such an object stands in a changed space, its extents of before stay inside the new ones. A
// module's objects are measured always: it may have brought them in line with the scale at the load.
class DwgExtents {
public:
    explicit DwgExtents(AcDbDatabase& db);
    // An entity that has been drawn anyway; its picture is shared with those of the same saving alone.
    void addDrawn(const AcDbEntity& entity, const GiDisplayList& picture);
    // Measures the entities that were not drawn, and tells the database's header.
    void finish();

private:
    struct Space {
        Space(AcDbObjectId id, const wchar_t* lower, const wchar_t* upper)
            : block(id), minimum(lower), maximum(upper) {}
        AcDbObjectId block;
        const wchar_t *minimum, *maximum; // the header's variables
        bool isKept = false;
        GiExtentsMeter meter;
    };
    AcDbExtents known(const Space& space) const; // as the header has them; not valid when empty
    void tell(const Space& space);
    void measure(Space& space);
    void measure(Space& space, AcDbEntity& entity);
    bool isCovered(const Space& space, const AcDbBlockReference& reference);
    AcDbDatabase& mDb;
    bool mIsUnchanged; // since it was opened or saved
    Space mModel, mPaper;
    std::unordered_map<AcDbObjectId, AcDbExtents> mBlocks; // boxes of definitions
};
