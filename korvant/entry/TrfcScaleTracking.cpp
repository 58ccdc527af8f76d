// Scale tracking: from the drawing's annotation scale to the settings and the entities.
#include "TrfcScaleTracking.h"

#include "AcEdAds.h"
#include "AcUtText.h"
#include "CScaleComparisonDialog.h"
#include "TrfcDocSettings.h"
#include "TrfcDrawingUtils.h"
#include "TrfcScalable.h"
#include "TrfcUnchangedScope.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>

bool scaleTrackingEnabled = true;

namespace {

constexpr Adesk::Int32 kGreatestDenominator = 32767; // DOC_CURRENT_SCALE has 16 bits

std::unique_ptr<CAnnoScaleReactor>& reactorSlot() {
    static std::unique_ptr<CAnnoScaleReactor> reactor;
    return reactor;
}

std::wstring scaleText(Adesk::Int32 denominator) {
    return acFormat(L"1 : %d", denominator);
}

// Rows of the drawing's own scales whose denominator is in the list, each taken out of it.
void compareWithCollection(AcDbDatabase& database, std::vector<Adesk::Int32>& denominators, std::vector<ScaleComparisonItem>& items) {
    const AcDbObjectContextManager* manager = database.objectContextManager();
    AcDbObjectContextCollection* collection = manager != nullptr ? manager->contextCollection(acdbAnnotationScaleCollectionName) : nullptr;
    if (collection == nullptr)
        return;
    const std::unique_ptr<AcDbAnnotationScale> current(database.cannoscale());
    std::wstring currentName;
    if (current != nullptr)
        current->getName(currentName);
    const std::unique_ptr<AcDbObjectContextCollectionIterator> iterator(collection->newIterator());
    for (iterator->start(); !iterator->done(); iterator->next()) {
        AcDbObjectContext* context = nullptr;
        if (iterator->getContext(context) != Acad::eOk)
            continue;
        const std::unique_ptr<AcDbObjectContext> owned(context);
        const AcDbAnnotationScale* scale = AcDbAnnotationScale::cast(context);
        if (scale == nullptr)
            continue;
        const auto found = std::find(denominators.begin(), denominators.end(), denominatorOf(*scale));
        if (found == denominators.end())
            continue;
        ScaleComparisonItem item;
        scale->getName(item.name);
        scale->getPaperUnits(item.paperUnits);
        scale->getDrawingUnits(item.drawingUnits);
        item.matchesCurrent = item.name == currentName;
        item.scaleText = scaleText(*found);
        item.source = kScaleOfDrawing;
        items.push_back(item);
        denominators.erase(found);
    }
}

// Integer divisions: a scale that does not divide 1000 evenly is meant to be corrected by the user. What
// was no number in the list, a denominator of 0, gets a paper length of 0 for the same reason.
ScaleComparisonItem listItem(Adesk::Int32 denominator) {
    ScaleComparisonItem item;
    item.scaleText = scaleText(denominator);
    item.name = L"KV " + item.scaleText;
    item.source = kScaleOfList;
    if (denominator < 1000) {
        item.paperUnits = denominator != 0 ? 1000 / denominator : 0;
        item.drawingUnits = 1.0;
    } else {
        item.paperUnits = 1.0;
        item.drawingUnits = denominator / 1000;
    }
    return item;
}

// A denominator of 0 would shrink every symbol to its foot, and nothing could be derived from it again.
void tellUnusable(const AcDbAnnotationScale& scale) {
    std::wstring name;
    scale.getName(name);
    acutPrintf(L"A(z) \"%s\" lépték nevezője nem 1 és %d közé esik; a rajz Korvant objektumai nem változtak.\n", name.c_str(), kGreatestDenominator);
}

} // namespace

Adesk::Int32 denominatorOf(const AcDbAnnotationScale& scale) {
    double paper = 1.0, drawing = 0.0;
    scale.getPaperUnits(paper);
    scale.getDrawingUnits(drawing);
    // Files may hold a paper length of 0, and lengths of any size.
    const double denominator = paper != 0.0 ? drawing / paper * 1000.0 : 0.0;
    return std::abs(denominator) <= std::numeric_limits<Adesk::Int32>::max() ? static_cast<Adesk::Int32>(denominator) : 0;
}

void switchScale(const AcDbAnnotationScale& scale) {
    const Adesk::Int32 denominator = denominatorOf(scale);
    if (denominator < 1 || denominator > kGreatestDenominator) {
        tellUnusable(scale);
        return;
    }
    TrfcDocSettings::setDocInt(DOC_CURRENT_SCALE, denominator);
    AcDbBlockTableRecord* space = nullptr;
    if (openBlockRecord(acdbHostApplicationServices()->workingDatabase(), ACDB_MODEL_SPACE, space, AcDb::kForWrite) != Acad::eOk)
        return;
    AcDbBlockTableRecordIterator* walk = nullptr;
    if (space->newIterator(walk) == Acad::eOk) {
        const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(walk);
        for (; !iterator->done(); iterator->step()) {
            AcDbEntity* entity = nullptr;
            // A paper size is no edit: objects on locked layers follow the scale too.
            if (iterator->getEntity(entity, AcDb::kForWrite, false, true) != Acad::eOk)
                continue;
            if (entity->isKindOf(TrfcScalable::desc()))
                static_cast<TrfcScalable*>(entity)->setScale(denominator);
            entity->close();
        }
    }
    space->close();
}

std::vector<Adesk::Int32> splitScaleList(const std::wstring& list) {
    std::vector<Adesk::Int32> denominators;
    std::wstring rest = list;
    for (std::size_t slash = rest.find(L'/'); slash != std::wstring::npos && slash > 0; slash = rest.find(L'/')) {
        denominators.push_back(acWtoi(rest.substr(0, slash).c_str()));
        rest.erase(0, slash + 1);
    }
    denominators.push_back(acWtoi(rest.c_str()));
    return denominators;
}

std::vector<ScaleComparisonItem> compareScaleList(AcDbDatabase& database, const std::wstring& list) {
    std::vector<Adesk::Int32> denominators = splitScaleList(list);
    std::vector<ScaleComparisonItem> items;
    compareWithCollection(database, denominators, items);
    for (const Adesk::Int32 denominator : denominators)
        items.push_back(listItem(denominator));
    return items;
}

void synchroniseScales() {
    AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase();
    if (database == nullptr)
        return;
    const std::wstring list = TrfcDocSettings::getDocString(DOC_SCALE_LIST);
    if (!list.empty() && CScaleComparisonDialog(compareScaleList(*database, list)).DoModal() == IDOK)
        TrfcDocSettings::setDocString(DOC_SCALE_LIST, L""); // the user's answer, a change like any other
    const TrfcUnchangedScope synchronising(database);
    const std::unique_ptr<AcDbAnnotationScale> current(database->cannoscale());
    if (current != nullptr)
        switchScale(*current);
}

CAnnoScaleReactor* CAnnoScaleReactor::instance() {
    if (reactorSlot() == nullptr)
        reactorSlot() = std::make_unique<CAnnoScaleReactor>();
    return reactorSlot().get();
}

void CAnnoScaleReactor::release() {
    reactorSlot().reset();
}

void CAnnoScaleReactor::annotationScaleChanged(AcDbDatabase*, AcDbObjectId, AcDbAnnotationScale* scale, bool initializing) {
    if (!initializing && scaleTrackingEnabled && scale != nullptr)
        switchScale(*scale);
}
