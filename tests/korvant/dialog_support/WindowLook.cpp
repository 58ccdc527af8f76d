#include "WindowLook.h"

#include "AfxApp.h"
#include "controls/AfxListWidget.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"
#include "dialog/AfxModal.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QMouseEvent>

// ---- pictures --------------------------------------------------------------------------
namespace {
// What a list has put off for a moment would be missing in the picture.
void layOutLists(const CWnd& window) {
    for (const CWnd* const child : window.window()->children) {
        if (const auto* const list = afxWidgetAs<AfxListWidget>(*child))
            list->layOutNow();
        layOutLists(*child);
    }
}

QImage pictureOf(const CWnd& window) {
    layOutLists(window);
    return window.window()->widget->grab().toImage();
}
} // namespace

void keepPicture(const CWnd& window, const std::string& name) {
    QDir().mkpath(QStringLiteral(KORVANT_PICTURES));
    EXPECT_TRUE(pictureOf(window).save(QStringLiteral(KORVANT_PICTURES "/") + QString::fromStdString(name) + QStringLiteral(".png")));
}

void lookAt(const CWnd& window, const std::string& name) {
    AfxPumpMessages();
    keepPicture(window, name);
    for (const std::string& fault : windowFaults(window))
        ADD_FAILURE() << name << ": " << fault;
}

CWnd* topWindow() {
    return afxTopDialog();
}

COLORREF pixelOf(const CWnd& window, CPoint at) {
    const QColor color = pictureOf(window).pixelColor(toQt(at));
    return RGB(color.red(), color.green(), color.blue());
}

int countPixels(const CWnd& window, COLORREF color, int tolerance) {
    const QImage picture = pictureOf(window);
    const QColor wanted = toQt(color);
    const auto isNear = [tolerance](int a, int b) { return std::abs(a - b) <= tolerance; };
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor pixel = picture.pixelColor(x, y);
            count += isNear(pixel.red(), wanted.red()) && isNear(pixel.green(), wanted.green()) && isNear(pixel.blue(), wanted.blue()) ? 1 : 0;
        }
    return count;
}

// ---- the mouse -------------------------------------------------------------------------
namespace {
QWidget* widgetAt(const CWnd& window, CPoint at) {
    QWidget* const whole = window.window()->widget;
    QWidget* const part = whole->childAt(toQt(at));
    return part != nullptr ? part : whole;
}

void send(const CWnd& window, CPoint at, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
    QWidget* const target = widgetAt(window, at);
    const QPointF global = window.window()->widget->mapToGlobal(QPointF(at.x, at.y));
    QMouseEvent event(type, target->mapFromGlobal(global), global, button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
    AfxPumpMessages();
}
} // namespace

void moveMouse(const CWnd& window, CPoint at) {
    send(window, at, QEvent::MouseMove, Qt::NoButton, Qt::NoButton);
}

void clickMouse(const CWnd& window, CPoint at) {
    send(window, at, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    send(window, at, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
}

void moveMouseAway(const CWnd& window) {
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(widgetAt(window, {1, 1}), &leave);
    AfxPumpMessages();
}

struct PaintCounter::Watcher : QObject {
    int painted = 0;
    bool eventFilter(QObject*, QEvent* event) override {
        painted += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
};

PaintCounter::PaintCounter(const CWnd& window) : mWatcher(std::make_unique<Watcher>()) {
    AfxPumpMessages();
    widgetAt(window, {1, 1})->installEventFilter(mWatcher.get());
}

PaintCounter::~PaintCounter() = default;

int PaintCounter::count() {
    AfxPumpMessages();
    return std::exchange(mWatcher->painted, 0);
}
