#include "controls/AfxControlText.h"

#include "core/QtText.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace {
template <class Widget> Widget* as(const AfxWindow& window) {
    return static_cast<Widget*>(window.widget.data());
}

// A button of pictures keeps its text as a name that is not shown.
bool showsPicture(const AfxWindow& window) {
    return (window.style & BS_BITMAP) != 0;
}

void setComboText(QComboBox& combo, const QString& text) {
    if (combo.isEditable())
        combo.setEditText(text);
    else
        combo.setCurrentIndex(combo.findText(text));
}
} // namespace

QString afxWithoutMarks(const QString& caption) {
    QString seen;
    for (int i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && i + 1 < caption.size())
            ++i; // "&&" shows one
        seen += caption[i];
    }
    return seen;
}

void afxSetText(AfxWindow& window, const std::wstring& text) {
    const QString shown = toQtLines(text.c_str());
    switch (window.kind) {
    case AfxKind::Dialog: as<QWidget>(window)->setWindowTitle(shown); return;
    case AfxKind::Static:
        window.text = text;
        // The toolkit shows the mark of an access key only on a label that leads to another control.
        as<QLabel>(window)->setText((window.style & SS_NOPREFIX) != 0 || as<QLabel>(window)->buddy() != nullptr ? shown : afxWithoutMarks(shown));
        return;
    case AfxKind::Push:
    case AfxKind::Check:
    case AfxKind::Radio:
        window.text = text;
        as<QAbstractButton>(window)->setText(showsPicture(window) ? QString() : shown);
        return;
    case AfxKind::Group: as<QGroupBox>(window)->setTitle(shown); return;
    case AfxKind::Edit: as<QLineEdit>(window)->setText(toQt(text)); return;
    case AfxKind::MultiEdit: as<QPlainTextEdit>(window)->setPlainText(shown); return;
    case AfxKind::Combo: setComboText(*as<QComboBox>(window), toQt(text)); return;
    case AfxKind::None:
    case AfxKind::ListBox:
    case AfxKind::List:
    case AfxKind::Tree:
    case AfxKind::Tab:
    case AfxKind::Progress:
    case AfxKind::Custom: window.text = text; return;
    }
}

std::wstring afxGetText(const AfxWindow& window) {
    switch (window.kind) {
    case AfxKind::Dialog: return toWide(as<QWidget>(window)->windowTitle());
    case AfxKind::Push:
    case AfxKind::Check:
    case AfxKind::Radio: return showsPicture(window) ? window.text : toWide(as<QAbstractButton>(window)->text());
    case AfxKind::Group: return toWide(as<QGroupBox>(window)->title());
    case AfxKind::Edit: return toWide(as<QLineEdit>(window)->text());
    case AfxKind::MultiEdit: return toWide(as<QPlainTextEdit>(window)->toPlainText().replace(u'\n', QStringLiteral("\r\n")));
    case AfxKind::Combo: return toWide(as<QComboBox>(window)->currentText());
    case AfxKind::None:
    case AfxKind::Static:
    case AfxKind::ListBox:
    case AfxKind::List:
    case AfxKind::Tree:
    case AfxKind::Tab:
    case AfxKind::Progress:
    case AfxKind::Custom: return window.text;
    }
    return {};
}

void afxApplyStyle(AfxWindow& window) {
    if (window.kind == AfxKind::Edit)
        as<QLineEdit>(window)->setReadOnly((window.style & ES_READONLY) != 0);
    if (window.kind == AfxKind::MultiEdit)
        as<QPlainTextEdit>(window)->setReadOnly((window.style & ES_READONLY) != 0);
}
