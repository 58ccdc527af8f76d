// The stack of symbols on a post: laying, turning and sizing of its blocks.
#include "TrfcBlockChain.h"

#include "AcUtText.h"
#include "TrfcDocSettings.h"

using TrfcDocSettings::getDocDoubleIn;

ACRX_DXF_DEFINE_MEMBERS(TrfcBlockChain, AcDbEntity, AcDb::kDHL_1021, AcDb::kMReleaseCurrent, 0, L"TrfcBlockChain",
                        L"TRFCSIGNARXAPP |Product Desc: Traffic Block Chain Custom Entity |Company: Tessaron Ltd |WEB Address:")

struct TrfcBlockChain::BlockSizes {
    double existing, planned;
};

TrfcBlockChain::TrfcBlockChain() = default;
TrfcBlockChain::~TrfcBlockChain() = default;

TrfcBlockChain::TrfcBlockChain(const AcGePoint3d& base, double rotation, TRFC_BLOCK_CHAIN_TYPE type) : mBasePoint(base), mChainType(type) {
    mAxis.rotateBy(rotation, AcGeVector3d::kZAxis);
}

// ---- blocks -------------------------------------------------------------------------------

int TrfcBlockChain::size() const {
    return upCount() + downCount();
}

TrfcBlock* TrfcBlockChain::getAt(int index) const {
    assertReadEnabled();
    const auto place = static_cast<std::size_t>(index);
    return place < mUpBlocks.size() ? mUpBlocks[place].get() : mDownBlocks[place - mUpBlocks.size()].get();
}

TrfcBlock* TrfcBlockChain::operator[](int index) const {
    return getAt(index);
}

// The list of a public index, and the place in it.
TrfcBlockChain::BlockList& TrfcBlockChain::listOf(int index, std::size_t& place) {
    place = static_cast<std::size_t>(index);
    if (place < mUpBlocks.size())
        return mUpBlocks;
    place -= mUpBlocks.size();
    return mDownBlocks;
}

Acad::ErrorStatus TrfcBlockChain::appendBlockUpward(TrfcBlock* block) {
    return append(mUpBlocks, block, rotation());
}

Acad::ErrorStatus TrfcBlockChain::appendBlockDownward(TrfcBlock* block) {
    return append(mDownBlocks, block, rotation() + kPi);
}

