#include "AcUtText.h"
#include "AfxApp.h"
#include "AfxDialogDriver.h"
#include "CDialog.h"
#include "app/AfxTemplate.h"
#include "core/AfxWindow.h"
#include "core/QtText.h"
#include "dialog/AfxLayout.h"
#include "dialog/AfxModal.h"

#include <QApplication>
#include <QLabel>
#include <QStyle>
#include <vector>

namespace {
constexpr int kTextId = 0xFFFE, kIconId = 0xFFFD;
constexpr int kButtonWidth = 50, kButtonHeight = 14, kMargin = 8, kIconRoom = 28, kWidestText = 260;

struct BoxButton {
    int id;
    const wchar_t* caption;
};

std::vector<BoxButton> buttonsOf(UINT type) {
    switch (type & 0xF) {
    case MB_OKCANCEL: return {{IDOK, L"OK"}, {IDCANCEL, L"Mégse"}};
    case MB_YESNO: return {{IDYES, L"&Igen"}, {IDNO, L"&Nem"}};
    case MB_YESNOCANCEL: return {{IDYES, L"&Igen"}, {IDNO, L"&Nem"}, {IDCANCEL, L"Mégse"}};
    default: return {{IDOK, L"OK"}};
    }
}

class BoxDialog : public CDialog {
public:
    explicit BoxDialog(UINT type) : mType(type) {}

protected:
    BOOL OnInitDialog() override {
        const UINT icon = mType & 0xF0;
        auto* label = static_cast<QLabel*>(GetDlgItem(kIconId) == nullptr ? nullptr : GetDlgItem(kIconId)->window()->widget.data());
        if (label != nullptr) {
            const QStyle::StandardPixmap which = icon == MB_ICONERROR      ? QStyle::SP_MessageBoxCritical
                                                 : icon == MB_ICONQUESTION ? QStyle::SP_MessageBoxQuestion
                                                 : icon == MB_ICONWARNING  ? QStyle::SP_MessageBoxWarning
                                                                           : QStyle::SP_MessageBoxInformation;
            label->setPixmap(QApplication::style()->standardIcon(which).pixmap(32, 32));
        }
        return TRUE;
    }
    BOOL OnCommand(WPARAM wParam, LPARAM) override {
        const int id = LOWORD(wParam);
        if (GetDlgItem(id) != nullptr)
            EndDialog(id);
        else if (id == IDCANCEL && buttonsOf(mType).size() == 1)
            EndDialog(IDOK); // Escape and the title bar's close answer the only button
        return TRUE;
    }
    void OnCancel() override { EndDialog(buttonsOf(mType).size() == 1 ? IDOK : (mType & 0xF) == MB_YESNO ? IDNO : IDCANCEL); }

private:
    UINT mType;
};

// The size of the text in dialog units, wrapped at the widest that reads well.
QSize textUnits(const std::wstring& text) {
    RcDialog probe;
    const QFont font = afxDialogFont(probe);
    const AfxUnits units(font);
    const QRect room(0, 0, units.x(kWidestText), 10000);
    const QRect used = QFontMetrics(font).boundingRect(room, Qt::TextWordWrap, toQtLines(text.c_str()));
    const int unitX = units.x(1000), unitY = units.y(1000);
    return QSize((used.width() + 6) * 1000 / unitX + 1, (used.height() + 2) * 1000 / unitY + 1);
}

RcDialog templateOf(const std::wstring& text, const std::wstring& caption, UINT type) {
    const std::vector<BoxButton> buttons = buttonsOf(type);
    const int count = static_cast<int>(buttons.size());
    const int iconRoom = (type & 0xF0) != 0 ? kIconRoom : 0;
    const QSize size = textUnits(text);
    const int buttonRow = count * kButtonWidth + (count - 1) * 4;
    const int width = 2 * kMargin + std::max({iconRoom + size.width(), buttonRow, 100});
    const int textHeight = std::max(size.height(), iconRoom == 0 ? 10 : 22);
    const int buttonTop = kMargin + textHeight + kMargin;
    RcDialog source = afxWindow(caption, 0, width, buttonTop + kButtonHeight + kMargin);
    if (iconRoom > 0)
        source.controls.push_back(afxItem(L"Static", L"", kIconId, SS_ICON, kMargin, kMargin, 22, 22));
    source.controls.push_back(afxItem(L"Static", text, kTextId, SS_NOPREFIX, kMargin + iconRoom, kMargin, width - 2 * kMargin - iconRoom, textHeight));
    const int defaultButton = (type & MB_DEFBUTTON2) != 0 ? 1 : 0;
    for (int i = 0; i < count; ++i)
        source.controls.push_back(afxItem(L"Button", buttons[static_cast<std::size_t>(i)].caption, buttons[static_cast<std::size_t>(i)].id,
                                          WS_TABSTOP | (i == defaultButton ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON),
                                          (width - buttonRow) / 2 + i * (kButtonWidth + 4), buttonTop, kButtonWidth, kButtonHeight));
    return source;
}
} // namespace

int AfxMessageBoxOf(CWnd* owner, LPCTSTR text, LPCTSTR caption, UINT type) {
    AfxInitToolkit();
    const std::wstring message = text == nullptr ? L"" : text;
    const std::wstring title = caption == nullptr ? L"Korvant" : caption;
    acutPrintf(L"%s: %s\n", title.c_str(), message.c_str());
    BoxDialog box(type);
    return static_cast<int>(afxRunTemplate(box, templateOf(message, title, type), owner));
}

int AfxMessageBox(LPCTSTR text, UINT type, UINT) {
    return AfxMessageBoxOf(afxTopModal(), text, nullptr, type);
}

int AfxMessageBox(UINT stringId, UINT type) {
    return AfxMessageBox(AfxResourceString(stringId).c_str(), type);
}
