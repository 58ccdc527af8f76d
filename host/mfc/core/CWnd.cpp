#include "CWnd.h"

#include "AfxApp.h"
#include "CDataExchange.h"
#include "CDialog.h"
#include "CFont.h"
#include "controls/AfxControlText.h"
#include "core/AfxDispatch.h"
#include "core/AfxFault.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>

namespace {
// A screen in memory has no order of windows and would complain.
void raise(QWidget& widget) {
    if (!widget.isWindow() || QGuiApplication::platformName() != QStringLiteral("offscreen"))
        widget.raise();
}
} // namespace

const AFX_MSGMAP* CWnd::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP map = {nullptr, entries};
    return &map;
}

CWnd::CWnd() : mWindow(std::make_unique<AfxWindow>()) {
    mWindow->owner = this;
}

CWnd::~CWnd() {
    if (mWindow->widget == nullptr) {
        afxDetach(*mWindow);
        return;
    }
    // No handler of the derived class may run any more; the widget goes when its event is over.
    QWidget* widget = mWindow->widget;
    while (!mWindow->children.empty())
        afxDetach(*mWindow->children.back()->window());
    afxDetach(*mWindow);
    mWindow->made.clear();
    widget->hide();
    widget->deleteLater();
}

HWND CWnd::GetSafeHwnd() const {
    return mWindow->widget.data();
}

CWnd* CWnd::FromHandle(HWND window) {
    AfxWindow* found = afxFind(static_cast<const QObject*>(static_cast<QWidget*>(window)));
    return found == nullptr ? nullptr : found->owner;
}

// ---- text and state ------------------------------------------------------------------
void CWnd::SetWindowText(LPCTSTR text) {
    if (IsWindow())
        afxSetText(*mWindow, text == nullptr ? L"" : text);
}

void CWnd::GetWindowText(CString& text) const {
    text = IsWindow() ? afxGetText(*mWindow) : std::wstring();
}

int CWnd::GetWindowTextLength() const {
    CString text;
    GetWindowText(text);
    return text.GetLength();
}

namespace {
// The enabled windows of their own that a window owns. The toolkit disables them with their owner; here
// they stay as they are: a job's window is open over the window that it keeps from the user.
std::vector<QWidget*> enabledWindowsOf(const QWidget& owner) {
    std::vector<QWidget*> windows;
    for (QWidget* child : owner.findChildren<QWidget*>())
        if (child->isWindow() && child->isEnabled())
            windows.push_back(child);
    return windows;
}
} // namespace

BOOL CWnd::EnableWindow(BOOL enable) {
    if (!IsWindow())
        return FALSE;
    const bool wasDisabled = mWindow->widget->testAttribute(Qt::WA_Disabled);
    const std::vector<QWidget*> owned = enabledWindowsOf(*mWindow->widget);
    mWindow->widget->setEnabled(enable != FALSE);
    for (QWidget* window : owned)
        window->setEnabled(true);
    return wasDisabled ? TRUE : FALSE;
}

BOOL CWnd::IsWindowEnabled() const {
    return IsWindow() && mWindow->widget->isEnabled() ? TRUE : FALSE;
}

BOOL CWnd::ShowWindow(int show) {
    if (!IsWindow())
        return FALSE;
    const bool wasVisible = !mWindow->widget->isHidden();
    mWindow->widget->setVisible(show != SW_HIDE);
    return wasVisible ? TRUE : FALSE;
}

BOOL CWnd::IsWindowVisible() const {
    return IsWindow() && mWindow->widget->isVisible() ? TRUE : FALSE;
}

CWnd* CWnd::SetFocus() {
    CWnd* earlier = GetFocus();
    if (IsWindow())
        mWindow->widget->setFocus(Qt::OtherFocusReason);
    return earlier;
}

CWnd* CWnd::GetFocus() {
    QWidget* focused = QApplication::focusWidget();
    AfxWindow* window = focused == nullptr ? nullptr : afxFind(focused);
    return window == nullptr ? nullptr : window->owner;
}

void CWnd::Invalidate(BOOL) {
    if (IsWindow())
        mWindow->widget->update();
}

void CWnd::UpdateWindow() {
    if (IsWindow())
        mWindow->widget->repaint();
}