Acad::ErrorStatus TrfcBlockChain::append(BlockList& blocks, TrfcBlock* block, double angle) {
    assertWriteEnabled();
    if (block == nullptr)
        return Acad::eNullObjectPointer;
    if (!canBePlaced(*block))
        return Acad::eNotApplicable;
    const AcGePoint3d end = blocks.empty() ? mBasePoint : blocks.back()->topPoint();
    resetBlockD(block);
    block->setPosition(end);
    block->setRotation(angle);
    blocks.emplace_back(block);
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockChain::deleteBlock(int index) {
    assertWriteEnabled();
    std::size_t place = 0;
    BlockList& blocks = listOf(index, place);
    blocks.erase(blocks.begin() + static_cast<std::ptrdiff_t>(place));
    repos(mBasePoint, rotation());
    return resetComplIndices();
}

Acad::ErrorStatus TrfcBlockChain::clear() {
    assertWriteEnabled();
    mUpBlocks.clear();
    mDownBlocks.clear();
    return Acad::eOk;
}

// ---- place --------------------------------------------------------------------------------

AcGePoint3d TrfcBlockChain::ptTop() const {
    assertReadEnabled();
    return mUpBlocks.empty() ? mBasePoint : mUpBlocks.back()->topPoint();
}

AcGePoint3d TrfcBlockChain::ptBottom() const {
    assertReadEnabled();
    return mDownBlocks.empty() ? mBasePoint : mDownBlocks.back()->topPoint();
}

AcGePoint3d TrfcBlockChain::position() const {
    assertReadEnabled();
    return mBasePoint;
}

double TrfcBlockChain::rotation() const {
    assertReadEnabled();
    return mAxis.angleTo(AcGeVector3d::kYAxis, -AcGeVector3d::kZAxis);
}

// Each block begins where the one before it ends. What `after` does to a placed block may move its end,
// so the end is read last.
template <class After> void TrfcBlockChain::relay(BlockList& blocks, const After& after) {
    AcGePoint3d end = mBasePoint;
    for (const auto& block : blocks) {
        block->setPosition(end);
        after(*block);
        end = block->topPoint();
    }
}

// The blocks behind the first one are put end to end again.
void TrfcBlockChain::closeUpFrom(BlockList& blocks, std::size_t first) {
    for (std::size_t i = first + 1; i < blocks.size(); ++i)
        blocks[i]->setPosition(blocks[i - 1]->topPoint());
}

void TrfcBlockChain::turnAxisTo(double angle) {
    mAxis = AcGeVector3d::kYAxis;
    mAxis.rotateBy(angle, AcGeVector3d::kZAxis);
}

Acad::ErrorStatus TrfcBlockChain::offset(const AcGeVector3d& vector) {
    assertWriteEnabled();
    mBasePoint += vector;
    for (BlockList* blocks : {&mUpBlocks, &mDownBlocks})
        for (const auto& block : *blocks)
            block->offset(vector);
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockChain::setPosition(const AcGePoint3d& point) {
    assertWriteEnabled();
    mBasePoint = point;
    for (BlockList* blocks : {&mUpBlocks, &mDownBlocks})
        relay(*blocks, [](TrfcBlock&) {});
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockChain::rotateBy(double angle) {
    assertWriteEnabled();
    for (BlockList* blocks : {&mUpBlocks, &mDownBlocks})
        relay(*blocks, [angle](TrfcBlock& block) { block.rotateBy(angle); });
    mAxis.rotateBy(angle, AcGeVector3d::kZAxis);
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockChain::setRotation(double angle) {
    assertWriteEnabled();
    relay(mUpBlocks, [angle](TrfcBlock& block) { block.setRotation(angle); });
    relay(mDownBlocks, [angle](TrfcBlock& block) { block.setRotation(angle + kPi); });
    turnAxisTo(angle);
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockChain::repos(const AcGePoint3d& point, double angle) {
    assertWriteEnabled();
    mBasePoint = point;
    return setRotation(angle);
}

// The blocks are laid anew rather than transformed: they keep their sizes under any matrix.
Acad::ErrorStatus TrfcBlockChain::subTransformBy(const AcGeMatrix3d& matrix) {
    assertWriteEnabled();
    mAxis.transformBy(matrix);
    mBasePoint.transformBy(matrix);
    return repos(mBasePoint, rotation());
}

// ---- size and state -------------------------------------------------------------------------

TrfcBlockChain::BlockSizes TrfcBlockChain::readSizes() const {
    if (isLampChain())
        return {getDocDoubleIn(DOC_EXISTING_LAMP_D, L"wcs"), getDocDoubleIn(DOC_PLANNED_LAMP_D, L"wcs")};
    return {getDocDoubleIn(DOC_EXISTING_TABLE_D, L"wcs"), getDocDoubleIn(DOC_PLANNED_TABLE_D, L"wcs")};
}

namespace {
void applySizes(TrfcTypedBlock& block, double existing, double planned) {
    block.setScales(existing, planned);
    block.setType(block.blockType());
}
} // namespace

Acad::ErrorStatus TrfcBlockChain::resetBlockD(TrfcBlock* block) {
    assertWriteEnabled();
    if (TrfcTypedBlock* typed = TrfcTypedBlock::cast(block)) {
        const BlockSizes sizes = readSizes();
        applySizes(*typed, sizes.existing, sizes.planned);
    } else {
        // A block without a state takes a lamp's size in a sign chain too; that is meant.
        block->setScaleFactor(getDocDoubleIn(isLampChain() ? DOC_EXISTING_LAMP_D : DOC_PLANNED_LAMP_D, L"wcs"));
    }
    return Acad::eOk;
}

// The sizes are read once for all blocks: a change of scale comes through here for every post.
Acad::ErrorStatus TrfcBlockChain::regen() {
    assertWriteEnabled();
    if (size() == 0)
        return Acad::eOk;
    const BlockSizes sizes = readSizes();
    for (BlockList* blocks : {&mUpBlocks, &mDownBlocks}) {
        for (const auto& block : *blocks)
            if (TrfcTypedBlock* typed = TrfcTypedBlock::cast(block.get()))
                applySizes(*typed, sizes.existing, sizes.planned);
        relay(*blocks, [](TrfcBlock&) {});
    }
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockChain::setBlockType(int index, TRFC_BLOCK_TYPE type) {
    assertWriteEnabled();
    if (TrfcTypedBlock* typed = TrfcTypedBlock::cast(getAt(index))) {
        typed->setType(type);
        std::size_t place = 0;
        BlockList& blocks = listOf(index, place);
        closeUpFrom(blocks, place);
    }
    return Acad::eOk;
}

Acad::ErrorStatus TrfcBlockChain::setBlockUniqueScale(int index, double scale) {
    assertWriteEnabled();
    if (TrfcTypedBlock* typed = TrfcTypedBlock::cast(getAt(index))) {
        typed->setUniqueScaleFactor(scale);
        std::size_t place = 0;
        BlockList& blocks = listOf(index, place);
        closeUpFrom(blocks, place);
    }
    return Acad::eOk;
}

// ---- picture --------------------------------------------------------------------------------

bool TrfcBlockChain::subWorldDraw(AcGiWorldDraw* worldDraw) {
    assertReadEnabled();
    for (const BlockList* blocks : {&mDownBlocks, &mUpBlocks})
        for (const auto& block : *blocks)
            block->worldDraw(worldDraw);
    return true;
}

Acad::ErrorStatus TrfcBlockChain::subExplode(AcDbVoidPtrArray& entities) const {
    assertReadEnabled();
    for (const BlockList* blocks : {&mUpBlocks, &mDownBlocks})
        for (const auto& block : *blocks)
            block->explode(entities);
    return Acad::eOk;
}
