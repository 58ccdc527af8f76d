#include "controls/AfxTabWidget.h"

#include "core/AfxDispatch.h"
#include "core/AfxWindow.h"

#include <QCoreApplication>
#include <QMouseEvent>

namespace {
LRESULT tell(QWidget* tabs, UINT code) {
    NMHDR header;
    AfxWindow* window = afxFind(tabs);
    return window == nullptr ? 0 : AfxDispatch::notify(*window->owner, header, code);
}

// Asks before a tab changes and tells afterwards, but only where the user did it.
class AskingTabBar : public QTabBar {
public:
    explicit AskingTabBar(AfxTabWidget* owner) : QTabBar(owner), mOwner(owner) {}

protected:
    void mousePressEvent(QMouseEvent* event) override {
        const int wanted = tabAt(event->position().toPoint());
        if (wanted >= 0)
            change(wanted, [&] { QTabBar::mousePressEvent(event); });
    }
    void keyPressEvent(QKeyEvent* event) override {
        change(currentIndex(), [&] { QTabBar::keyPressEvent(event); }, true);
    }
    void wheelEvent(QWheelEvent* event) override { event->ignore(); } // a page is not left by accident

private:
    template <class Act> void change(int wanted, const Act& act, bool isKey = false) {
        const int before = currentIndex();
        if ((wanted != before || isKey) && tell(mOwner, TCN_SELCHANGING) != 0)
            return;
        QPointer<QTabBar> alive = this;
        act();
        if (alive != nullptr && currentIndex() != before)
            tell(mOwner, TCN_SELCHANGE);
    }
    AfxTabWidget* mOwner;
};
} // namespace

AfxTabWidget::AfxTabWidget(QWidget* parent) : QTabWidget(parent) {
    setTabBar(new AskingTabBar(this));
    setUsesScrollButtons(true);
}

QRect AfxTabWidget::pageRect() const {
    const int tabs = tabBar()->sizeHint().height();
    return rect().adjusted(4, tabs + 3, -4, -4);
}

bool AfxTabWidget::clickTab(int index) {
    QTabBar* bar = tabBar();
    QPointer<QTabBar> alive = bar;
    const QPointF point = bar->tabRect(index).center();
    QMouseEvent press(QEvent::MouseButtonPress, point, bar->mapToGlobal(point), Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &press);
    if (alive == nullptr)
        return true;
    QMouseEvent release(QEvent::MouseButtonRelease, point, bar->mapToGlobal(point), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &release);
    return alive == nullptr || bar->currentIndex() == index;
}
