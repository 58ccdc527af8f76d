#include "CDisplayListCtrl.h"
#include "SampleDialog.h"
#include "core/AfxWindow.h"

#include <QApplication>
#include <QMouseEvent>
#include <cmath>

namespace {
const char* const kPreview = R"rc(
1 DIALOGEX 0, 0, 120, 80
STYLE WS_POPUP | WS_CAPTION
FONT 8, "MS Shell Dlg"
BEGIN
    CONTROL "", 10, "Static", SS_BLACKFRAME, 10, 10, 100, 60
END
)rc";

class Preview : public CDisplayListCtrl {
public:
    std::vector<AcGePoint2d> moves, clicks;
    int leaves = 0;

protected:
    void onModelMove(const AcGePoint2d& p) override { moves.push_back(p); }
    void onModelClick(const AcGePoint2d& p) override { clicks.push_back(p); }
    void onModelLeave() override { ++leaves; }
};

class PreviewDialog : public CDialog {
public:
    PreviewDialog() : CDialog(1u) {}
    Preview preview;

protected:
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        preview.SubclassDlgItem(10, this);
        auto list = std::make_shared<GiDisplayList>();
        GiPrimitive box;
        const AcGePoint3d corners[] = {AcGePoint3d(0, 0, 0), AcGePoint3d(10, 0, 0), AcGePoint3d(10, 10, 0), AcGePoint3d(0, 10, 0)};
        box.shape = GiPolygon{GiPoints(corners, 4)};
        box.traits.color = AcCmEntityColor(255, 0, 0);
        box.traits.fill = kAcGiFillAlways;
        list->primitives.push_back(box);
        preview.setDisplayList(list);
        return TRUE;
    }
};

void sendMouse(QWidget* target, QEvent::Type type, CPoint at) {
    const QPointF point(at.x, at.y);
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, point, target->mapToGlobal(point), button, button, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}
} // namespace

TEST(DisplayListControl, shows_the_list_and_gives_the_mouse_in_model_units) {
    useResources(kPreview);
    DialogScript user({L"check", L"@close"});
    PreviewDialog dialog;
    user.look(L"check", [&] {
        Preview& preview = dialog.preview;
        preview.zoomExtents(1.2);
        CRect client;
        preview.GetClientRect(client);
        const AcGePoint2d middle = preview.toModel(client.CenterPoint());
        EXPECT_NEAR(middle.x, 5.0, preview.pixelSize());
        EXPECT_NEAR(middle.y, 5.0, preview.pixelSize());
        EXPECT_LT(preview.toClient(AcGePoint2d(5, 9)).y, preview.toClient(AcGePoint2d(5, 1)).y) << "up is up";
        EXPECT_NEAR(12.0 / preview.pixelSize(), client.Height(), 1.0) << "the height decides, with a border";
        QWidget* canvas = preview.window()->widget->findChild<QWidget*>();
        ASSERT_NE(canvas, nullptr);
        const QImage picture = canvas->grab().toImage();
        EXPECT_EQ(picture.pixelColor(client.Width() / 2, client.Height() / 2), QColor(255, 0, 0));
        EXPECT_EQ(picture.pixelColor(2, 2), QColor(0, 0, 0));
        sendMouse(canvas, QEvent::MouseMove, preview.toClient(AcGePoint2d(2, 3)));
        sendMouse(canvas, QEvent::MouseButtonPress, preview.toClient(AcGePoint2d(8, 1)));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(canvas, &leave);
        ASSERT_EQ(preview.moves.size(), 1u);
        EXPECT_NEAR(preview.moves[0].x, 2.0, preview.pixelSize());
        ASSERT_EQ(preview.clicks.size(), 1u);
        EXPECT_NEAR(preview.clicks[0].y, 1.0, preview.pixelSize());
        EXPECT_EQ(preview.leaves, 1);
    });
    dialog.DoModal();
    EXPECT_TRUE(user.refusals.empty());
}

TEST(DisplayListControl, an_empty_list_and_an_empty_view_draw_the_background) {
    useResources(kPreview);
    DialogScript user({L"check", L"@close"});
    PreviewDialog dialog;
    user.look(L"check", [&] {
        dialog.preview.setBackground(RGB(10, 20, 30));
        dialog.preview.setDisplayList(nullptr);
        dialog.preview.zoomExtents();
        dialog.preview.setView(AcGePoint2d(1, 1), AcGePoint2d(1, 1));
        const QImage picture = dialog.preview.window()->widget->grab().toImage();
        EXPECT_EQ(picture.pixelColor(picture.width() / 2, picture.height() / 2), QColor(10, 20, 30));
        EXPECT_TRUE(std::isfinite(dialog.preview.toModel(CPoint(0, 0)).x));
    });
    dialog.DoModal();
}
