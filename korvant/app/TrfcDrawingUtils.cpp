// Small shared drawing functions: table look-ups, traits, display properties, fading colours.
#include "TrfcDrawingUtils.h"

#include "AcEdAds.h"
#include "AcUtText.h"
#include "AfxApp.h"

#include <memory>

namespace {

AcDbDatabase* workingDatabase() {
    return acdbHostApplicationServices()->workingDatabase();
}

template <class Table> Acad::ErrorStatus findRecord(const ACHAR* name, AcDbObjectId& id) {
    Table* table = nullptr;
    Acad::ErrorStatus es = workingDatabase()->getSymbolTable(table, AcDb::kForRead);
    if (es != Acad::eOk)
        return es;
    es = table->getAt(name, id);
    table->close();
    return es;
}

struct SavedTraits {
    AcCmEntityColor color;
    AcDbObjectId lineType;
    double lineTypeScale = 1.0;
    AcDb::LineWeight lineWeight = AcDb::kLnWtByLayer;
    AcDbObjectId layer;
};
SavedTraits gSavedTraits;

bool isByColorIndexOrRgb(const AcCmColor& color) {
    return !color.isByLayer() && !color.isByBlock();
}

} // namespace

Acad::ErrorStatus openBlockRecord(AcDbDatabase* database, const ACHAR* name, AcDbBlockTableRecord*& record, AcDb::OpenMode mode) {
    record = nullptr;
    AcDbBlockTable* table = nullptr;
    Acad::ErrorStatus es = database->getBlockTable(table, AcDb::kForRead);
    if (es != Acad::eOk)
        return es;
    es = table->getAt(name, record, mode);
    table->close();
    return es;
}

Acad::ErrorStatus walkModelSpace(AcDb::OpenMode mode, const std::function<bool(AcDbEntity&)>& visit) {
    if (workingDatabase() == nullptr)
        return Acad::eNoDatabase;
    AcDbBlockTableRecord* space = nullptr;
    const Acad::ErrorStatus es = openBlockRecord(workingDatabase(), ACDB_MODEL_SPACE, space, AcDb::kForRead);
    if (es != Acad::eOk)
        return es;
    AcDbBlockTableRecordIterator* walk = nullptr;
    if (space->newIterator(walk) == Acad::eOk) {
        const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(walk);
        for (bool goesOn = true; goesOn && !iterator->done(); iterator->step()) {
            AcDbEntity* entity = nullptr;
            if (iterator->getEntity(entity, mode) != Acad::eOk)
                continue;
            goesOn = visit(*entity);
            entity->close();
        }
    }
    space->close();
    return Acad::eOk;
}

Acad::ErrorStatus addToModelSpace(AcDbEntity* entity, AcDbObjectId& id) {
    AcDbBlockTableRecord* space = nullptr;
    Acad::ErrorStatus es = openBlockRecord(workingDatabase(), ACDB_MODEL_SPACE, space, AcDb::kForWrite);
    if (es == Acad::eOk) {
        es = space->appendAcDbEntity(id, entity);
        space->close();
    }
    reportError(es, L"adding entity to model space");
    if (es == Acad::eOk)
        entity->close();
    return es;
}

Acad::ErrorStatus linetypeId(const ACHAR* name, AcDbObjectId& id) {
    Acad::ErrorStatus es = findRecord<AcDbLinetypeTable>(name, id);
    if (es != Acad::eKeyNotFound)
        return es;
    es = workingDatabase()->loadLineTypeFile(name, workingDatabase()->measurement() == 1 ? L"ACADISO.LIN" : L"ACAD.LIN");
    return es == Acad::eOk ? findRecord<AcDbLinetypeTable>(name, id) : es;
}

Acad::ErrorStatus textStyleId(const ACHAR* name, AcDbObjectId& id) {
    return findRecord<AcDbTextStyleTable>(name, id);
}

void ensureLayer(const ACHAR* name) {
    AcDbLayerTable* table = nullptr;
    if (workingDatabase()->getLayerTable(table, AcDb::kForRead) != Acad::eOk)
        return;
    if (!table->has(name) && table->upgradeOpen() == Acad::eOk) {
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(name);
        layer->setColor(AcCmEntityColor::fromIndex(0));
        AcDbObjectId continuous;
        if (linetypeId(L"CONTINUOUS", continuous) == Acad::eOk)
            layer->setLinetypeObjectId(continuous);
        if (table->add(layer) == Acad::eOk)
            layer->close();
        else
            delete layer;
    }
    table->close();
}

