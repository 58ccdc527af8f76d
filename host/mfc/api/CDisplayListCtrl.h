// A control that shows a picture of drawing primitives: colours resolved, flat, seen in plan.
// Model coordinates run upwards; the window always shows the whole view rectangle.
#pragma once

#include "AcGiReceivers.h"
#include "CStatic.h"

class CDisplayListCtrl : public CStatic {
public:
    CDisplayListCtrl();
    ~CDisplayListCtrl() override;

    void setBackground(COLORREF color);
    // The resolver must live as long as the list is shown; null stands for plain colours.
    void setDisplayList(std::shared_ptr<const GiDisplayList> list, const GiStyleResolver* resolver = nullptr);
    const GiDisplayList* displayList() const; // null where nothing is shown
    // The rectangle of the model that is shown, enlarged to the window's proportions.
    void setView(const AcGePoint2d& low, const AcGePoint2d& high);
    // Fits the view to the list's extents, enlarged by the factor about their centre.
    void zoomExtents(double factor = 1.2);
    AcGePoint2d toModel(CPoint point) const; // client pixels
    CPoint toClient(const AcGePoint2d& point) const;
    double pixelSize() const; // model units a pixel

    // A script line takes the part of that number; false where the picture has none.
    virtual bool selectPart(int) { return false; }

    // Events in model coordinates.
    virtual void onModelMove(const AcGePoint2d&) {}
    virtual void onModelClick(const AcGePoint2d&) {}
    virtual void onModelLeave() {}
    virtual void onViewResized() {} // the view has been refitted

    void PreSubclassWindow() override;

    struct Impl; // host side

    DECLARE_MESSAGE_MAP()

private:
    std::unique_ptr<Impl> mImpl;
};
