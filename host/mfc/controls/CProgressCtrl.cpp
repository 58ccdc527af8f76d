#include "CProgressCtrl.h"

#include "controls/AfxControlFactory.h"

#include <QProgressBar>

namespace {
constexpr const char* kStep = "step";
QProgressBar* widgetOf(const CProgressCtrl& bar) {
    return afxWidgetAs<QProgressBar>(bar);
}
int stepOf(const QProgressBar& bar) {
    const QVariant step = bar.property(kStep);
    return step.isValid() ? step.toInt() : 10;
}
} // namespace

BEGIN_MESSAGE_MAP(CProgressCtrl, CWnd)
END_MESSAGE_MAP()

BOOL CProgressCtrl::Create(DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    return afxCreateControl(*this, L"msctls_progress32", nullptr, style | WS_CHILD, rect, parent, id);
}

void CProgressCtrl::SetRange32(int low, int high) {
    QProgressBar* bar = widgetOf(*this);
    if (bar == nullptr)
        return;
    bar->setRange(low, std::max(high, low + 1)); // an empty range would show a busy bar
    bar->setValue(std::max(bar->value(), low));
}

void CProgressCtrl::GetRange(int& low, int& high) const {
    const QProgressBar* bar = widgetOf(*this);
    low = bar == nullptr ? 0 : bar->minimum();
    high = bar == nullptr ? 0 : bar->maximum();
}

int CProgressCtrl::SetPos(int position) {
    QProgressBar* bar = widgetOf(*this);
    if (bar == nullptr)
        return 0;
    const int earlier = GetPos();
    bar->setValue(std::clamp(position, bar->minimum(), bar->maximum()));
    return earlier;
}

int CProgressCtrl::GetPos() const {
    const QProgressBar* bar = widgetOf(*this);
    return bar == nullptr ? 0 : std::max(bar->value(), bar->minimum());
}

int CProgressCtrl::OffsetPos(int delta) {
    return SetPos(GetPos() + delta);
}

int CProgressCtrl::SetStep(int step) {
    QProgressBar* bar = widgetOf(*this);
    if (bar == nullptr)
        return 0;
    const int earlier = stepOf(*bar);
    bar->setProperty(kStep, step);
    return earlier;
}

int CProgressCtrl::StepIt() {
    const QProgressBar* bar = widgetOf(*this);
    if (bar == nullptr)
        return 0;
    const int next = GetPos() + stepOf(*bar);
    const int span = bar->maximum() - bar->minimum();
    return SetPos(next > bar->maximum() ? bar->minimum() + (next - bar->minimum()) % span : next);
}