void CWnd::SetRedraw(BOOL redraw) {
    if (IsWindow())
        mWindow->widget->setUpdatesEnabled(redraw != FALSE);
}

void CWnd::SetFont(CFont* font, BOOL) {
    if (!IsWindow() || font == nullptr || font->pointTenths() <= 0)
        return;
    QFont chosen = mWindow->widget->font();
    if (!font->family().IsEmpty())
        chosen.setFamily(toQt(font->family().text()));
    chosen.setPointSizeF(font->pointTenths() / 10.0);
    chosen.setBold(font->isBold());
    mWindow->widget->setFont(chosen);
}

DWORD CWnd::GetStyle() const {
    return mWindow->style;
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add) {
    mWindow->style = (mWindow->style & ~remove) | add;
    if (IsWindow())
        afxApplyStyle(*mWindow);
    return TRUE;
}

int CWnd::GetDlgCtrlID() const {
    return mWindow->id;
}

int CWnd::SetDlgCtrlID(int id) {
    const int earlier = mWindow->id;
    mWindow->id = id;
    return earlier;
}

// ---- place ---------------------------------------------------------------------------
void CWnd::GetClientRect(CRect* rect) const {
    *rect = IsWindow() ? CRect(0, 0, mWindow->widget->width(), mWindow->widget->height()) : CRect();
}

void CWnd::GetWindowRect(CRect* rect) const {
    GetClientRect(rect);
    ClientToScreen(rect);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL) {
    SetWindowPos(nullptr, x, y, width, height, SWP_NOZORDER);
}

void CWnd::MoveWindow(const CRect& rect, BOOL repaint) {
    MoveWindow(rect.left, rect.top, rect.Width(), rect.Height(), repaint);
}

BOOL CWnd::SetWindowPos(const CWnd*, int x, int y, int cx, int cy, UINT flags) {
    if (!IsWindow())
        return FALSE;
    QWidget& widget = *mWindow->widget;
    if ((flags & SWP_NOSIZE) == 0) {
        const QSize size(std::max(cx, 0), std::max(cy, 0));
        if (mWindow->isTopLevel && widget.minimumSize() == widget.maximumSize())
            widget.setFixedSize(size);
        else
            widget.resize(size);
    }
    if ((flags & SWP_NOMOVE) == 0)
        widget.move(x, y);
    if ((flags & SWP_NOZORDER) == 0)
        raise(widget);
    if ((flags & SWP_SHOWWINDOW) != 0)
        widget.show();
    if ((flags & SWP_HIDEWINDOW) != 0)
        widget.hide();
    return TRUE;
}

void CWnd::BringWindowToTop() {
    if (IsWindow())
        raise(*mWindow->widget);
}

void CWnd::CenterWindow() {
    if (!IsWindow())
        return;
    QWidget& widget = *mWindow->widget;
    const QWidget* parent = widget.parentWidget();
    const QRect place = parent != nullptr ? QRect(parent->mapToGlobal(QPoint(0, 0)), parent->size()) : widget.screen()->availableGeometry();
    widget.move(place.center() - widget.rect().center());
}

void CWnd::ClientToScreen(CPoint* point) const {
    if (IsWindow())
        *point = fromQt(mWindow->widget->mapToGlobal(toQt(*point)));
}

void CWnd::ClientToScreen(CRect* rect) const {
    CPoint corner = rect->TopLeft();
    ClientToScreen(&corner);
    *rect = CRect(corner, rect->Size());
}

void CWnd::ScreenToClient(CPoint* point) const {
    if (IsWindow())
        *point = fromQt(mWindow->widget->mapFromGlobal(toQt(*point)));
}

void CWnd::ScreenToClient(CRect* rect) const {
    CPoint corner = rect->TopLeft();
    ScreenToClient(&corner);
    *rect = CRect(corner, rect->Size());
}

CWnd* CWnd::GetParent() const {
    return mWindow->parent;
}

BOOL CWnd::SetParent(CWnd* parent) {
    if (!IsWindow() || parent == nullptr || !parent->IsWindow())
        return FALSE;
    if (mWindow->parent != nullptr)
        std::erase(mWindow->parent->window()->children, this);
    mWindow->parent = parent;
    parent->window()->children.push_back(this);
    const bool wasHidden = mWindow->widget->isHidden();
    mWindow->widget->setParent(parent->window()->widget);
    mWindow->widget->setVisible(!wasHidden);
    return TRUE;
}

