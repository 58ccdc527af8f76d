// Scale tracking: the annotation scale of the drawing decides which geometry every
// scale-dependent object shows. DOC_CURRENT_SCALE is the module's copy of its denominator.
#pragma once

#include "AcDbAnnotationScale.h"
#include "AcEdReactors.h"

#include <string>
#include <vector>

// False between KVSCALEOFF (or the end of an export command) and the next command that sets it;
// while it is false, scale changes and drawing loads are not followed.
extern bool scaleTrackingEnabled;

// Drawing units / paper units * 1000, truncated: the drawing's unit is the metre, the paper's the millimetre.
Adesk::Int32 denominatorOf(const AcDbAnnotationScale& scale);
// Stores the denominator and brings every scale-dependent entity of model space to it.
void switchScale(const AcDbAnnotationScale& scale);

// One row of the comparison of an earlier scale list with the drawing's annotation scales.
struct ScaleComparisonItem {
    virtual ~ScaleComparisonItem() = default;
    bool matchesCurrent = false;
    std::wstring scaleText; // "1 : 500"
    std::wstring name;
    double paperUnits = 0.0;
    double drawingUnits = 0.0;
    std::wstring source; // "beépített" for a scale of the drawing, "Korvant" for one of the earlier list alone
};
// Denominators of a list such as 200/500/1000; an item that is no number counts as 0.
std::vector<Adesk::Int32> splitScaleList(const std::wstring& list);
std::vector<ScaleComparisonItem> compareScaleList(AcDbDatabase& database, const std::wstring& list);
// Runs for each drawing that opens: an earlier list is compared, then the drawing's own annotation
// scale is applied to the settings and to every entity.
void synchroniseScales();

class CAnnoScaleReactor : public AcDbAnnotationScaleReactor {
public:
    static CAnnoScaleReactor* instance(); // made on first use
    static void release();
    void annotationScaleChanged(AcDbDatabase* database, AcDbObjectId viewport, AcDbAnnotationScale* scale, bool initializing) override;
};
