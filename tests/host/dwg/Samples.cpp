// Builds the sample drawing through the public operations alone.
#include "Samples.h"

#include "AcUtText.h"

ACRX_DXF_DEFINE_MEMBERS(SampleMarker, AcDbEntity, AcDb::kDHL_1015, AcDb::kMReleaseCurrent, 1025, L"Sample Marker", L"SampleApp|A sample")
ACRX_DXF_DEFINE_MEMBERS(SampleMarkerTwin, SampleMarker, AcDb::kDHL_1015, AcDb::kMReleaseCurrent, 1025, L"Sample Marker", L"SampleApp|A sample")
Adesk::Int16 SampleMarker::sVersion = 1;

SampleModule::SampleModule() {
    SampleMarker::rxInit();
    SampleMarkerTwin::rxInit();
    acrxBuildClassHierarchy();
}
SampleModule::~SampleModule() {
    deleteAcRxClass(SampleMarkerTwin::desc());
    deleteAcRxClass(SampleMarker::desc());
}

Acad::ErrorStatus SampleMarker::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbEntity::dwgOutFields(filer);
    filer->writeInt16(sVersion);
    filer->writeInt32(number);
    filer->writeString(name.c_str());
    filer->writePoint3d(place);
    filer->writeHardPointerId(block);
    filer->writeSoftPointerId(partner);
    filer->writeUInt32(static_cast<Adesk::UInt32>(filler.size()));
    for (const double value : filler)
        filer->writeDouble(value);
    return filer->filerStatus();
}
Acad::ErrorStatus SampleMarker::dwgInFields(AcDbDwgFiler* filer) {
    AcDbEntity::dwgInFields(filer);
    Adesk::Int16 version = 0;
    filer->readInt16(&version);
    if (version > sVersion)
        return Acad::eMakeMeProxy;
    filer->readInt32(&number);
    filer->readString(name);
    filer->readPoint3d(&place);
    AcDbHardPointerId blockId;
    AcDbSoftPointerId partnerId;
    filer->readHardPointerId(&blockId);
    filer->readSoftPointerId(&partnerId);
    block = blockId;
    partner = partnerId;
    Adesk::UInt32 count = 0;
    filer->readUInt32(&count);
    filler.clear();
    for (Adesk::UInt32 i = 0; i < count && filer->filerStatus() == Acad::eOk; ++i) {
        double value = 0.0;
        filer->readDouble(&value);
        filler.push_back(value);
    }
    const AcDbObjectPointer<AcDbBlockTableRecord> open(block);
    blockNameWhileReading = open ? open->name() : L"";
    return filer->filerStatus();
}
bool SampleMarker::subWorldDraw(AcGiWorldDraw* draw) {
    draw->subEntityTraits().setColor(1);
    const AcGePoint3d line[] = {place + AcGeVector3d(-1.0, 0.0, 0.0), place + AcGeVector3d(1.0, 0.0, 0.0)};
    draw->geometry().polyline(2, line);
    draw->geometry().circle(place, 2.0, AcGeVector3d(0.0, 0.0, 1.0));
    draw->geometry().text(place, AcGeVector3d(0.0, 0.0, 1.0), AcGeVector3d(1.0, 0.0, 0.0), name.c_str(), AcGiTextStyle());
    const AcDbObjectPointer<AcDbBlockTableRecord> open(block);
    if (open) {
        draw->geometry().pushModelTransform(AcGeMatrix3d::translation({5.0, 0.0, 0.0}));
        draw->geometry().draw(open.object());
        draw->geometry().popModelTransform();
    }
    return true;
}

AcDbObjectId sampleBlock(AcDbDatabase& db, const wchar_t* name) {
    AcDbBlockTable* table = nullptr;
    db.getBlockTable(table, AcDb::kForWrite);
    auto* block = new AcDbBlockTableRecord;
    block->setName(name);
    AcDbObjectId id;
    table->add(id, block);
    block->close();
    table->close();
    return id;
}
AcDbObjectId sampleAppend(AcDbDatabase& db, AcDbEntity* entity, const wchar_t* name) {
    AcDbBlockTable* table = nullptr;
    AcDbBlockTableRecord* block = nullptr;
    db.getBlockTable(table);
    table->getAt(name, block, AcDb::kForWrite);
    table->close();
    AcDbObjectId id;
    entity->setDatabaseDefaults(&db);
    block->appendAcDbEntity(id, entity);
    entity->close();
    block->close();
    return id;
}