// ---- messages ------------------------------------------------------------------------
LRESULT CWnd::SendMessage(UINT what, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (what == WM_COMMAND)
        return OnCommand(wParam, lParam);
    if (what == WM_NOTIFY)
        return OnNotify(wParam, lParam, &result) ? result : 0;
    if (what == WM_CLOSE) {
        AfxDispatch::close(*this);
        return 0;
    }
    AfxMessage message;
    message.message = what;
    message.wParam = wParam;
    message.lParam = lParam;
    if (AfxDispatch::handle(*this, message))
        return message.result;
    if (what == WM_SETFONT)
        SetFont(reinterpret_cast<CFont*>(wParam));
    return 0;
}

BOOL CWnd::PostMessage(UINT what, WPARAM wParam, LPARAM lParam) {
    if (!IsWindow())
        return FALSE;
    QWidget* widget = mWindow->widget;
    // The message dies with the window; bound to another wrapper meanwhile, it goes to that one.
    QTimer::singleShot(0, widget, [widget, what, wParam, lParam] {
        if (AfxWindow* window = afxFind(widget))
            afxGuarded([&] { window->owner->SendMessage(what, wParam, lParam); });
    });
    return TRUE;
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds, void*) {
    if (!IsWindow())
        return 0;
    QWidget* widget = mWindow->widget;
    auto timer = std::make_unique<QTimer>();
    QObject::connect(timer.get(), &QTimer::timeout, widget, [widget, id] {
        AfxMessage message;
        message.message = WM_TIMER;
        message.wParam = id;
        if (AfxWindow* window = afxFind(widget))
            AfxDispatch::handle(*window->owner, message);
    });
    timer->start(static_cast<int>(milliseconds));
    if (auto& earlier = mWindow->timers[id])
        earlier.release()->deleteLater(); // it may be the one that is running now
    mWindow->timers[id] = std::move(timer);
    return id;
}

BOOL CWnd::KillTimer(UINT_PTR id) {
    const auto found = mWindow->timers.find(id);
    if (found == mWindow->timers.end())
        return FALSE;
    found->second->stop();
    found->second.release()->deleteLater();
    mWindow->timers.erase(found);
    return TRUE;
}

CWnd* CWnd::SetCapture() {
    return nullptr; // a pressed mouse button keeps its events with the control by itself
}

BOOL CWnd::DestroyWindow() {
    if (!IsWindow())
        return FALSE;
    afxDestroy(*this, false);
    return TRUE;
}

int CWnd::MessageBox(LPCTSTR text, LPCTSTR caption, UINT type) {
    return AfxMessageBoxOf(this, text, caption, type);
}

BOOL CWnd::UpdateData(BOOL saveAndValidate) {
    CDataExchange exchange(this, saveAndValidate);
    DoDataExchange(&exchange);
    return exchange.failed() ? FALSE : TRUE;
}

BOOL CWnd::PreTranslateMessage(MSG*) {
    return FALSE;
}

void CWnd::OnClose() {
    if (dynamic_cast<CDialog*>(this) != nullptr)
        OnCommand(MAKEWPARAM(static_cast<UINT>(IDCANCEL), BN_CLICKED), 0);
    else
        DestroyWindow();
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM) {
    AfxMessage message;
    message.message = WM_COMMAND;
    message.id = LOWORD(wParam);
    message.code = HIWORD(wParam);
    return AfxDispatch::handle(*this, message) ? TRUE : FALSE;
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) {
    AfxMessage message;
    message.message = WM_NOTIFY;
    message.header = reinterpret_cast<NMHDR*>(lParam);
    message.id = static_cast<UINT>(wParam);
    message.code = message.header->code;
    if (!AfxDispatch::handle(*this, message))
        return FALSE;
    *result = message.result;
    return TRUE;
}

void CWnd::Default() {
    AfxEventInHand* inHand = mWindow->inHand;
    if (inHand == nullptr || inHand->delivered)
        return;
    inHand->delivered = true;
    AfxDispatch::deliver(inHand->watched, inHand->event);
}
