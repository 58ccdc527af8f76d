// Scale tracking: the annotation scale of the drawing decides which geometry every
// scale-dependent object shows. DOC_CURRENT_SCALE is the module's copy of its denominator.
#pragma once

#include "AcDbAnnotationScale.h"
#include "AcEdReactors.h"
#include "ScaleComparisonItem.h"

#include <string>
#include <vector>

// False between KVSCALEOFF (or the end of an export command) and the next command that sets it;
// while it is false, scale changes and drawing loads are not followed.
extern bool scaleTrackingEnabled;

// Drawing units / paper units * 1000, truncated: the drawing's unit is the metre, the paper's the millimetre.
// 0 where that is no number of 32 bits, as for a scale of no paper at all.
Adesk::Int32 denominatorOf(const AcDbAnnotationScale& scale);
// Stores the denominator and brings every scale-dependent entity of model space to it. A scale whose
// denominator is not within 1 and 32767, which the settings can hold, changes nothing and is told in one line.
void switchScale(const AcDbAnnotationScale& scale);

// Denominators of a list such as 200/500/1000; an item that is no number counts as 0.
std::vector<Adesk::Int32> splitScaleList(const std::wstring& list);
std::vector<ScaleComparisonItem> compareScaleList(AcDbDatabase& database, const std::wstring& list);
// Runs for each drawing that opens: an earlier list is compared with the drawing's annotation scales in a
// window, until the user has confirmed it once; then the drawing's own annotation scale is applied to
// the settings and to every entity.
void synchroniseScales();

class CAnnoScaleReactor : public AcDbAnnotationScaleReactor {
public:
    static CAnnoScaleReactor* instance(); // made on first use
    static void release();
    void annotationScaleChanged(AcDbDatabase* database, AcDbObjectId viewport, AcDbAnnotationScale* scale, bool initializing) override;
};
