// The stack of symbols on a post: two lists that start at one base point, one along the axis
// and one against it; each block begins where the one before it ends. Held by a post, in no database.
#pragma once

#include "AcDbEntity.h"
#include "TrfcTypedBlock.h"

#include <memory>
#include <vector>

class TrfcTable;

enum TRFC_BLOCK_CHAIN_TYPE : Adesk::Int32 {
    kSignChain = 0,     // signs of a post
    kPairLampChain = 1, // lamps of a post pair
    kPostLampChain = 2, // lamps of a post
};

// Indices run through the upward list first, then the downward one. eInvalidIndex for a wrong one
// where it is checked, eNotApplicable for a refused block.
class TrfcBlockChain : public AcDbEntity {
public:
    ACRX_DECLARE_MEMBERS(TrfcBlockChain);
    TrfcBlockChain(); // a sign chain at the origin along +Y
    // rotation in radians turns the axis away from +Y.
    TrfcBlockChain(const AcGePoint3d& base, double rotation, TRFC_BLOCK_CHAIN_TYPE type);
    ~TrfcBlockChain() override;

    // Reads the class name and the block; null for an unknown name, and nothing more is read then.
    virtual std::unique_ptr<TrfcBlock> dwgInBlock(AcDbDwgFiler* filer);
    // The chain owns the block from then on; a refused block (multiline attribute) stays the caller's.
    virtual Acad::ErrorStatus appendBlockUpward(TrfcBlock* block);
    virtual Acad::ErrorStatus appendBlockDownward(TrfcBlock* block);
    virtual int size() const;
    virtual TrfcBlock* getAt(int index) const; // no range check
    virtual TrfcBlock* operator[](int index) const;
    virtual AcGePoint3d ptTop() const;
    virtual AcGePoint3d ptBottom() const;
    virtual AcGePoint3d position() const;
    virtual double rotation() const; // counter-clockwise turn of the axis from +Y, 0 up to two pi
    virtual Acad::ErrorStatus offset(const AcGeVector3d& vector);
    virtual Acad::ErrorStatus setPosition(const AcGePoint3d& point);
    virtual Acad::ErrorStatus rotateBy(double angle);
    virtual Acad::ErrorStatus setRotation(double angle);
    virtual Acad::ErrorStatus repos(const AcGePoint3d& point, double angle);
    // Lays the blocks anew, the typed ones with the sizes of the settings.
    virtual Acad::ErrorStatus regen();
    // Gives a block the sizes of its chain from the settings.
    virtual Acad::ErrorStatus resetBlockD(TrfcBlock* block);
    // Points every complementary sign to the nearest main sign on its inner side.
    virtual Acad::ErrorStatus resetComplIndices();
    // One place towards the base point / away from it; a main sign takes its complementary signs
    // along and steps over a whole group.
    virtual Acad::ErrorStatus moveDnBlock(int index, int* newIndex);
    virtual Acad::ErrorStatus moveUpBlock(int index, int* newIndex);
    virtual Acad::ErrorStatus deleteBlock(int index); // no range check
    virtual Acad::ErrorStatus setBlockType(int index, TRFC_BLOCK_TYPE type); // no range check
    // Moves each typed block on by the process-wide state change data.
    virtual Acad::ErrorStatus stateChanges();
    virtual Acad::ErrorStatus setBlockUniqueScale(int index, double scale); // no range check
    virtual Acad::ErrorStatus setComplementary(int index, bool on);
    virtual Acad::ErrorStatus clear();
    // The main signs must not rise in library file name from the base point on.
    virtual Acad::ErrorStatus checkTableOrder(bool* ok) const;

    AcGeVector3d axis() const { return mAxis; }
    TRFC_BLOCK_CHAIN_TYPE chainType() const { return mChainType; }
    int upCount() const { return static_cast<int>(mUpBlocks.size()); }
    int downCount() const { return static_cast<int>(mDownBlocks.size()); }

    Acad::ErrorStatus dwgOutFields(AcDbDwgFiler* filer) const override;
    Acad::ErrorStatus dwgInFields(AcDbDwgFiler* filer) override;

protected:
    bool subWorldDraw(AcGiWorldDraw* worldDraw) override;
    Acad::ErrorStatus subExplode(AcDbVoidPtrArray& entities) const override;
    Acad::ErrorStatus subTransformBy(const AcGeMatrix3d& matrix) override;

private:
    using BlockList = std::vector<std::unique_ptr<TrfcBlock>>;
    struct BlockSizes; // existing and planned size of the chain's kind
    template <class Self, class Fields> static void ownFields(Self& self, Fields&& field);
    bool isLampChain() const { return mChainType == kPairLampChain || mChainType == kPostLampChain; }
    BlockSizes readSizes() const;
    template <class After> void relay(BlockList& blocks, const After& after);
    void closeUpFrom(BlockList& blocks, std::size_t first);
    void turnAxisTo(double angle);
    Acad::ErrorStatus append(BlockList& blocks, TrfcBlock* block, double angle);
    BlockList& listOf(int index, std::size_t& place);
    const TrfcTable* tableAt(int upIndex) const;
    bool isComplementary(int upIndex) const;
    int endBelowGroup(int upIndex, bool alone) const;
    void swapUpGroups(int below, int index, int end);
    int clampToUp(int index) const;
    Acad::ErrorStatus moveDnInLowerList(int index, int* newIndex);
    void stateChange(const TrfcTypedBlock& block, int index, std::vector<int>& toDelete);
    void writeBlocks(AcDbDwgFiler* filer, const BlockList& blocks) const;
    Acad::ErrorStatus readBlocks(AcDbDwgFiler* filer, BlockList& blocks);

    AcGePoint3d mBasePoint;
    AcGeVector3d mAxis{0.0, 1.0, 0.0};
    TRFC_BLOCK_CHAIN_TYPE mChainType = kSignChain;
    BlockList mUpBlocks;
    BlockList mDownBlocks;
};
