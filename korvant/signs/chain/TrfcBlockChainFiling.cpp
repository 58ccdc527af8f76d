// The record of a chain and of the blocks in it.
#include "TrfcBlockChain.h"

#include "TrfcFields.h"
#include "TrfcLamp.h"
#include "TrfcTable.h"

template <class Self, class Fields> void TrfcBlockChain::ownFields(Self& self, Fields&& field) {
    field(1, trfcShort(self.mChainType));
    field(1, self.mBasePoint);
    field(1, self.mAxis);
}

Acad::ErrorStatus TrfcBlockChain::dwgOutFields(AcDbDwgFiler* filer) const {
    AcDbEntity::dwgOutFields(filer);
    filer->writeUInt32(kTrfcFileVersion);
    ownFields(*this, TrfcFieldWriter<TrfcUnsignedKind>{*filer});
    writeBlocks(filer, mUpBlocks);
    writeBlocks(filer, mDownBlocks);
    return filer->filerStatus();
}

Acad::ErrorStatus TrfcBlockChain::dwgInFields(AcDbDwgFiler* filer) {
    AcDbEntity::dwgInFields(filer);
    Adesk::UInt32 version = 0;
    const Acad::ErrorStatus versionStatus = trfcReadVersion(*filer, version);
    if (versionStatus != Acad::eOk || version == 0)
        return versionStatus != Acad::eOk ? versionStatus : filer->filerStatus();
    ownFields(*this, TrfcFieldReader<TrfcUnsignedKind>{*filer, version});
    Acad::ErrorStatus es = readBlocks(filer, mUpBlocks);
    if (es == Acad::eOk)
        es = readBlocks(filer, mDownBlocks);
    return es != Acad::eOk ? es : filer->filerStatus();
}

void TrfcBlockChain::writeBlocks(AcDbDwgFiler* filer, const BlockList& blocks) const {
    filer->writeInt16(static_cast<Adesk::Int16>(blocks.size()));
    for (const auto& block : blocks) {
        filer->writeString(block->isA()->name());
        const AcDbFilerNest nest(filer, block->isA()->name());
        block->dwgOutFields(filer);
    }
}

// Behind a class name that is not known the stream is out of step: nothing after it can be read.
Acad::ErrorStatus TrfcBlockChain::readBlocks(AcDbDwgFiler* filer, BlockList& blocks) {
    blocks.clear();
    Adesk::Int16 count = 0;
    filer->readInt16(&count);
    for (; count > 0 && filer->filerStatus() == Acad::eOk; --count) {
        auto block = dwgInBlock(filer);
        if (block == nullptr)
            return filer->filerStatus() != Acad::eOk ? filer->filerStatus() : Acad::eFilerError;
        blocks.push_back(std::move(block));
    }
    return filer->filerStatus();
}

namespace {
template <class Block> std::unique_ptr<TrfcBlock> makeBlock() {
    return std::make_unique<Block>();
}

struct BlockClass {
    AcRxClass* (*desc)();
    std::unique_ptr<TrfcBlock> (*make)();
};
constexpr BlockClass kBlockClasses[] = {
    {TrfcBlock::desc, makeBlock<TrfcBlock>},
    {TrfcTypedBlock::desc, makeBlock<TrfcTypedBlock>},
    {TrfcTable::desc, makeBlock<TrfcTable>},
    {TrfcLamp::desc, makeBlock<TrfcLamp>},
};
} // namespace

std::unique_ptr<TrfcBlock> TrfcBlockChain::dwgInBlock(AcDbDwgFiler* filer) {
    std::wstring name;
    filer->readString(name);
    for (const BlockClass& known : kBlockClasses) {
        if (name != known.desc()->name())
            continue;
        auto block = known.make();
        const Acad::ErrorStatus es = block->dwgInFields(filer);
        if (es != Acad::eOk)
            filer->setFilerStatus(es); // a block of a later version makes its owner one too
        return block;
    }
    return nullptr;
}
