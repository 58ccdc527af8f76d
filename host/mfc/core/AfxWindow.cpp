#include "core/AfxWindow.h"

#include "core/AfxDispatch.h"
#include "core/AfxEventFilter.h"

#include <algorithm>
#include <unordered_map>

namespace {
std::unordered_map<const QObject*, AfxWindow*>& registry() {
    static std::unordered_map<const QObject*, AfxWindow*> windows;
    return windows;
}

void leaveParent(AfxWindow& window) {
    if (window.parent == nullptr)
        return;
    std::erase(window.parent->window()->children, window.owner);
    window.parent = nullptr;
}

// The wrappers that the template made die with the window.
void dropMade(AfxWindow& window) {
    std::vector<std::unique_ptr<CWnd>> made;
    made.swap(window.made);
}

void tell(CWnd& wnd, UINT what) {
    AfxMessage message;
    message.message = what;
    AfxDispatch::handle(wnd, message);
}

// Children first hear that they go, then are unbound; their widgets go with the parent's.
void destroyChildren(AfxWindow& window) {
    while (!window.children.empty()) {
        CWnd* child = window.children.back();
        AfxWindow& part = *child->window();
        tell(*child, WM_DESTROY);
        destroyChildren(part);
        const bool wasMade = std::any_of(window.made.begin(), window.made.end(), [&](const auto& m) { return m.get() == child; });
        if (part.isTopLevel && part.widget != nullptr)
            part.widget->deleteLater(); // a window of its own is no part of the parent's widget
        afxDetach(part);
        dropMade(part);
        if (!wasMade)
            AfxDispatch::postNcDestroy(*child);
    }
}
} // namespace

void afxAttach(CWnd& owner, QWidget* widget, AfxKind kind, int id, DWORD style, CWnd* parent) {
    AfxWindow& window = *owner.window();
    window.owner = &owner;
    window.widget = widget;
    window.kind = kind;
    window.id = id;
    window.style = style;
    window.parent = parent;
    window.isDestroying = false;
    if (parent != nullptr)
        parent->window()->children.push_back(&owner);
    afxWatch(window, widget);
}

void afxWatch(AfxWindow& window, QObject* part) {
    window.watched.push_back(part);
    registry()[part] = &window;
    part->installEventFilter(&AfxEventFilter::instance());
    // A widget may go with its parent without the wrapper being asked; no address may stay behind.
    QObject::connect(part, &QObject::destroyed, &AfxEventFilter::instance(), [part] {
        if (AfxWindow* owner = afxFind(part))
            std::erase(owner->watched, part);
        registry().erase(part);
    });
}

void afxDetach(AfxWindow& window) {
    for (QObject* part : window.watched) {
        part->removeEventFilter(&AfxEventFilter::instance());
        QObject::disconnect(part, &QObject::destroyed, &AfxEventFilter::instance(), nullptr);
        registry().erase(part);
    }
    window.watched.clear();
    window.timers.clear();
    leaveParent(window);
    window.widget = nullptr;
    window.kind = AfxKind::None;
    window.inHand = nullptr;
    window.isTopLevel = false;
}

void afxRebind(CWnd& from, CWnd& to) {
    CWnd* parent = from.GetParent();
    std::swap(AfxDispatch::slot(from), AfxDispatch::slot(to));
    to.window()->owner = &to;
    from.window()->owner = &from;
    if (parent == nullptr)
        return;
    auto& siblings = parent->window()->children;
    std::replace(siblings.begin(), siblings.end(), &from, &to);
    for (CWnd* child : to.window()->children)
        child->window()->parent = &to;
    std::erase_if(parent->window()->made, [&](const auto& made) { return made.get() == &from; });
}

AfxWindow* afxFind(const QObject* object) {
    const auto found = registry().find(object);
    return found == registry().end() ? nullptr : found->second;
}

void afxDestroy(CWnd& wnd, bool atOnce) {
    AfxWindow& window = *wnd.window();
    if (window.widget == nullptr || window.isDestroying)
        return;
    window.isDestroying = true;
    tell(wnd, WM_DESTROY);
    destroyChildren(window);
    QPointer<QWidget> widget = window.widget;
    std::unique_ptr<CWnd> self; // where the template made the wrapper, it goes with the window
    if (window.parent != nullptr)
        for (auto& made : window.parent->window()->made)
            if (made.get() == &wnd)
                self = std::move(made);
    if (self != nullptr)
        std::erase(window.parent->window()->made, nullptr);
    afxDetach(window);
    dropMade(window);
    window.isDestroying = false;
    if (widget != nullptr) {
        widget->hide();
        if (atOnce)
            delete widget.data();
        else
            widget->deleteLater(); // an event of its own may be under way
    }
    AfxDispatch::postNcDestroy(wnd);
}