void zoomToExtents(const AcDbExtents& extents) {
    const AcGePoint3d lower = extents.minPoint(), upper = extents.maxPoint();
    const std::wstring lowerLeft = acFormat(L"%f,%f", lower.x, lower.y);
    const std::wstring upperRight = acFormat(L"%f,%f", upper.x, upper.y);
    acedCommandS(RTSTR, L"_zoom", RTSTR, lowerLeft.c_str(), RTSTR, upperRight.c_str(), RTNONE);
}

void reportError(Acad::ErrorStatus es, const ACHAR* context) {
    if (es != Acad::eOk)
        AfxMessageBox(acFormat(L"ERROR (%s): %s \n", context, acadErrorStatusText(es)).c_str());
}

std::wstring trimNumber(const std::wstring& text) {
    if (text.find(L'.') == std::wstring::npos)
        return text;
    std::wstring trimmed = text;
    while (!trimmed.empty() && trimmed.back() == L'0')
        trimmed.pop_back();
    if (!trimmed.empty() && trimmed.back() == L'.')
        trimmed.pop_back();
    return trimmed;
}

void saveTraits(AcGiCommonDraw* draw) {
    const AcGiSubEntityTraits& traits = draw->subEntityTraits();
    gSavedTraits = {traits.trueColor(), traits.lineTypeId(), traits.lineTypeScale(), traits.lineWeight(), traits.layerId()};
}

void restoreTraits(AcGiCommonDraw* draw) {
    AcGiSubEntityTraits& traits = draw->subEntityTraits();
    traits.setTrueColor(gSavedTraits.color);
    traits.setLineType(gSavedTraits.lineType);
    traits.setLineTypeScale(gSavedTraits.lineTypeScale);
    traits.setLineWeight(gSavedTraits.lineWeight);
    traits.setLayer(gSavedTraits.layer);
}

void applyEntityToTraits(const AcDbEntity* entity, AcGiCommonDraw* draw) {
    AcGiSubEntityTraits& traits = draw->subEntityTraits();
    const AcCmColor color = entity->color();
    if (isByColorIndexOrRgb(color))
        traits.setTrueColor(color);
    traits.setLineType(entity->linetypeId());
    traits.setLineTypeScale(entity->linetypeScale());
    traits.setLineWeight(entity->lineWeight());
}

void copyDisplayProperties(const AcDbEntity* source, AcDbEntity* target) {
    const AcCmColor color = source->color();
    if (color.isByColor())
        target->setColor(color);
    else
        target->setColorIndex(source->colorIndex());
    target->setLinetype(source->linetypeId());
    target->setLinetypeScale(source->linetypeScale());
    target->setLineWeight(source->lineWeight());
    target->setLayer(source->layerId());
    const AcDbText* sourceText = AcDbText::cast(source);
    if (sourceText == nullptr)
        return;
    if (AcDbText* text = AcDbText::cast(target))
        text->setWidthFactor(sourceText->widthFactor());
    else if (AcDbMText* mtext = AcDbMText::cast(target))
        mtext->setWidth(sourceText->widthFactor());
}

void applyOwnerProperties(AcDbVoidPtrArray& entities, const ACHAR* layer, const AcCmColor& color, AcDb::LineWeight lineWeight, const ACHAR* lineType) {
    for (void* item : entities) {
        auto* entity = static_cast<AcDbEntity*>(item);
        entity->setLayer(layer);
        if (entity->color().isByBlock())
            entity->setColor(color);
        if (entity->lineWeight() == AcDb::kLnWtByBlock)
            entity->setLineWeight(lineWeight);
        if (entity->linetypeName() == L"ByBlock")
            entity->setLinetype(lineType);
    }
}

AcCmColor grayColorOf(const AcDbEntity* entity) {
    AcCmColor color = entity->color();
    int gray = 255;
    if (isByColorIndexOrRgb(color)) {
        const Adesk::UInt32 rgb = acedGetRGB(color.colorIndex());
        gray = static_cast<int>(((rgb & 0xFF) + ((rgb >> 8) & 0xFF) + ((rgb >> 16) & 0xFF)) / 3);
    }
    // Upper bounds of the grey levels of the palette's indices 250 to 254.
    constexpr int kUpperBounds[] = {51, 80, 105, 130, 190};
    Adesk::UInt16 index = 250;
    for (const int bound : kUpperBounds)
        if (gray > bound)
            ++index;
    color.setColorIndex(index);
    return color;
}

AcCmColor whiteColorOf(const AcDbEntity* entity) {
    const AcRxClass* type = entity->isA();
    const bool isLineWork = type == AcDbCircle::desc() || type == AcDbPolyline::desc() || type == AcDbLine::desc() ||
                            type == AcDbArc::desc() || type == AcDbEllipse::desc();
    AcCmColor color = entity->color();
    color.setColorIndex(isLineWork ? 252 : 255);
    return color;
}
