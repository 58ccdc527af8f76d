#include "CDisplayListCtrl.h"

#include "GiPaint.h"
#include "controls/AfxDisplayCanvas.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace {
// What a list looks like without a database: colours as they stand, everything visible.
class PlainResolver : public GiStyleResolver {
public:
    bool isVisible(AcDbObjectId) const override { return true; }
    bool isLayerZero(AcDbObjectId) const override { return false; }
    AcCmEntityColor layerColor(AcDbObjectId) const override { return AcCmEntityColor::fromIndex(7); }
    AcDb::LineWeight layerLineWeight(AcDbObjectId) const override { return AcDb::kLnWt025; }
    AcDbObjectId layerLineType(AcDbObjectId) const override { return AcDbObjectId::kNull; }
    bool isByLayerLineType(AcDbObjectId) const override { return false; }
    bool isByBlockLineType(AcDbObjectId) const override { return false; }
    std::vector<double> dashes(AcDbObjectId) const override { return {}; }
};
const PlainResolver kPlainResolver;
} // namespace

BEGIN_MESSAGE_MAP(CDisplayListCtrl, CStatic)
END_MESSAGE_MAP()

CDisplayListCtrl::CDisplayListCtrl() : mImpl(std::make_unique<Impl>()) {}

CDisplayListCtrl::~CDisplayListCtrl() {
    delete mImpl->canvas.data(); // it refers to this object
}

void CDisplayListCtrl::Impl::fit(int width, int height) {
    const double w = std::max(high.x - low.x, 1e-9), h = std::max(high.y - low.y, 1e-9);
    scale = std::min(std::max(width, 1) / w, std::max(height, 1) / h);
    center = AcGePoint2d((low.x + high.x) / 2, (low.y + high.y) / 2);
}

void CDisplayListCtrl::PreSubclassWindow() {
    QWidget* place = window()->widget;
    auto* canvas = new AfxDisplayCanvas(*this, *mImpl, place);
    mImpl->canvas = canvas;
    canvas->place();
    canvas->show();
}

void CDisplayListCtrl::setBackground(COLORREF color) {
    mImpl->background = toQt(color);
    Invalidate();
}

void CDisplayListCtrl::setDisplayList(std::shared_ptr<const GiDisplayList> list, const GiStyleResolver* resolver) {
    mImpl->list = std::move(list);
    mImpl->resolver = resolver;
    if (mImpl->canvas != nullptr)
        mImpl->canvas->update();
}

const GiDisplayList* CDisplayListCtrl::displayList() const {
    return mImpl->list.get();
}

void CDisplayListCtrl::setView(const AcGePoint2d& low, const AcGePoint2d& high) {
    mImpl->low = low;
    mImpl->high = high;
    CRect rect;
    GetClientRect(&rect);
    mImpl->fit(rect.Width(), rect.Height());
    if (mImpl->canvas != nullptr)
        mImpl->canvas->update();
}

void CDisplayListCtrl::zoomExtents(double factor) {
    if (mImpl->list == nullptr || mImpl->list->primitives.empty())
        return;
    const AcDbExtents extents = giExtentsOf(*mImpl->list);
    const AcGePoint3d low = extents.minPoint(), high = extents.maxPoint();
    if (low.x > high.x)
        return; // nothing is drawn
    const double dx = std::max(high.x - low.x, 1e-6) * (factor - 1.0) / 2, dy = std::max(high.y - low.y, 1e-6) * (factor - 1.0) / 2;
    setView(AcGePoint2d(low.x - dx, low.y - dy), AcGePoint2d(high.x + dx, high.y + dy));
}

AcGePoint2d CDisplayListCtrl::toModel(CPoint point) const {
    CRect rect;
    GetClientRect(&rect);
    return AcGePoint2d(mImpl->center.x + (point.x - rect.Width() / 2.0) / mImpl->scale,
                       mImpl->center.y - (point.y - rect.Height() / 2.0) / mImpl->scale);
}

CPoint CDisplayListCtrl::toClient(const AcGePoint2d& point) const {
    CRect rect;
    GetClientRect(&rect);
    return CPoint(qRound(rect.Width() / 2.0 + (point.x - mImpl->center.x) * mImpl->scale),
                  qRound(rect.Height() / 2.0 - (point.y - mImpl->center.y) * mImpl->scale));
}

double CDisplayListCtrl::pixelSize() const {
    return 1.0 / mImpl->scale;
}

// ---- the surface ---------------------------------------------------------------------
AfxDisplayCanvas::AfxDisplayCanvas(CDisplayListCtrl& owner, CDisplayListCtrl::Impl& impl, QWidget* parent)
    : QWidget(parent), mOwner(owner), mImpl(impl) {
    setMouseTracking(true);
    parent->installEventFilter(this);
}

void AfxDisplayCanvas::place() {
    setGeometry(parentWidget()->rect());
}

bool AfxDisplayCanvas::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Resize)
        place();
    return false;
}

void AfxDisplayCanvas::resizeEvent(QResizeEvent*) {
    mImpl.fit(width(), height());
    mOwner.onViewResized();
}

void AfxDisplayCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), mImpl.background);
    if (mImpl.list == nullptr)
        return;
    GiPaintView view;
    view.center = mImpl.center;
    view.centerX = width() / 2.0;
    view.centerY = height() / 2.0;
    view.pixelsPerUnit = mImpl.scale;
    view.right = width();
    view.bottom = height();
    view.thinnest = 1.2; // a hair line of one pixel fades when it lies between two
    view.foregroundRgb = mImpl.background.lightness() < 128 ? 0xFFFFFF : 0x000000;
    paintDisplayList(painter, *mImpl.list, mImpl.resolver != nullptr ? *mImpl.resolver : kPlainResolver, view);
}

void AfxDisplayCanvas::mouseMoveEvent(QMouseEvent* event) {
    mOwner.onModelMove(mOwner.toModel(fromQt(event->position().toPoint())));
}

void AfxDisplayCanvas::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        mOwner.onModelClick(mOwner.toModel(fromQt(event->position().toPoint())));
}

void AfxDisplayCanvas::leaveEvent(QEvent*) {
    mOwner.onModelLeave();
}