namespace {
void addCurves(AcDbDatabase& db) {
    sampleAppend(db, new AcDbLine({0.0, 0.0, 0.0}, {10.0, 5.0, 0.0}));
    sampleAppend(db, new AcDbLine({0.0, 0.0, 1.0}, {10.0, 5.0, 2.0}));
    sampleAppend(db, new AcDbCircle({5.0, 5.0, 0.0}, {0.0, 0.0, 1.0}, 3.0));
    sampleAppend(db, new AcDbArc({5.0, 5.0, 0.0}, 4.0, 0.5, 2.5));
    sampleAppend(db, new AcDbEllipse({1.0, 2.0, 0.0}, {0.0, 0.0, 1.0}, {6.0, 1.0, 0.0}, 0.4));
    sampleAppend(db, new AcDbPoint(AcGePoint3d(3.0, 4.0, 0.0)));
    auto* solid = new AcDbSolid;
    for (int i = 0; i < 4; ++i)
        solid->setPointAt(i, {i % 2 * 2.0, i / 2 * 3.0, 0.0});
    sampleAppend(db, solid);
    auto* spline = new AcDbSpline;
    spline->setKnots({0.0, 0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 1.0});
    spline->setControlPoints({{0.0, 0.0, 0.0}, {1.0, 2.0, 0.0}, {3.0, -2.0, 0.0}, {4.0, 0.0, 0.0}});
    sampleAppend(db, spline);
    auto* fit = new AcDbSpline;
    fit->setFitPoints({{0.0, 0.0, 0.0}, {1.0, 2.0, 0.0}, {3.0, -2.0, 0.0}});
    sampleAppend(db, fit);
}
void addPolylines(AcDbDatabase& db) {
    auto* light = new AcDbPolyline;
    light->addVertexAt(0, {0.0, 0.0}, 0.5);
    light->addVertexAt(1, {10.0, 0.0}, 0.0, 0.2, 0.4);
    light->addVertexAt(2, {10.0, 10.0});
    light->setClosed(true);
    sampleAppend(db, light);
    auto* flat = new AcDb2dPolyline;
    auto* spatial = new AcDb3dPolyline;
    const AcDbObjectId flatId = sampleAppend(db, flat), spatialId = sampleAppend(db, spatial);
    const AcDbObjectPointer<AcDb2dPolyline> openFlat(flatId, AcDb::kForWrite);
    const AcDbObjectPointer<AcDb3dPolyline> openSpatial(spatialId, AcDb::kForWrite);
    for (int i = 0; i < 4; ++i) {
        auto* flatVertex = new AcDb2dVertex;
        flatVertex->setPosition({i * 1.0, i % 2 * 1.0, 0.0});
        AcDbObjectId id;
        openFlat->appendVertex(id, flatVertex);
        flatVertex->close();
        auto* spatialVertex = new AcDb3dPolylineVertex;
        spatialVertex->setPosition({i * 1.0, i * 2.0, i * 3.0});
        spatialVertex->setFlags(32);
        openSpatial->appendVertex(id, spatialVertex);
        spatialVertex->close();
    }
}
void addTexts(AcDbDatabase& db) {
    auto* text = new AcDbText({1.0, 1.0, 0.0}, L"Árvíztűrő tükörfúrógép \x3A9", db.textStyleStandard(), 2.5, 0.3);
    text->setHorizontalMode(AcDb::kTextCenter);
    text->setAlignmentPoint({8.0, 1.0, 0.0});
    sampleAppend(db, text);
    auto* lines = new AcDbMText;
    lines->setContents(L"first\\Psecond");
    lines->setTextHeight(2.0);
    lines->setLocation({3.0, 3.0, 0.0});
    lines->setTextStyle(db.textStyleStandard());
    sampleAppend(db, lines);
}
void addBlocks(AcDbDatabase& db) {
    const AcDbObjectId block = sampleBlock(db, L"PLATE");
    sampleAppend(db, new AcDbLine({0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}), L"PLATE");
    auto* definition = new AcDbAttributeDefinition;
    definition->setTag(L"NUMBER");
    definition->setPrompt(L"Number?");
    definition->setTextString(L"42");
    definition->setHeight(1.0);
    definition->setTextStyle(db.textStyleStandard());
    sampleAppend(db, definition, L"PLATE");
    const AcDbObjectId first = sampleAppend(db, new AcDbBlockReference({50.0, 50.0, 0.0}, block));
    const AcDbObjectPointer<AcDbBlockReference> reference(first, AcDb::kForWrite);
    reference->setScaleFactors(AcGeScale3d(2.0, 2.0, 2.0));
    for (const wchar_t* value : {L"43", L"44"}) {
        auto* attribute = new AcDbAttribute;
        attribute->setTag(L"NUMBER");
        attribute->setTextString(value);
        attribute->setHeight(1.0);
        attribute->setTextStyle(db.textStyleStandard());
        AcDbObjectId id;
        reference->appendAttribute(id, attribute);
        attribute->close();
    }
    auto* turned = new AcDbBlockReference({60.0, 50.0, 0.0}, block);
    turned->setScaleFactors(AcGeScale3d(1.0, -1.0, 3.0));
    turned->setRotation(0.7);
    sampleAppend(db, turned);
}
void addHatches(AcDbDatabase& db) {
    auto* solid = new AcDbHatch;
    AcDbHatch::Loop ring;
    ring.type = AcDbHatch::kExternal | AcDbHatch::kPolyline;
    ring.vertices = {{0.0, 0.0}, {5.0, 0.0}, {5.0, 5.0}, {0.0, 5.0}};
    solid->appendLoop(ring);
    solid->setSolid();
    sampleAppend(db, solid);
    auto* lines = new AcDbHatch;
    AcDbHatch::Loop edges;
    edges.type = AcDbHatch::kExternal;
    AcDbHatch::Edge arc;
    arc.kind = AcDbHatch::Edge::kCircArc;
    arc.radius = 3.0;
    arc.endAngle = kPi;
    AcDbHatch::Edge line;
    line.start = {-3.0, 0.0};
    line.end = {3.0, 0.0};
    edges.edges = {arc, line};
    lines->appendLoop(edges);
    lines->setPattern(L"ANSI31", 1.0, 0.0, {{0.785398163397448, {0.0, 0.0}, {-2.245, 2.245}, {}}});
    sampleAppend(db, lines);
}
void addData(AcDbDatabase& db) {
    AcDbLayerTable* layers = nullptr;
    db.getLayerTable(layers, AcDb::kForWrite);
    for (const wchar_t* name : {L"Roads", L"Útjelölés"}) {
        auto* layer = new AcDbLayerTableRecord;
        layer->setName(name);
        layer->setColor(AcCmEntityColor::fromIndex(3));
        layer->setLineWeight(AcDb::kLnWt035);
        layer->setLinetypeObjectId(db.continuousLinetype());
        layers->add(layer);
        layer->close();
    }
    layers->close();
    auto* marked = new AcDbLine({1.0, 0.0, 0.0}, {2.0, 0.0, 0.0});
    const AcDbObjectId id = sampleAppend(db, marked);
    const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForWrite);
    line->setLayer(L"Roads");
    line->setColorIndex(5);
    resbuf* chain = acutBuildList(1001, L"SAMPLE_APP", 1000, L"hello", 1040, 2.5, 1070, 12, 1071, 70000, 1005, line->getAcDbHandle().text().c_str(), 1003, L"Roads", 0);
    line->setXData(chain);
    acutRelRb(chain);
    line->createExtensionDictionary();
    const AcDbObjectPointer<AcDbDictionary> own(line->extensionDictionary(), AcDb::kForWrite);
    auto* record = new AcDbXrecord;
    AcDbObjectId recordId;
    own->setAt(L"DATA", record, recordId);
    resbuf* values = acutBuildList(1, L"text", 40, 1.25, 90, 123456, 70, 5, 290, 1, 0);
    record->setFromRbChain(*values);
    acutRelRb(values);
    record->close();
}
} // namespace

void sampleFill(AcDbDatabase& db) {
    addCurves(db);
    addPolylines(db);
    addTexts(db);
    addBlocks(db);
    addHatches(db);
    addData(db);
}
