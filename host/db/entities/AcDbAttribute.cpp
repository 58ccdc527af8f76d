// An attribute of a block reference: a text with a tag, of one line or of several.
#include "AcDbEntities.h"

#include "AcUtText.h"
#include "DbFields.h"
#include "Listing.h"

HOST_RX_DEFINE(AcDbAttribute, AcDbText, L"ATTRIB")
DB_FILE_FIELDS(AcDbAttribute, AcDbText);

template <class Self, class Archive> void AcDbAttribute::fields(Self& self, Archive& archive) {
    archive(self.mTag, self.mFlags, self.mFieldLength);
    archive.nested(self.mMText, L"AcDbMText");
}

AcDbAttribute::~AcDbAttribute() = default;

ACHAR* AcDbAttribute::tag() const {
    assertReadEnabled();
    return acutNewString(mTag.c_str());
}

Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag) {
    assertWriteEnabled();
    if (tag == nullptr)
        return Acad::eNullPtr;
    mTag = tag;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttribute::setInvisible(bool on) {
    assertWriteEnabled();
    mFlags = static_cast<Adesk::UInt8>(on ? mFlags | 1 : mFlags & ~1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbAttribute::setTextString(const ACHAR* text) {
    const Acad::ErrorStatus es = AcDbText::setTextString(text);
    return es == Acad::eOk && mMText != nullptr ? mMText->setContents(text) : es;
}

// A paragraph hangs on its location by its attachment; there is no base line to move.
Acad::ErrorStatus AcDbAttribute::adjustAlignment(const AcDbDatabase* database) {
    return mMText != nullptr ? Acad::eOk : AcDbText::adjustAlignment(database);
}

namespace {
// The attachment that hangs a paragraph where a text of that alignment would stand.
int attachmentOf(const AcDbText& text) {
    const AcDb::TextHorzMode horizontal = text.horizontalMode();
    const bool middle = horizontal == AcDb::kTextMid;
    const int column = horizontal == AcDb::kTextCenter || middle ? 1 : horizontal == AcDb::kTextRight ? 2 : 0;
    const int row = middle || text.verticalMode() == AcDb::kTextVertMid ? 1 : text.verticalMode() == AcDb::kTextTop ? 0 : 2;
    return 1 + column + 3 * row;
}

std::unique_ptr<AcDbMText> paragraphOf(const AcDbText& text) {
    auto paragraph = std::make_unique<AcDbMText>();
    paragraph->setPropertiesFrom(&text);
    paragraph->setNormal(text.normal());
    paragraph->setLocation(text.isDefaultAlignment() ? text.position() : text.alignmentPoint());
    paragraph->setAttachment(attachmentOf(text));
    paragraph->setTextHeight(text.height());
    paragraph->setTextStyle(text.textStyle());
    paragraph->setRotation(text.rotation());
    paragraph->setContents(text.textStringConst());
    return paragraph;
}
} // namespace

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                                       const AcGeMatrix3d& blockTransform) {
    assertWriteEnabled();
    if (definition == nullptr)
        return Acad::eNullObjectPointer;
    mMText.reset();
    setPosition(definition->position());
    setAlignmentPoint(definition->alignmentPoint());
    setHeight(definition->height());
    setRotation(definition->rotation());
    setWidthFactor(definition->widthFactor());
    setOblique(definition->oblique());
    setHorizontalMode(definition->horizontalMode());
    setVerticalMode(definition->verticalMode());
    setThickness(definition->thickness());
    setNormal(definition->normal());
    mirrorInX(definition->isMirroredInX());
    mirrorInY(definition->isMirroredInY());
    setTextStyle(definition->textStyle());
    setTextString(definition->textStringConst());
    mTag = definition->tag();
    mFlags = static_cast<Adesk::UInt8>((definition->isInvisible() ? 1 : 0) | (definition->isConstant() ? 2 : 0) |
                                       (definition->isVerifiable() ? 4 : 0) | (definition->isPreset() ? 8 : 0));
    if (definition->isMTextAttributeDefinition())
        mMText = paragraphOf(*this);
    return subTransformBy(blockTransform);
}

AcDbMText* AcDbAttribute::getMTextAttribute() const {
    assertReadEnabled();
    return mMText != nullptr ? static_cast<AcDbMText*>(mMText->clone()) : nullptr;
}

Acad::ErrorStatus AcDbAttribute::setMTextAttribute(const AcDbMText* text) {
    assertWriteEnabled();
    mMText.reset(text != nullptr ? static_cast<AcDbMText*>(text->clone()) : nullptr);
    return text != nullptr ? AcDbText::setTextString(text->contentsText().c_str()) : Acad::eOk;
}

// ---- picture: that of the paragraph where there is one
bool AcDbAttribute::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    return mMText != nullptr ? mMText->worldDraw(worldDraw) : AcDbText::subWorldDraw(worldDraw);
}

Acad::ErrorStatus AcDbAttribute::subTransformBy(const AcGeMatrix3d& matrix) {
    const Acad::ErrorStatus es = AcDbText::subTransformBy(matrix);
    return es == Acad::eOk && mMText != nullptr ? mMText->transformBy(matrix) : es;
}

Acad::ErrorStatus AcDbAttribute::subGetOsnapPoints(AcDb::OsnapMode mode, std::intptr_t marker, const AcGePoint3d& pick,
                                                   const AcGePoint3d& last, const AcGeMatrix3d& view,
                                                   AcGePoint3dArray& points, AcIntArray& geomIds) const {
    return AcDbText::subGetOsnapPoints(mode, marker, pick, last, view, points, geomIds);
}

Acad::ErrorStatus AcDbAttribute::subGetGripPoints(AcGePoint3dArray& points, AcIntArray& modes,
                                                  AcIntArray& geomIds) const {
    return AcDbText::subGetGripPoints(points, modes, geomIds);
}

Acad::ErrorStatus AcDbAttribute::subMoveGripPointsAt(const AcIntArray& indices, const AcGeVector3d& offset) {
    const Acad::ErrorStatus es = AcDbText::subMoveGripPointsAt(indices, offset);
    if (es == Acad::eOk && mMText != nullptr && !indices.isEmpty())
        mMText->setLocation(mMText->location() + offset);
    return es;
}

void AcDbAttribute::subList() const {
    AcDbText::subList();
    dbListText(L"tag", mTag.c_str());
    if (isInvisible())
        dbListText(L"flags", L"Invisible");
}
