#include "CButton.h"

#include "CBitmap.h"
#include "controls/AfxControlFactory.h"
#include "controls/AfxImages.h"

#include <QAbstractButton>
#include <QButtonGroup>

BEGIN_MESSAGE_MAP(CButton, CWnd)
END_MESSAGE_MAP()

BOOL CButton::Create(LPCTSTR text, DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    return afxCreateControl(*this, L"Button", text, style | WS_CHILD, rect, parent, id);
}

int CButton::GetCheck() const {
    const auto* button = afxWidgetAs<QAbstractButton>(*this);
    return button != nullptr && button->isChecked() ? BST_CHECKED : BST_UNCHECKED;
}

void CButton::SetCheck(int check) {
    auto* button = afxWidgetAs<QAbstractButton>(*this);
    if (button == nullptr)
        return;
    QButtonGroup* group = button->group();
    if (group != nullptr && check == BST_UNCHECKED)
        group->setExclusive(false); // else the checked one of a group cannot be cleared
    button->setChecked(check != BST_UNCHECKED);
    if (group != nullptr)
        group->setExclusive(true);
}

void CButton::SetBitmap(const CBitmap* bitmap) {
    auto* button = afxWidgetAs<QAbstractButton>(*this);
    if (button == nullptr)
        return;
    const bool isSet = bitmap != nullptr && bitmap->picture() != nullptr;
    button->setIcon(isSet ? QIcon(QPixmap::fromImage(bitmap->picture()->image)) : QIcon());
    if (isSet)
        button->setIconSize(bitmap->picture()->image.size());
}
