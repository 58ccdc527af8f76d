#include "core/AfxInput.h"

#include <QMouseEvent>

namespace {
struct KeyCode {
    int key;
    UINT code;
};
const KeyCode kKeys[] = {{Qt::Key_Return, VK_RETURN}, {Qt::Key_Enter, VK_RETURN}, {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_Tab, VK_TAB},
                         {Qt::Key_Backspace, VK_BACK}, {Qt::Key_Delete, VK_DELETE}, {Qt::Key_Left, VK_LEFT}, {Qt::Key_Right, VK_RIGHT},
                         {Qt::Key_Up, VK_UP}, {Qt::Key_Down, VK_DOWN}, {Qt::Key_Home, VK_HOME}, {Qt::Key_End, VK_END},
                         {Qt::Key_F1, VK_F1}, {Qt::Key_F2, VK_F2}};
} // namespace

UINT afxVirtualKey(int toolkitKey) {
    for (const KeyCode& known : kKeys)
        if (known.key == toolkitKey)
            return known.code;
    return toolkitKey >= Qt::Key_Space && toolkitKey <= Qt::Key_Z ? static_cast<UINT>(toolkitKey) : 0;
}

UINT afxMouseMessage(const QMouseEvent& event) {
    const bool isLeft = event.button() == Qt::LeftButton;
    if (event.type() == QEvent::MouseMove)
        return WM_MOUSEMOVE;
    if (event.type() == QEvent::MouseButtonDblClick)
        return isLeft ? WM_LBUTTONDBLCLK : 0;
    if (event.type() == QEvent::MouseButtonPress)
        return isLeft ? WM_LBUTTONDOWN : WM_RBUTTONDOWN;
    return isLeft ? WM_LBUTTONUP : WM_RBUTTONUP;
}
