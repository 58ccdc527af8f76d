#include "CStatic.h"

#include "CBitmap.h"
#include "controls/AfxControlFactory.h"
#include "controls/AfxControlText.h"
#include "controls/AfxImages.h"

#include <QLabel>

BEGIN_MESSAGE_MAP(CStatic, CWnd)
END_MESSAGE_MAP()

BOOL CStatic::Create(LPCTSTR text, DWORD style, const CRect& rect, CWnd* parent, UINT id) {
    return afxCreateControl(*this, L"Static", text, style | WS_CHILD, rect, parent, id);
}

void CStatic::SetBitmap(const CBitmap* bitmap) {
    auto* label = afxWidgetAs<QLabel>(*this);
    if (label == nullptr)
        return;
    if (bitmap != nullptr && bitmap->picture() != nullptr)
        label->setPixmap(QPixmap::fromImage(bitmap->picture()->image));
    else
        afxSetText(*window(), window()->text);
}
