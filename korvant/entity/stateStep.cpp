#include "stateStep.h"

#include "AfxApp.h"
#include "AfxMessages.h"
#include "TrfcDrawingUtils.h"

TrfcStateStep stateStep(const TrfcStateColumn& column, int state) {
    if (state == kStatePlanned && column.plannedToExisting)
        return TrfcStateStep::toExisting;
    if (state == kStateExisting && column.existingToBeRemoved)
        return TrfcStateStep::toBeRemoved;
    if (state == kStateToBeRemoved && column.toBeRemovedDeleted)
        return TrfcStateStep::deletion;
    return TrfcStateStep::none;
}

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
