#include "CGsPreviewCtrl.h"

#include "TrfcBlock.h"
#include "TrfcBlockChain.h"
#include "TrfcBlockLoader.h"

namespace {
// What is shown keeps this much room about it.
constexpr double kBorderFactor = 1.2;
constexpr double kOuterFrameFactor = 1.06;

// Exploded copies, released at the end.
struct Copies {
    AcDbVoidPtrArray entities;
    explicit Copies(const AcDbEntity& entity) { entity.explode(entities); }
    Copies(const Copies&) = delete;
    Copies& operator=(const Copies&) = delete;
    ~Copies() {
        for (void* const copy : entities)
            delete static_cast<AcDbEntity*>(copy);
    }
};
} // namespace

CGsPreviewCtrl::CGsPreviewCtrl() : mBackground(0, 0, 0), mHighlight(255, 140, 0), mHover(30, 80, 100) {}
CGsPreviewCtrl::~CGsPreviewCtrl() { setDisplayList(nullptr); } // the surface goes after the styles it paints with

void CGsPreviewCtrl::init(const AcGeVector3d& up) {
    const AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr)
        return;
    mStyles = acdbNewStyleResolver(*drawing);
    setBackground(RGB(mBackground.red(), mBackground.green(), mBackground.blue()));
    const double turn = up.isZeroLength() ? 0.0 : up.angleTo(AcGeVector3d::kYAxis, AcGeVector3d::kZAxis);
    mToView = AcGeMatrix3d::rotation(turn, AcGeVector3d::kZAxis);
    mPlaceholder = std::make_unique<AcDbBlockReference>(AcGePoint3d::kOrigin, builtInBlockId(kBlockSelect));
    showPlaceholder();
}

void CGsPreviewCtrl::showPlaceholder() {
    mFit = Fit::kExtents;
    AcArray<AcDbEntity*> drawables;
    if (mPlaceholder != nullptr && !mPlaceholder->blockTableRecord().isNull())
        drawables.append(mPlaceholder.get());
    show(std::move(drawables), {});
}

void CGsPreviewCtrl::setBlockId(AcDbObjectId block) {
    if (mPlaceholder == nullptr)
        return;
    mPlaceholder->setBlockTableRecord(block);
    showPlaceholder();
}

void CGsPreviewCtrl::showBlock(TrfcBlock* block) {
    AcArray<TrfcBlock*> blocks;
    if (block != nullptr)
        blocks.append(block);
    showList(blocks);
}

void CGsPreviewCtrl::showChain(TrfcBlockChain& chain) {
    AcArray<TrfcBlock*> blocks;
    for (int i = 0; i < chain.size(); ++i)
        blocks.append(chain.getAt(i));
    showList(blocks);
}

void CGsPreviewCtrl::showList(const AcArray<TrfcBlock*>& blocks) {
    if (blocks.isEmpty()) {
        showPlaceholder();
        return;
    }
    mFit = Fit::kExtents;
    AcArray<AcDbEntity*> drawables;
    for (TrfcBlock* const block : blocks)
        drawables.append(block);
    show(std::move(drawables), blocks);
}

void CGsPreviewCtrl::showEntity(AcDbEntity* entity) {
    AcArray<AcDbEntity*> drawables;
    drawables.append(entity);
    show(std::move(drawables), {});
}

void CGsPreviewCtrl::clear() {
    mDrawables.removeAll();
    mBlocks.removeAll();
    mHovered = mSelected = -1;
}

void CGsPreviewCtrl::show(AcArray<AcDbEntity*> drawables, AcArray<TrfcBlock*> blocks) {
    clear();
    if (!canDraw())
        return;
    mDrawables = std::move(drawables);
    mBlocks = std::move(blocks);
    rebuild();
    applyView();
}

void CGsPreviewCtrl::rebuild() {
    if (!canDraw())
        return;
    GiDisplayListBuilder builder(false, kAcGiStandardDisplay, deviation());
    AcGiGeometry& geometry = builder.worldDraw().geometry();
    geometry.pushModelTransform(mToView);
    for (int i = 0; i < mDrawables.length(); ++i)
        if (i == mHovered)
            drawHovered(builder, *mDrawables[i]);
        else
            geometry.draw(mDrawables[i]);
    mExtents = giExtentsOf(builder.list()); // the frame takes no part: a click must not move the view
    if (mSelected >= 0 && mSelected < mBlocks.length())
        drawFrame(builder, *mBlocks[mSelected]);
    geometry.popModelTransform();
    setDisplayList(std::make_shared<const GiDisplayList>(builder.take()), mStyles.get());
}

