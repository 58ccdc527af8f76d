// The question before the state change deletes something.
#include "confirmDeletion.h"

#include "AfxApp.h"
#include "AfxMessages.h"
#include "TrfcDrawingUtils.h"
#include "TrfcStateChangeData.h"

bool confirmDeletion(const AcDbEntity& entity, const wchar_t* question) {
    if (!stateChangeData().confirmOnDelete)
        return true;
    entity.highlight();
    AcDbExtents extents;
    if (entity.getGeomExtents(extents) == Acad::eOk)
        zoomToExtents(extents);
    const int answer = AfxMessageBoxOf(nullptr, question, L"Korvant - Törlés megerősítése", MB_OKCANCEL);
    entity.unhighlight();
    return answer == IDOK;
}
