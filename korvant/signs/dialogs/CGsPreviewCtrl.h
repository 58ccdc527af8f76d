// The live view of what a property page edits, drawn with the same code and the same layers as the
// drawing. Blocks that are listed light up under the mouse and can be clicked. Without a drawing, or
// before init, there is nothing to draw with, and the control stays empty.
#pragma once

#include "AcCmColor.h"
#include "AcDbBlockReference.h"
#include "AcDbStyles.h"
#include "CDisplayListCtrl.h"

#include <functional>
#include <memory>

class TrfcBlock;
class TrfcBlockChain;

class CGsPreviewCtrl : public CDisplayListCtrl {
public:
    CGsPreviewCtrl();
    ~CGsPreviewCtrl() override;

    // up: the direction of the drawing that points upwards in the view. Shows the placeholder symbol
    // until something else is shown.
    void init(const AcGeVector3d& up);
    // What is shown stays the caller's and must live until something else is shown.
    void showBlock(TrfcBlock* block);
    void showChain(TrfcBlockChain& chain);
    void showList(const AcArray<TrfcBlock*>& blocks);
    // Something that has no blocks to pick; the view stays where it is.
    void showEntity(AcDbEntity* entity);
    void showPlaceholder();
    void setBlockId(AcDbObjectId block); // of the placeholder
    // Forgets what is shown, without a new picture; for the time while it changes.
    void clear();

    void zoomExtents();
    // The view height in drawing units, about a point.
    void zoomAbout(const AcGePoint3d& center, double height);

    // Frames a block of the list; -1 none.
    void setSelected(int index);
    int selected() const { return mSelected; }
    int hovered() const { return mHovered; } // -1: none under the mouse
    // The last listed block whose outline holds the point, -1 for none.
    int blockAt(const AcGePoint3d& point) const;
    CPoint placeOf(const AcGePoint3d& point) const; // where a point of the drawing is seen, in client pixels
    // A click on a block, or (-1) beside all of them.
    std::function<void(int)> onPick;
    // What the mouse does, at a point of the drawing.
    void moveTo(const AcGePoint3d& point);
    void clickAt(const AcGePoint3d& point);

    AcCmColor highlightColor() const { return mHighlight; }
    AcCmColor hoverColor() const { return mHover; }

protected:
    void onModelMove(const AcGePoint2d& point) override;
    void onModelClick(const AcGePoint2d& point) override;
    void onModelLeave() override;
    void onViewResized() override;
    bool selectPart(int index) override;

private:
    enum class Fit { kExtents, kCenter };
    void show(AcArray<AcDbEntity*> drawables, AcArray<TrfcBlock*> blocks);
    bool canDraw() const { return mStyles != nullptr; }
    void fitExtents();
    void rebuild();
    double deviation() const; // of curves from their chords in the picture
    void applyView();
    void setHovered(int index);
    void drawHovered(GiDisplayListBuilder& builder, const AcDbEntity& entity) const;
    void drawFrame(GiDisplayListBuilder& builder, const TrfcBlock& block) const;
    AcGePoint3d fromView(const AcGePoint2d& point) const;

    AcCmColor mBackground, mHighlight, mHover;
    std::unique_ptr<GiStyleResolver> mStyles; // of the working drawing; null before init
    std::unique_ptr<AcDbBlockReference> mPlaceholder;
    AcArray<AcDbEntity*> mDrawables;
    AcArray<TrfcBlock*> mBlocks;
    int mHovered = -1, mSelected = -1;
    AcDbExtents mExtents; // of what is shown, as the view has it
    AcGeMatrix3d mToView; // turns the drawing so that "up" points upwards
    Fit mFit = Fit::kExtents;
    AcGePoint3d mCenter;
    double mHeight = 1.0;
};
