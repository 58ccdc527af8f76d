// The attributes of a block: made from the definitions in its library block, placed by its
// reference, never added to a database.
#include "TrfcBlock.h"

#include "AcDbDatabase.h"
#include "AcUtText.h"

namespace {
AcDbDatabase* workingDatabase() {
    return acdbHostApplicationServices()->workingDatabase();
}

using Definition = AcDbObjectPointer<AcDbAttributeDefinition>;
} // namespace

// Properties and place of the definition, carried through the reference; the text is the definition's.
void TrfcBlock::placeAttribute(AcDbAttribute& attribute, const AcDbAttributeDefinition& definition) const {
    attribute.setPropertiesFrom(&definition);
    attribute.setAttributeFromBlock(&definition, mBlockRef.blockTransform());
}

void TrfcBlock::makeAttributes() {
    mAttributes.clear();
    mAttributeDefs.removeAll();
    mAttributesPending = false;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(mDescriptor.blockId);
    if (!block)
        return;
    AcDbBlockTableRecordIterator* opened = nullptr;
    block->newIterator(opened);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(opened);
    for (; !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        iterator->getEntityId(id);
        const Definition definition(id);
        if (definition)
            makeAttribute(*definition.object(), id);
    }
}

void TrfcBlock::makeAttribute(const AcDbAttributeDefinition& definition, AcDbObjectId id) {
    auto attribute = std::make_unique<AcDbAttribute>();
    placeAttribute(*attribute, definition);
    attribute->adjustAlignment(workingDatabase());
    attribute->setInvisible(definition.isInvisible());
    mAttributes.push_back(std::move(attribute));
    mAttributeDefs.append(id);
}

// An attribute follows the symbol and keeps its value.
void TrfcBlock::regen() {
    assertWriteEnabled();
    if (!mAttributes.empty())
        replaceAttributes();
}

void TrfcBlock::replaceAttributes() const {
    mAttributesPending = false;
    for (int i = 0; i < mAttributeDefs.length(); ++i) {
        AcDbAttribute& attribute = *mAttributes[static_cast<std::size_t>(i)];
        const Definition definition(mAttributeDefs[i]);
        if (!definition) {
            mAttributesPending = true;
            continue;
        }
        const std::wstring text = attribute.textStringConst();
        attribute.setAttributeFromBlock(definition.object(), mBlockRef.blockTransform());
        attribute.setTextString(text.c_str());
        attribute.adjustAlignment(workingDatabase());
    }
}

// While a drawing is being read the definition may come after the block that needs it: such
// attributes are placed when they are first asked for.
void TrfcBlock::completeAttributes() const {
    if (!mAttributesPending)
        return;
    for (int i = 0; i < mAttributeDefs.length(); ++i) {
        const Definition definition(mAttributeDefs[i]);
        if (definition)
            mAttributes[static_cast<std::size_t>(i)]->setPropertiesFrom(definition.object());
    }
    replaceAttributes();
}

bool TrfcBlock::hasMTextAttribute() const {
    assertReadEnabled();
    completeAttributes();
    for (const auto& attribute : mAttributes)
        if (attribute->isMTextAttribute())
            return true;
    return false;
}

const AcDbAttribute* TrfcBlock::attributeAt(int index) const {
    completeAttributes();
    return mAttributes[static_cast<std::size_t>(index)].get();
}

void TrfcBlock::setAttributeText(int index, const ACHAR* text) {
    assertWriteEnabled();
    completeAttributes();
    AcDbAttribute& attribute = *mAttributes[static_cast<std::size_t>(index)];
    attribute.setTextString(text);
    attribute.adjustAlignment(workingDatabase());
}

void TrfcBlock::setAttributeText(const ACHAR* tag, const ACHAR* text) {
    assertWriteEnabled();
    completeAttributes();
    for (int i = 0; i < attributeCount(); ++i)
        if (mAttributes[static_cast<std::size_t>(i)]->tagConst() == tag)
            setAttributeText(i, text);
}

// ---- filing -----------------------------------------------------------------------------

void TrfcBlock::writeAttributes(AcDbDwgFiler* filer) const {
    filer->writeInt32(attributeCount());
    for (int i = 0; i < attributeCount(); ++i) {
        filer->writeHardPointerId(mAttributeDefs[i]);
        filer->writeString(mAttributes[static_cast<std::size_t>(i)]->textStringConst());
    }
}

void TrfcBlock::readAttributes(AcDbDwgFiler* filer) {
    mAttributes.clear();
    mAttributeDefs.removeAll();
    mAttributesPending = false;
    Adesk::Int32 count = 0;
    filer->readInt32(&count);
    for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
        AcDbHardPointerId id;
        std::wstring text;
        filer->readHardPointerId(&id);
        filer->readString(text);
        auto attribute = std::make_unique<AcDbAttribute>();
        const Definition definition(id);
        if (definition)
            placeAttribute(*attribute, *definition.object());
        else
            mAttributesPending = true;
        attribute->setTextString(text.c_str());
        attribute->adjustAlignment(workingDatabase());
        mAttributes.push_back(std::move(attribute));
        mAttributeDefs.append(id);
    }
}

bool canBePlaced(const TrfcBlock& symbol) {
    if (!symbol.hasMTextAttribute())
        return true;
    acutPrintf(L"Többsoros attribútumdefiníciót tartalmazó blokkot nem lehet beszúrni!\n");
    return false;
}