// The picture fills the control, whatever its size in the drawing: a symbol one unit wide is round too.
double CGsPreviewCtrl::deviation() const {
    constexpr double kFinest = 2000.0; // of the picture's size; no preview has more pixels
    AcDbExtents box;
    for (AcDbEntity* const drawable : mDrawables)
        if (const AcDbExtents own = giExtentsOf(*drawable); own.isValid())
            box.addExt(own);
    const double size = box.isValid() ? box.minPoint().distanceTo(box.maxPoint()) : 0.0;
    return size > 0.0 ? size / kFinest : 0.01;
}

// Copies in one colour, so that by-layer and own colours of a library symbol light up as well.
void CGsPreviewCtrl::drawHovered(GiDisplayListBuilder& builder, const AcDbEntity& entity) const {
    const Copies copies(entity);
    for (void* const pointer : copies.entities) {
        auto* const copy = static_cast<AcDbEntity*>(pointer);
        copy->setColor(mHover);
        copy->setLinetype(L"Continuous");
        copy->setLineWeight(AcDb::kLnWt000);
        builder.worldDraw().geometry().draw(copy);
    }
}

// Two rings about the block, so that the frame is seen beside a plate's own edge.
void CGsPreviewCtrl::drawFrame(GiDisplayListBuilder& builder, const TrfcBlock& block) const {
    builder.worldDraw().subEntityTraits().setTrueColor(mHighlight);
    for (const double factor : {1.0, kOuterFrameFactor}) {
        AcGePoint3dArray corners;
        block.getBoundingBox(corners);
        for (AcGePoint3d& corner : corners)
            corner.scaleBy(factor, block.centroid());
        corners.append(AcGePoint3d(corners.first()));
        builder.worldDraw().geometry().polyline(static_cast<Adesk::UInt32>(corners.length()), corners.asArrayPtr());
    }
}

void CGsPreviewCtrl::zoomExtents() {
    mFit = Fit::kExtents;
    applyView();
}

void CGsPreviewCtrl::zoomAbout(const AcGePoint3d& center, double height) {
    mFit = Fit::kCenter;
    mCenter = center;
    mHeight = height;
    applyView();
}

void CGsPreviewCtrl::applyView() {
    if (mFit == Fit::kExtents) {
        fitExtents();
        return;
    }
    CRect client;
    GetClientRect(client);
    const AcGePoint3d center = mToView * mCenter;
    const double halfHeight = mHeight / 2.0;
    const double halfWidth = client.Height() > 0 ? halfHeight * client.Width() / client.Height() : halfHeight;
    setView({center.x - halfWidth, center.y - halfHeight}, {center.x + halfWidth, center.y + halfHeight});
}

void CGsPreviewCtrl::fitExtents() {
    if (!mExtents.isValid())
        return;
    const AcGePoint3d low = mExtents.minPoint(), high = mExtents.maxPoint();
    const double dx = (high.x - low.x) * (kBorderFactor - 1.0) / 2.0, dy = (high.y - low.y) * (kBorderFactor - 1.0) / 2.0;
    setView({low.x - dx, low.y - dy}, {high.x + dx, high.y + dy});
}

// A view about a point keeps its height; the control alone would only keep its rectangle in sight.
void CGsPreviewCtrl::onViewResized() { applyView(); }

void CGsPreviewCtrl::setSelected(int index) {
    if (index == mSelected)
        return;
    mSelected = index;
    rebuild();
}

void CGsPreviewCtrl::setHovered(int index) {
    if (index == mHovered)
        return;
    mHovered = index;
    rebuild();
}

AcGePoint3d CGsPreviewCtrl::fromView(const AcGePoint2d& point) const {
    return mToView.inverse() * AcGePoint3d(point.x, point.y, 0.0);
}

CPoint CGsPreviewCtrl::placeOf(const AcGePoint3d& point) const {
    const AcGePoint3d seen = mToView * point;
    return toClient({seen.x, seen.y});
}

int CGsPreviewCtrl::blockAt(const AcGePoint3d& point) const {
    int hit = -1;
    for (int i = 0; i < mBlocks.length(); ++i) {
        AcGePoint3dArray corners;
        mBlocks[i]->getBoundingBox(corners);
        if (giPointInLoops(point, {{corners.begin(), corners.end()}}))
            hit = i;
    }
    return hit;
}

void CGsPreviewCtrl::moveTo(const AcGePoint3d& point) {
    if (!mBlocks.isEmpty())
        setHovered(blockAt(point));
}

void CGsPreviewCtrl::clickAt(const AcGePoint3d& point) {
    if (!mBlocks.isEmpty() && onPick)
        onPick(blockAt(point));
}

void CGsPreviewCtrl::onModelMove(const AcGePoint2d& point) { moveTo(fromView(point)); }
void CGsPreviewCtrl::onModelClick(const AcGePoint2d& point) { clickAt(fromView(point)); }
void CGsPreviewCtrl::onModelLeave() { setHovered(-1); }

bool CGsPreviewCtrl::selectPart(int index) {
    if (index < 0 || index >= mBlocks.length() || !onPick)
        return false;
    onPick(index);
    return true;
}
