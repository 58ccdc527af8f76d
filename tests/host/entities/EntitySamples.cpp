// One well-filled example of every entity that stands by itself.
#include "EntitySamples.h"

namespace {
const AcGeVector3d kTilted = AcGeVector3d(0.3, -0.4, 0.8).normal();

template <class T> std::unique_ptr<AcDbEntity> given(std::unique_ptr<T> entity) {
    entity->setColorIndex(3);
    entity->setLineWeight(AcDb::kLnWt050);
    return entity;
}

std::unique_ptr<AcDbEntity> line() {
    auto e = std::make_unique<AcDbLine>(AcGePoint3d(1, 2, 3), AcGePoint3d(-4, 5, 1));
    e->setThickness(0.5);
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> point() {
    auto e = std::make_unique<AcDbPoint>(AcGePoint3d(1, 2, 3));
    e->setEcsRotation(0.4);
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> circle() {
    return given(std::make_unique<AcDbCircle>(AcGePoint3d(3, -1, 2), kTilted, 2.5));
}
std::unique_ptr<AcDbEntity> arc() {
    auto e = std::make_unique<AcDbArc>(AcGePoint3d(1, 1, 0), 2.0, 0.3, 2.2);
    e->setNormal(kTilted);
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> ellipse() {
    const AcGeVector3d major = AcGeMatrix3d::planeToWorld(kTilted) * AcGeVector3d(3, 1, 0);
    return given(std::make_unique<AcDbEllipse>(AcGePoint3d(1, 2, 3), kTilted, major, 0.4, 0.5, 4.0));
}
std::unique_ptr<AcDbEntity> solid() {
    auto e = std::make_unique<AcDbSolid>();
    const AcGePoint3d corners[] = {{0, 0, 1}, {4, 0, 1}, {0, 3, 1}, {5, 2, 1}};
    for (int i = 0; i < 4; ++i)
        e->setPointAt(i, corners[i]);
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> text() {
    auto e = std::make_unique<AcDbText>(AcGePoint3d(1, 2, 0), L"Tábla g12", AcDbObjectId(), 2.5, 0.3);
    e->setWidthFactor(0.8);
    e->setOblique(0.2);
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> mtext() {
    auto e = std::make_unique<AcDbMText>();
    e->setLocation({4, 5, 0});
    e->setTextHeight(2.0);
    e->setWidth(30.0);
    e->setAttachment(5);
    e->setRotation(0.5);
    e->setContents(L"First line of a text\\Pand {\\C1;the second}");
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> definition() {
    auto e = std::make_unique<AcDbAttributeDefinition>();
    e->setTag(L"NUMBER");
    e->setPrompt(L"Number?");
    e->setTextString(L"12");
    e->setHeight(2.0);
    e->setPosition({1, 1, 0});
    e->setPreset(true);
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> attribute() {
    auto e = std::make_unique<AcDbAttribute>();
    e->setTag(L"NUMBER");
    e->setTextString(L"47");
    e->setHeight(1.5);
    e->setPosition({-1, 1, 0});
    e->setRotation(1.2);
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> paragraphAttribute() {
    const std::unique_ptr<AcDbEntity> source = mtext();
    auto e = std::make_unique<AcDbAttribute>();
    e->setTag(L"REMARK");
    e->setMTextAttribute(AcDbMText::cast(source.get()));
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> bentPolyline() {
    auto e = std::make_unique<AcDbPolyline>();
    e->addVertexAt(0, {0, 0}, 0.6);
    e->addVertexAt(1, {4, 1});
    e->addVertexAt(2, {5, 5}, -1.4);
    e->addVertexAt(3, {-1, 4});
    e->setClosed(true);
    e->setElevation(1.5);
    e->setNormal(kTilted);
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> widePolyline() {
    auto e = std::make_unique<AcDbPolyline>();
    e->addVertexAt(0, {0, 0}, 0.0, 0.5, 0.5);
    e->addVertexAt(1, {4, 0}, 0.7, 0.5, 0.5);
    e->addVertexAt(2, {4, 5}, 0.0, 0.5, 0.2);
    e->addVertexAt(3, {1, 3});
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> plainPolyline() {
    auto e = std::make_unique<AcDbPolyline>();
    for (unsigned i = 0; i < 5; ++i)
        e->addVertexAt(i, {1.0 * i, i % 2 * 2.0});
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> spline() {
    auto e = std::make_unique<AcDbSpline>();
    e->setKnots({0, 0, 0, 0, 1, 2, 2, 2, 2});
    e->setControlPoints({{0, 0, 0}, {1, 4, 0}, {4, 3, 1}, {6, -2, 0}, {8, 1, 2}});
    e->setRational(true);
    e->setWeights({1, 2, 1, 0.5, 1});
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> fitSpline() {
    auto e = std::make_unique<AcDbSpline>();
    e->setFitPoints({{0, 0, 0}, {2, 3, 0}, {5, 1, 0}, {7, 4, 0}});
    e->setStartTangent({0, 1, 0});
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> solidHatch() {
    auto e = std::make_unique<AcDbHatch>();
    AcGePoint2dArray ring;
    for (const AcGePoint2d& p : {AcGePoint2d(0, 0), AcGePoint2d(6, 0), AcGePoint2d(6, 4), AcGePoint2d(0, 4)})
        ring.append(p);
    AcGeDoubleArray bulges;
    for (const double b : {0.0, 0.5, 0.0, -0.3})
        bulges.append(b);
    e->appendLoop(AcDbHatch::kExternal, ring, bulges);
    e->setElevation(2.0);
    e->setNormal(kTilted);
    return given(std::move(e));
}
std::unique_ptr<AcDbEntity> patternHatch() {
    auto e = std::make_unique<AcDbHatch>();
    AcDbHatch::Loop loop;
    AcDbHatch::Edge round, half, straight;
    round.kind = AcDbHatch::Edge::kCircArc;
    round.center = {1, 1}, round.radius = 2.0, round.startAngle = 0.0, round.endAngle = kPi;
    straight.start = {-1, 1}, straight.end = {-1, -1};
    half.kind = AcDbHatch::Edge::kEllArc;
    half.center = {1, -1}, half.majorAxis = {2, 0}, half.ratio = 0.5;
    half.startAngle = kPi, half.endAngle = kTwoPi;
    AcDbHatch::Edge back;
    back.start = {3, -1}, back.end = {3, 1};
    loop.edges = {round, straight, half, back};
    e->appendLoop(loop);
    e->setPattern(L"LINES", 1.0, 0.0, {{0.7, {0.1, 0.0}, {-0.3, 0.4}, {0.5, -0.2, 0.0, -0.1}}});
    return given(std::move(e));
}
} // namespace

std::vector<EntitySample> entitySamples() {
    return {
        {L"AcDbLine", line},
        {L"AcDbPoint", point},
        {L"AcDbCircle", circle, true, false},
        {L"AcDbArc", arc, true, false},
        {L"AcDbEllipse", ellipse},
        {L"AcDbSolid", solid},
        {L"AcDbText", text},
        {L"AcDbMText", mtext, false, false},
        {L"AcDbAttributeDefinition", definition},
        {L"AcDbAttribute", attribute},
        {L"AcDbAttribute", paragraphAttribute, false, false},
        {L"AcDbPolyline", bentPolyline, true, false},
        {L"AcDbPolyline", widePolyline, true, false},
        {L"AcDbPolyline", plainPolyline},
        {L"AcDbSpline", spline, true, true, 1e-5}, // sampled
        {L"AcDbSpline", fitSpline, true, false, 1e-5},
        {L"AcDbHatch", solidHatch},
        {L"AcDbHatch", patternHatch},
    };
}
