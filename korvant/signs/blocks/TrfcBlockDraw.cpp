// The picture of a block: as the library has it, faded, or as an outline; explosion and grips.
#include "TrfcBlock.h"

#include "ExplodedParts.h"
#include "TrfcDrawingUtils.h"

namespace {
// The classes an outline consists of; classes derived from them do not count.
bool isLineWork(const AcDbEntity& entity) {
    const AcRxClass* type = entity.isA();
    return type == AcDbCircle::desc() || type == AcDbPolyline::desc() || type == AcDbLine::desc() || type == AcDbArc::desc() || type == AcDbEllipse::desc();
}

bool isDefinition(const AcDbEntity& entity) {
    return entity.isKindOf(AcDbAttributeDefinition::desc());
}

// With both, white comes on top of grey.
void fade(AcDbEntity& entity, bool gray, bool white) {
    if (gray)
        entity.setColor(grayColorOf(&entity));
    if (white)
        entity.setColor(whiteColorOf(&entity));
}

// The text that shows an attribute outside a block reference.
std::unique_ptr<AcDbText> textOf(const AcDbAttribute& attribute) {
    auto text = std::make_unique<AcDbText>(attribute.position(), attribute.textStringConst(), attribute.textStyle(), attribute.height(), attribute.rotation());
    copyDisplayProperties(&attribute, text.get());
    return text;
}
} // namespace

bool TrfcBlock::subWorldDraw(AcGiWorldDraw* worldDraw) {
    return subWorldDraw(worldDraw, false, false, false);
}

bool TrfcBlock::subWorldDraw(AcGiWorldDraw* worldDraw, bool gray, bool white, bool outline) {
    assertReadEnabled();
    saveTraits(worldDraw);
    if (!worldDraw->isDragging() && !gray && !white && !outline)
        mBlockRef.worldDraw(worldDraw);
    else
        drawParts(worldDraw, gray, white, outline);
    drawAttributes(worldDraw, gray, white);
    return true;
}

// A drag shows line work alone, so that it follows the cursor whatever the symbol is filled with.
void TrfcBlock::drawParts(AcGiWorldDraw* worldDraw, bool gray, bool white, bool outline) const {
    const bool lineWorkOnly = outline || worldDraw->isDragging();
    for (const auto& part : explodedPartsOf(mBlockRef)) {
        if (isDefinition(*part))
            continue;
        fade(*part, gray, white);
        if (gray || white)
            worldDraw->subEntityTraits().setTrueColor(part->entityColor());
        if (outline)
            worldDraw->subEntityTraits().setColor(part->colorIndex());
        if (!lineWorkOnly || isLineWork(*part))
            part->worldDraw(worldDraw);
        restoreTraits(worldDraw);
    }
}

void TrfcBlock::drawAttributes(AcGiWorldDraw* worldDraw, bool gray, bool white) const {
    completeAttributes();
    for (const auto& attribute : mAttributes) {
        if (attribute->isInvisible())
            continue;
        saveTraits(worldDraw);
        const auto text = textOf(*attribute);
        applyEntityToTraits(text.get(), worldDraw);
        fade(*text, gray, white);
        if (gray || white)
            worldDraw->subEntityTraits().setTrueColor(text->entityColor());
        text->worldDraw(worldDraw);
        restoreTraits(worldDraw);
    }
}

Acad::ErrorStatus TrfcBlock::subExplode(AcDbVoidPtrArray& entities) const {
    return PlusExplode(entities, false, false, false);
}

Acad::ErrorStatus TrfcBlock::PlusExplode(AcDbVoidPtrArray& entities, bool gray, bool white, bool outline) const {
    assertReadEnabled();
    for (auto& part : explodedPartsOf(mBlockRef)) {
        if (isDefinition(*part) || (outline && !isLineWork(*part)))
            continue;
        fade(*part, gray, white);
        if (AcDbHatch* hatch = AcDbHatch::cast(part.get()))
            hatch->setAssociative(false); // its boundary's sources stay in the library block
        entities.append(part.release());
    }
    completeAttributes();
    for (const auto& attribute : mAttributes) {
        if (attribute->isInvisible())
            continue;
        auto text = textOf(*attribute);
        fade(*text, gray, white);
        entities.append(text.release());
    }
    return Acad::eOk;
}
