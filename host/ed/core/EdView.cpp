#include "EdView.h"

#include "EdProperties.h"

#include <algorithm>

namespace {
constexpr double kViewPixels = 1000.0;
constexpr double kMargin = 1.05;
} // namespace

EdView edView(AcDbDatabase& db) {
    EdView view;
    const AcDbObjectPointer<AcDbViewportTableRecord> record(edFindRecord<AcDbViewportTable>(db, L"*Active"));
    if (record) {
        view.center = {record->centerPoint().x, record->centerPoint().y, 0.0};
        view.height = record->height() > 0.0 ? record->height() : view.height;
        view.width = record->width() > 0.0 ? record->width() : view.width;
    }
    return view;
}
void edSetView(AcDbDatabase& db, const EdView& view) {
    AcDbObjectPointer<AcDbViewportTableRecord> record(edFindRecord<AcDbViewportTable>(db, L"*Active"), AcDb::kForWrite);
    if (!record)
        return;
    record->setCenterPoint({view.center.x, view.center.y});
    record->setHeight(view.height);
    record->setWidth(view.width);
}
void edZoomTo(AcDbDatabase& db, const AcDbExtents& box) {
    if (!box.isValid())
        return;
    EdView view = edView(db);
    const double aspect = view.width / view.height;
    const AcGeVector3d size = box.maxPoint() - box.minPoint();
    double height = std::max(size.y, size.x / aspect) * kMargin;
    if (height <= 0.0)
        height = 1.0;
    view.center = box.minPoint() + size * 0.5;
    view.height = height;
    view.width = height * aspect;
    edSetView(db, view);
}
double edPixelSize(AcDbDatabase& db) {
    return edView(db).height / kViewPixels;
}
