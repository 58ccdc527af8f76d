// Exploding of a block reference: copies of the block's entities in world coordinates.
#include "AcDbBlockReference.h"

#include "AcDbSymbolTables.h"
#include "CurveMath.h"
#include "DbObjectAccess.h"
#include "PolylineParts.h"
#include "ReadAccess.h"

namespace {
using Copies = std::vector<std::unique_ptr<AcDbEntity>>;

Acad::ErrorStatus addCopies(const AcDbEntity& entity, const AcGeMatrix3d& matrix, Copies& copies);

// Adds an entity made for the purpose, with the properties of the one it stands for, under the matrix.
Acad::ErrorStatus addMade(std::unique_ptr<AcDbEntity> made, const AcDbEntity& source, const AcGeMatrix3d& matrix,
                          Copies& copies) {
    made->setPropertiesFrom(&source);
    const Acad::ErrorStatus es = made->transformBy(matrix);
    if (es == Acad::eOk)
        copies.push_back(std::move(made));
    return es;
}

std::unique_ptr<AcDbEntity> ellipseOf(const AcDbCircle& circle) {
    const DbPlane plane(circle.normal());
    return std::make_unique<AcDbEllipse>(circle.center(), plane.normal, plane.x * circle.radius(), 1.0);
}

std::unique_ptr<AcDbEntity> ellipseOf(const AcDbArc& arc) {
    const DbPlane plane(arc.normal());
    const double end = arc.startAngle() + dbSweep(arc.startAngle(), arc.endAngle());
    return std::make_unique<AcDbEllipse>(arc.center(), plane.normal, plane.x * arc.radius(), 1.0, arc.startAngle(), end);
}

// The parts of an entity that cannot take the matrix as a whole.
Acad::ErrorStatus addParts(const AcDbEntity& entity, const AcGeMatrix3d& matrix, Copies& copies) {
    AcDbVoidPtrArray parts;
    const Acad::ErrorStatus es = entity.explode(parts);
    Copies owned;
    for (void* part : parts)
        owned.emplace_back(static_cast<AcDbEntity*>(part));
    if (es != Acad::eOk)
        return Acad::eCannotScaleNonUniformly;
    for (const std::unique_ptr<AcDbEntity>& part : owned)
        if (const Acad::ErrorStatus added = addCopies(*part, matrix, copies); added != Acad::eOk)
            return added;
    return Acad::eOk;
}

// What an entity becomes under a scale that its class cannot hold: circles and arcs elliptic, the rest its parts.
Acad::ErrorStatus addConverted(const AcDbEntity& entity, const AcGeMatrix3d& matrix, Copies& copies) {
    if (const AcDbCircle* circle = AcDbCircle::cast(&entity))
        return addMade(ellipseOf(*circle), entity, matrix, copies);
    if (const AcDbArc* arc = AcDbArc::cast(&entity))
        return addMade(ellipseOf(*arc), entity, matrix, copies);
    return addParts(entity, matrix, copies);
}

// What an attribute shows, as a text or a paragraph of its own.
std::unique_ptr<AcDbEntity> textOf(const AcDbAttribute& attribute) {
    if (attribute.isMTextAttribute())
        return std::unique_ptr<AcDbEntity>(attribute.getMTextAttribute());
    auto text = std::make_unique<AcDbText>(attribute.position(), attribute.textStringConst(), attribute.textStyle(),
                                           attribute.height(), attribute.rotation());
    text->setAlignmentPoint(attribute.alignmentPoint());
    text->setHorizontalMode(attribute.horizontalMode());
    text->setVerticalMode(attribute.verticalMode());
    text->setWidthFactor(attribute.widthFactor());
    text->setOblique(attribute.oblique());
    text->setNormal(attribute.normal());
    text->mirrorInX(attribute.isMirroredInX());
    text->mirrorInY(attribute.isMirroredInY());
    return text;
}

// A copy outside the drawing cannot own attributes: what they show stands beside it.
Acad::ErrorStatus addNestedReference(const AcDbBlockReference& source, const AcGeMatrix3d& matrix, Copies& copies) {
    std::unique_ptr<AcDbBlockReference> copy(AcDbBlockReference::cast(source.clone()));
    if (copy == nullptr)
        return Acad::eCannotExplodeEntity;
    DbObjectAccess::attributeIds(*copy).removeAll();
    DbObjectAccess::sequenceEnd(*copy) = AcDbObjectId();
    Acad::ErrorStatus es = copy->transformBy(matrix);
    if (es == Acad::eOk)
        copies.push_back(std::move(copy));
    else if (es == Acad::eCannotScaleNonUniformly)
        es = addParts(source, matrix, copies);
    if (source.objectId().isNull())
        return es;
    for (const AcDbObjectId& id : source.attributeIds()) {
        const DbReadAccess<AcDbAttribute> attribute(id);
        if (es == Acad::eOk && attribute && !attribute->isInvisible())
            es = addMade(textOf(*attribute.get()), *attribute.get(), matrix, copies);
    }
    return es;
}

// The vertices of a heavy polyline are objects of the drawing, which a copy outside it cannot have: a copy in the
// plane is a light polyline.
std::unique_ptr<AcDbEntity> lightPolyline(const AcDb2dPolyline& heavy) {
    auto light = std::make_unique<AcDbPolyline>(static_cast<unsigned int>(heavy.vertexIds().length()));
    for (const AcDbObjectId& id : heavy.vertexIds()) {
        const DbReadAccess<AcDb2dVertex> v(id);
        if (v && (v->flags() & 16) == 0)
            light->addVertexAt(light->numVerts(), {v->position().x, v->position().y}, v->bulge(), v->startWidth(), v->endWidth());
    }
    light->setClosed(heavy.isClosed());
    light->setElevation(heavy.elevation());
    light->setThickness(heavy.thickness());
    light->setNormal(heavy.normal());
    return light;
}

Acad::ErrorStatus addCopies(const AcDbEntity& entity, const AcGeMatrix3d& matrix, Copies& copies) {
    if (const AcDb2dPolyline* heavy = AcDb2dPolyline::cast(&entity)) {
        std::unique_ptr<AcDbEntity> light = lightPolyline(*heavy);
        const Acad::ErrorStatus es = addMade(std::move(light), entity, matrix, copies);
        return es == Acad::eCannotScaleNonUniformly ? addParts(entity, matrix, copies) : es;
    }
    if (AcDb3dPolyline::cast(&entity) != nullptr)
        return addParts(entity, matrix, copies);
    if (const AcDbBlockReference* nested = AcDbBlockReference::cast(&entity))
        return addNestedReference(*nested, matrix, copies);
    std::unique_ptr<AcDbEntity> copy(AcDbEntity::cast(entity.clone()));
    if (copy == nullptr)
        return Acad::eCannotExplodeEntity;
    const Acad::ErrorStatus es = copy->transformBy(matrix);
    if (es == Acad::eCannotScaleNonUniformly)
        return addConverted(entity, matrix, copies);
    if (es == Acad::eOk)
        copies.push_back(std::move(copy));
    return es;
}
} // namespace

Acad::ErrorStatus AcDbBlockReference::subExplode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    const DbReadAccess<AcDbBlockTableRecord> block(mBlock);
    if (!block)
        return mBlock.isNull() ? Acad::eNullObjectId : Acad::eCannotExplodeEntity;
    const AcGeMatrix3d matrix = blockTransform();
    Copies copies;
    copies.reserve(static_cast<std::size_t>(block->entityIds().length()));
    for (const AcDbObjectId& id : block->entityIds()) {
        const DbReadAccess<AcDbEntity> entity(id);
        if (!entity)
            continue;
        if (const Acad::ErrorStatus es = addCopies(*entity.get(), matrix, copies); es != Acad::eOk)
            return es;
    }
    for (std::unique_ptr<AcDbEntity>& copy : copies)
        entities.append(copy.release());
    return Acad::eOk;
}
